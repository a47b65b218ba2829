#pragma once

#include <QAccessibleWidget>

namespace korvel::internal {

class ListSurface;

/// A list as screen readers and test tools see it: a tree with a table behind it. Its children are the controls
/// that are open over it, then the titles of the columns, then the cells row by row. As a client that asks for
/// all of them would be busy for seconds, only so many are counted; the table has all rows.
class ListInterface final : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    /// More children than this are not counted.
    static constexpr int MostChildren = 1 << 16;

    explicit ListInterface(ListSurface& surface);
    /// For Qt: null for anything but a ListSurface.
    static QAccessibleInterface* Make(const QString& className, QObject* object);

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    int selectedCellCount() const override;
    QList<QAccessibleInterface*> selectedCells() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override;
    int columnCount() const override;
    int rowCount() const override;
    QList<int> selectedColumns() const override { return {}; }
    /// So many of them as children are counted at most.
    QList<int> selectedRows() const override;
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

private:
    ListSurface& Surface() const;
    /// The widgets of the controls that are open over the list.
    QList<QWidget*> Controls() const;
};

} // namespace korvel::internal

#pragma once

#include "korvel/window/base/list_view.h"

#include <QAccessible>
#include <optional>

namespace korvel::internal {

class ListSurface;

/// A cell or a title of a list, as screen readers and test tools see it. It keeps its place and the data of its
/// row, to know the row again, and asks the list for everything else.
class CellInterface final : public QAccessibleInterface,
                            public QAccessibleTableCellInterface,
                            public QAccessibleActionInterface {
public:
    CellInterface(ListSurface& surface, const view::CellView& cell);

    /// Whether it is still of the row that this cell is in.
    bool IsOf(const view::CellView& cell) const { return m_isThere && cell.data == m_data; }
    view::CellPlace At() const { return m_at; }
    void MoveTo(view::CellPlace place) { m_at = place; }
    /// Its row is gone.
    void End() { m_isThere = false; }

    bool isValid() const override { return Read().has_value(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return table(); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    bool isSelected() const override;
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override;
    int columnIndex() const override;
    int rowIndex() const override;
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override;

    QStringList actionNames() const override;
    /// From the event loop: whoever asks waits for the answer, and a dialog may open.
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    std::optional<view::CellView> Read() const;
    bool IsTitle() const { return m_at.row == view::TitleRow; }

    ListSurface& m_surface; // deletes this first
    view::CellPlace m_at;
    const LPARAM m_data;
    bool m_isThere = true;
};

} // namespace korvel::internal

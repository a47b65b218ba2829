#include "korvel/qt/list_interface.h"

#include "korvel/qt/cell_interface.h"
#include "korvel/qt/cell_table.h"
#include "korvel/qt/cell_texts.h"
#include "korvel/qt/convert.h"
#include "korvel/qt/list_surface.h"
#include "korvel/qt/peer.h"
#include "korvel/qt/peer_table.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

#include <algorithm>
#include <limits>

namespace korvel::internal {

namespace {

int Clamped(std::int64_t number) {
    return static_cast<int>(std::min<std::int64_t>(number, std::numeric_limits<int>::max()));
}

int Send(const AskedList& list, UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    list.Ask([&] { result = SendMessageA(list.Window(), message, wParam, lParam); });
    return static_cast<int>(result);
}

} // namespace

ListInterface::ListInterface(ListSurface& surface) : QAccessibleWidget(&surface, QAccessible::Tree) {}

QAccessibleInterface* ListInterface::Make(const QString&, QObject* object) {
    auto* surface = dynamic_cast<ListSurface*>(object);
    return surface ? new ListInterface(*surface) : nullptr;
}

ListSurface& ListInterface::Surface() const {
    return *static_cast<ListSurface*>(object());
}

QList<QWidget*> ListInterface::Controls() const {
    QList<QWidget*> controls;
    const HWND header = Surface().List().header;
    for (const HWND child : view::Children(Surface().Window()))
        if (const Peer* peer = Surface().Peers().Find(child); peer && child != header && view::IsShown(child))
            controls.push_back(&peer->Outer());
    return controls;
}

int ListInterface::childCount() const {
    const view::ListView list = Surface().List();
    const std::int64_t cells = (std::int64_t{list.rowCount} + 1) * list.columnCount;
    return static_cast<int>(Controls().size() + std::min<std::int64_t>(cells, MostChildren));
}

QAccessibleInterface* ListInterface::child(int index) const {
    const QList<QWidget*> controls = Controls();
    if (index >= 0 && index < controls.size())
        return QAccessible::queryAccessibleInterface(controls[index]);
    const int columns = Surface().List().columnCount;
    const std::int64_t cell = std::int64_t{index} - controls.size();
    if (index < 0 || columns == 0)
        return nullptr;
    const auto row = static_cast<int>(cell / columns) + view::TitleRow;
    return Surface().Cells().At({row, static_cast<int>(cell % columns)});
}

int ListInterface::indexOfChild(const QAccessibleInterface* child) const {
    const QList<QWidget*> controls = Controls();
    const auto* cell = dynamic_cast<const CellInterface*>(child);
    if (!cell)
        return child ? static_cast<int>(controls.indexOf(qobject_cast<QWidget*>(child->object()))) : -1;
    if (!cell->isValid())
        return -1;
    const auto [row, column] = cell->At();
    const int columns = Surface().List().columnCount;
    return Clamped(controls.size() + (std::int64_t{row} - view::TitleRow) * columns + column);
}

QAccessibleInterface* ListInterface::childAt(int x, int y) const {
    const QPoint point = Surface().mapFromGlobal(QPoint(x, y));
    for (QWidget* control : Controls())
        if (control->geometry().contains(point))
            return QAccessible::queryAccessibleInterface(control);
    std::optional<view::CellView> cell;
    const HWND list = Surface().Window();
    Surface().Ask([&] { cell = view::CellAt(list, FromQPoint(point)); });
    return cell ? Surface().Cells().At(cell->at) : nullptr;
}

QAccessibleInterface* ListInterface::focusChild() const {
    if (GetFocus() != Surface().Window())
        return QAccessibleWidget::focusChild();
    const view::CellPlace current = Surface().List().current;
    return cellAt(current.row, current.column);
}

QAccessible::State ListInterface::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    const view::ListView list = Surface().List();
    state.focusable = !list.keysFrom;
    state.multiSelectable = list.selectsMany;
    return state;
}

void* ListInterface::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface* ListInterface::cellAt(int row, int column) const {
    return row < 0 ? nullptr : Surface().Cells().At({row, column});
}

int ListInterface::selectedCellCount() const {
    return Clamped(std::int64_t{selectedRowCount()} * columnCount());
}

QList<QAccessibleInterface*> ListInterface::selectedCells() const {
    QList<QAccessibleInterface*> cells;
    const int columns = columnCount();
    for (const int row : selectedRows())
        for (int column = 0; column < columns && cells.size() < MostChildren; ++column)
            if (QAccessibleInterface* cell = cellAt(row, column))
                cells.push_back(cell);
    return cells;
}

QString ListInterface::columnDescription(int column) const {
    return TextAt(Surface(), {view::TitleRow, column});
}

QString ListInterface::rowDescription(int row) const {
    return row < 0 ? QString() : TextAt(Surface(), {row, 0});
}

int ListInterface::selectedRowCount() const {
    return Send(Surface(), LVM_GETSELECTEDCOUNT, 0, 0);
}

int ListInterface::columnCount() const {
    return Surface().List().columnCount;
}

int ListInterface::rowCount() const {
    return Surface().List().rowCount;
}

QList<int> ListInterface::selectedRows() const {
    QList<int> rows;
    const auto next = [this](int row) {
        return Send(Surface(), LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED);
    };
    const int count = std::min(selectedRowCount(), MostChildren);
    for (int row = next(view::NoRow); row >= 0 && rows.size() < count; row = next(row))
        rows.push_back(row);
    return rows;
}

bool ListInterface::isRowSelected(int row) const {
    const auto cell = row < 0 ? std::nullopt : Surface().Cell({row, 0});
    return cell && cell->selected;
}

bool ListInterface::selectRow(int row) {
    if (row < 0)
        return false;
    const HWND list = Surface().Window();
    const int column = Surface().List().current.column;
    Surface().Ask([&] { input::CellChosen(list, {row, column}); });
    return isRowSelected(row);
}

} // namespace korvel::internal

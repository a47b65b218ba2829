#include "korvel/qt/cell_interface.h"

#include "korvel/qt/cell_actions.h"
#include "korvel/qt/cell_table.h"
#include "korvel/qt/cell_texts.h"
#include "korvel/qt/convert.h"
#include "korvel/qt/list_surface.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

namespace korvel::internal {

namespace {

QList<QAccessibleInterface*> ListOf(QAccessibleInterface* cell) {
    return cell ? QList{cell} : QList<QAccessibleInterface*>();
}

bool IsInSight(HWND list, HWND header, const view::CellView& cell) {
    CRect area = GetClientRect(list);
    if (cell.at.row != view::TitleRow && view::IsShown(header))
        area.top = view::Rectangle(header).bottom;
    return !cell.bounds.Intersected(area).IsRectEmpty();
}

// Of a title nothing more: nothing can be done with it.
QAccessible::State StateOf(const AskedList& asked, const view::CellView& cell) {
    const HWND list = asked.Window();
    const view::ListView view = asked.List();
    QAccessible::State state;
    state.disabled = !IsWindowEnabled(list);
    state.invisible = !IsWindowVisible(list);
    state.offscreen = !IsInSight(list, view.header, cell);
    if (cell.at.row == view::TitleRow)
        return state;
    const HWND keys = view.keysFrom ? view.keysFrom : list;
    state.focusable = state.selectable = true;
    state.focused = view.current == cell.at && GetFocus() == keys;
    state.selected = cell.selected;
    state.multiSelectable = view.selectsMany;
    state.readOnly = cell.readOnly;
    state.editable = !cell.readOnly;
    state.invalid = cell.invalid;
    state.checkable = cell.checked.has_value();
    state.checked = cell.checked.value_or(false);
    state.expandable = cell.expanded.has_value();
    state.expanded = cell.expanded.value_or(false);
    state.collapsed = cell.expanded == false;
    return state;
}

} // namespace

CellInterface::CellInterface(ListSurface& surface, const view::CellView& cell)
    : m_surface(surface), m_at(cell.at), m_data(cell.data) {}

std::optional<view::CellView> CellInterface::Read() const {
    m_surface.Cells().Follow();
    if (!m_isThere)
        return std::nullopt;
    auto cell = m_surface.Cell(m_at);
    return cell && cell->data == m_data ? std::move(cell) : std::nullopt;
}

QString CellInterface::text(QAccessible::Text kind) const {
    const auto cell = Read();
    if (!cell)
        return {};
    switch (kind) {
    case QAccessible::Name:
    case QAccessible::Value:
        return ToQString(cell->text);
    case QAccessible::Description:
        return DescriptionOf(m_surface, *cell);
    default:
        return {};
    }
}

QRect CellInterface::rect() const {
    const QPoint origin = m_surface.mapToGlobal(QPoint());
    const auto cell = Read();
    return cell ? ToQRect(cell->bounds).translated(origin) : QRect();
}

QAccessible::Role CellInterface::role() const {
    return IsTitle() ? QAccessible::ColumnHeader : QAccessible::TreeItem;
}

QAccessible::State CellInterface::state() const {
    if (const auto cell = Read())
        return StateOf(m_surface, *cell);
    QAccessible::State gone;
    gone.invisible = gone.disabled = true;
    return gone;
}

void* CellInterface::interface_cast(QAccessible::InterfaceType type) {
    switch (type) {
    case QAccessible::TableCellInterface:
        return static_cast<QAccessibleTableCellInterface*>(this);
    case QAccessible::ActionInterface:
        return static_cast<QAccessibleActionInterface*>(this);
    default:
        return nullptr;
    }
}

bool CellInterface::isSelected() const {
    const auto cell = Read();
    return cell && cell->selected;
}

QList<QAccessibleInterface*> CellInterface::columnHeaderCells() const {
    return IsTitle() ? ListOf(nullptr) : ListOf(m_surface.Cells().At({view::TitleRow, m_at.column}));
}

// The name of a row stands in its first column.
QList<QAccessibleInterface*> CellInterface::rowHeaderCells() const {
    const int row = rowIndex();
    return row == view::NoRow || m_at.column == 0 ? ListOf(nullptr) : ListOf(m_surface.Cells().At({row, 0}));
}

int CellInterface::columnIndex() const {
    return m_at.column;
}

int CellInterface::rowIndex() const {
    m_surface.Cells().Follow();
    return m_isThere ? m_at.row : view::NoRow;
}

QAccessibleInterface* CellInterface::table() const {
    return QAccessible::queryAccessibleInterface(&m_surface);
}

QStringList CellInterface::actionNames() const {
    const auto cell = Read();
    return cell ? ActionsOf(*cell) : QStringList();
}

void CellInterface::doAction(const QString& name) {
    const auto act = [list = m_surface.Window(), id = QAccessible::uniqueId(this), name] {
        const auto* self = dynamic_cast<CellInterface*>(QAccessible::accessibleInterface(id));
        const auto cell = self ? self->Read() : std::nullopt;
        if (cell && ActionsOf(*cell).contains(name))
            Act(list, *cell, name);
    };
    QMetaObject::invokeMethod(&m_surface, act, Qt::QueuedConnection);
}

} // namespace korvel::internal

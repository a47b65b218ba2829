#include "korvel/qt/announcer.h"

#include "korvel/qt/cell_table.h"
#include "korvel/qt/list_surface.h"
#include "korvel/qt/window_surface.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

#include <QApplication>
#include <utility>

namespace korvel::internal {

namespace {

Announcer::Listener& TheListener() {
    static Announcer::Listener listener;
    return listener;
}

void Send(QAccessibleEvent&& event) {
    if (const auto& listener = TheListener())
        listener(event);
    else
        QAccessible::updateAccessibility(&event);
}

QAccessibleInterface* CurrentCell(ListSurface& list) {
    const view::CellPlace current = list.List().current;
    return current.row == view::NoRow ? nullptr : list.Cells().At(current);
}

QAccessibleInterface* FocusedField() {
    auto* surface = dynamic_cast<WindowSurface*>(QApplication::focusWidget());
    return surface && surface->Value() ? QAccessible::queryAccessibleInterface(surface) : nullptr;
}

// What of two states differs.
QAccessible::State Changes(const QAccessible::State& before, const QAccessible::State& now) {
    QAccessible::State changes;
    changes.checked = before.checked != now.checked;
    changes.expanded = before.expanded != now.expanded;
    changes.collapsed = before.collapsed != now.collapsed;
    changes.invalid = before.invalid != now.invalid;
    changes.readOnly = before.readOnly != now.readOnly;
    return changes;
}

} // namespace

void Announcer::SetListener(Listener listener) {
    TheListener() = std::move(listener);
}

void Announcer::Add(ListSurface& list) {
    std::erase(m_lists, nullptr);
    m_lists.emplace_back(&list);
}

void Announcer::Note() {
    if (m_isPending || !(QAccessible::isActive() || TheListener()))
        return;
    m_isPending = true;
    QMetaObject::invokeMethod(
        &m_context, [this] { Tell(); }, Qt::QueuedConnection);
}

void Announcer::Tell() {
    m_isPending = false;
    const Told before = m_told;
    m_told = ReadPlaceOfUser();
    if (m_told.cell != 0)
        Announce(before, m_told);
}

// The list with the focus, unless one has dropped that takes its keys, which may be those of another window.
ListSurface* Announcer::ListOfUser() {
    std::erase(m_lists, nullptr);
    const HWND focus = GetFocus();
    if (!focus || !QApplication::activeWindow())
        return nullptr;
    QPointer<ListSurface> focused;
    for (const QPointer<ListSurface>& list :
         std::vector(m_lists)) // a host that is asked may end and make lists
        if (list && view::IsShown(list->Window()) && list->List().keysFrom == focus)
            return list;
        else if (list && list->Window() == focus && list->hasFocus())
            focused = list;
    return focused;
}

Announcer::Told Announcer::ReadPlaceOfUser() {
    ListSurface* list = ListOfUser();
    QAccessibleInterface* place = list ? CurrentCell(*list) : FocusedField();
    if (!place)
        return {};
    return {QAccessible::uniqueId(place), !list, place->text(QAccessible::Name),
            place->text(QAccessible::Description), place->state()};
}

// The desktop hears of a state alone, but of no expanded one: the description stands for it.
void Announcer::Announce(const Told& before, const Told& now) {
    const auto send = [&](QAccessible::Event event) {
        if (QAccessibleInterface* cell = QAccessible::accessibleInterface(now.cell))
            Send(QAccessibleEvent(cell, event));
    };
    const bool isOther = before.cell != now.cell;
    if (isOther && now.isField)
        return;
    if (isOther)
        send(QAccessible::Focus);
    if (isOther ? now.state.selected : before.state.selected != now.state.selected)
        send(QAccessible::Selection);
    if (isOther)
        return;
    const QAccessible::State changes = Changes(before.state, now.state);
    if (before.name != now.name)
        send(QAccessible::NameChanged);
    if (before.description != now.description || changes.expanded)
        send(QAccessible::DescriptionChanged);
    if (QAccessibleInterface* cell = QAccessible::accessibleInterface(now.cell);
        cell && !(changes == QAccessible::State()))
        Send(QAccessibleStateChangeEvent(cell, changes));
}

} // namespace korvel::internal

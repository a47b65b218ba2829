#include "korvel/qt/cell_actions.h"

#include "korvel/window/core/input.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

#include <QAccessible>

namespace korvel::internal {

namespace {

using Actions = QAccessibleActionInterface;

// Qt has no names for these two.
const QString Expand = QStringLiteral("Expand");
const QString Collapse = QStringLiteral("Collapse");

struct ActionKey {
    UINT key = 0; // 0: the cell is only chosen
    CString characters{};
};

ActionKey KeyOf(const view::ListView& list, const QString& action) {
    if (action == Actions::pressAction())
        return {VK_RETURN, "\r"};
    if (action == Actions::toggleAction())
        return {VK_SPACE, " "};
    if (action == Expand)
        return {list.expandKey};
    return {action == Collapse ? list.collapseKey : 0};
}

bool IsCurrent(HWND list, LPARAM data) {
    const auto current = view::Cell(list, view::List(list).current);
    return current && current->at.row != view::TitleRow && current->data == data;
}

} // namespace

QStringList ActionsOf(const view::CellView& cell) {
    if (cell.at.row == view::TitleRow)
        return {};
    QStringList actions{Actions::pressAction(), Actions::setFocusAction()};
    if (cell.checked)
        actions.push_back(Actions::toggleAction());
    if (cell.expanded)
        actions.push_back(*cell.expanded ? Collapse : Expand);
    return actions;
}

void Act(HWND list, const view::CellView& cell, const QString& action) {
    input::CellChosen(list, cell.at);
    const view::ListView view = view::List(list);
    const ActionKey key = KeyOf(view, action);
    if (key.key == 0 || !IsCurrent(list, cell.data))
        return; // a text that is refused elsewhere keeps the user there
    input::Key(view.keysFrom ? view.keysFrom : list, WM_KEYDOWN, key.key, key.characters);
    input::Key(GetFocus(), WM_KEYUP, key.key, {});
}

} // namespace korvel::internal

#pragma once

#include "korvel/window/base/list_view.h"

#include <QStringList>

namespace korvel::internal {

/// What can be done with a cell without seeing it, each as the user's own key does it.
QStringList ActionsOf(const view::CellView& cell);

/// Does one of them: chooses the cell, and presses the key of the action when it is chosen. Whoever hears of it
/// may do anything.
void Act(HWND list, const view::CellView& cell, const QString& action);

} // namespace korvel::internal

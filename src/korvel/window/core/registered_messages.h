#pragma once

#include "korvel/window/base/types.h"

/// The messages that the library and its hosts exchange under registered numbers. Each has its value when
/// the library is loaded, by RegisterWindowMessageA with its name here.
namespace korvel {

extern KORVEL_API const UINT WM_DLG_STATE;
extern KORVEL_API const UINT WM_DLG_STATE_REGISTRY;
extern KORVEL_API const UINT WM_SHOW_SETTINGS;
extern KORVEL_API const UINT WM_DTM_COLOR_DIRTY;
extern KORVEL_API const UINT WM_OPENGLSINK_NOTIFICATION;
/// The grid announces an undoable step to its parent: wParam 1 opens it with the title in lParam
/// (const char*, lent for the message), wParam 0 closes it.
extern KORVEL_API const UINT WM_HISTORY;
/// The grid has the parent drop what it recorded in the last step (wParam 1); sent after that was closed.
extern KORVEL_API const UINT WM_HISTORY_ROLLBACK;
/// Asks the parent for a row's image.
extern KORVEL_API const UINT WM_GET_IMAGEINDEX;

} // namespace korvel

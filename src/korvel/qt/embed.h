#pragma once

#include "korvel/window/base/types.h"

class QWidget;

namespace korvel::qt {

/// Gives a host a widget for its own layouts that shows a top-level window. The window becomes a child of a
/// site window, which lies where the widget is and stands for the host's top-level window: it gets WM_MOVE
/// when that one moves, WM_NCLBUTTONDOWN, WM_NCRBUTTONDOWN or WM_NCMBUTTONDOWN for a press anywhere else in
/// it, and WM_ACTIVATE.
///
///     CWnd frame;
///     frame.CreateEx(0, "KorvelFrame", "", 0, {0, 0, 400, 300}, nullptr, 0);
///     CEditableGrid grid(nullptr, nullptr);
///     grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 0, 400, 300}, &frame, 105);
///     mainWindow.setCentralWidget(qt::Embed(frame.m_hWnd)); // frame fills it and gets WM_SIZE
///
/// The widget belongs to the host. Its destructor first destroys the window, so that everything in it ends as
/// it does with DestroyWindow; a window that is destroyed before leaves an empty widget. The window's
/// rectangle is the size hint. What handlers throw while the window moves goes to the exception handler.
/// Parent nothing to the widgets inside. To be called on the thread of the application.
///
/// \throws Error when no QtDisplay is in force, or `window` is no top-level window
KORVEL_API QWidget* Embed(HWND window);

} // namespace korvel::qt

#pragma once

#include "korvel/window/base/types.h"

class QWidget;

namespace korvel::qt {

/// Gives a host a widget for its own layouts that shows a top-level window, which becomes a child of a
/// site window. The site stands where the widget is and hears for the host's top-level window: WM_MOVE
/// when it moves, WM_NCLBUTTONDOWN and its sisters for presses anywhere else in it, WM_ACTIVATE.
///
///     CWnd frame;
///     frame.CreateEx(0, "KorvelFrame", "", 0, {0, 0, 400, 300}, nullptr, 0);
///     CEditableGrid grid(nullptr, nullptr);
///     grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 0, 400, 300}, &frame, 105);
///     mainWindow.setCentralWidget(qt::Embed(frame.m_hWnd)); // frame fills it and hears WM_SIZE
///
/// The widget belongs to the host. When it dies, it destroys the window first, so that everything in it
/// ends as it does with DestroyWindow; a window that ends before leaves an empty widget. The window's
/// rectangle is the size hint. Parent nothing to the widgets inside.
///
/// Throws Error when no QtDisplay is in force, or `window` is no top-level window.
KORVEL_API QWidget* Embed(HWND window);

} // namespace korvel::qt

#pragma once

#include "korvel/window/base/types.h"

#include <QFrame>

namespace korvel::internal {

/// A widget of a window that paints itself. Screen readers and test tools find the window by it: the class is
/// what SurfaceInterface::Make looks for.
class WindowSurface final : public QFrame {
public:
    WindowSurface(QWidget* parent, Qt::WindowFlags flags, HWND window)
        : QFrame(parent, flags), m_window(window) {}

    /// Null for what only lies around another surface, as its border.
    HWND Window() const { return m_window; }

private:
    const HWND m_window;
};

} // namespace korvel::internal

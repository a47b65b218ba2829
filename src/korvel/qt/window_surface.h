#pragma once

#include "korvel/qt/asker.h"
#include "korvel/window/display/window_view.h"

#include <QFrame>
#include <optional>
#include <utility>

namespace korvel::internal {

/// A widget of a window that paints itself. Screen readers and test tools find the window by it: the class is
/// what SurfaceInterface::Make looks for.
class WindowSurface final : public QFrame {
public:
    WindowSurface(QWidget* parent, Qt::WindowFlags flags, HWND window, Asker ask)
        : QFrame(parent, flags), m_window(window), m_ask(std::move(ask)) {}

    /// Null for what only lies around another surface, as its border.
    HWND Window() const { return m_window; }
    void Ask(const std::function<void()>& question) const { m_ask(question); }
    /// What view::ValueOf says; nothing once the window is gone.
    std::optional<view::ValueView> Value() const {
        std::optional<view::ValueView> value;
        Ask([&] { value = view::ValueOf(m_window); });
        return value;
    }

private:
    const HWND m_window;
    const Asker m_ask;
};

} // namespace korvel::internal

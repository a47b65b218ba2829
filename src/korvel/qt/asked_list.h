#pragma once

#include "korvel/qt/asker.h"
#include "korvel/window/base/list_view.h"

#include <optional>
#include <utility>

namespace korvel::internal {

/// A list that is asked for a screen reader.
class AskedList {
public:
    AskedList(HWND window, Asker ask) : m_window(window), m_ask(std::move(ask)) {}

    HWND Window() const { return m_window; }
    void Ask(const std::function<void()>& question) const;
    /// Whether a question has not been answered yet: the host may run an event loop inside it.
    bool IsAsked() const { return m_openQuestions > 0; }
    /// What view::List and view::Cell say; nothing once the list is gone.
    view::ListView List() const;
    std::optional<view::CellView> Cell(view::CellPlace place) const;

private:
    const HWND m_window;
    const Asker m_ask;
    mutable int m_openQuestions = 0;
};

} // namespace korvel::internal

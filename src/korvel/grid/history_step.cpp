#include "korvel/grid/history_step.h"

#include "korvel/window/core/registered_messages.h"
#include "korvel/window/core/window.h"

#include <utility>

namespace korvel::internal {

namespace {

// wParam of WM_HISTORY
constexpr WPARAM StepCloses = 0;
constexpr WPARAM StepOpens = 1;

} // namespace

void TellStepOpened(HWND parent, const char* title) {
    SendMessageA(parent, WM_HISTORY, StepOpens, reinterpret_cast<LPARAM>(title));
}

void TellStepClosed(HWND parent) {
    SendMessageA(parent, WM_HISTORY, StepCloses, 0);
}

void TellStepRolledBack(HWND parent) {
    SendMessageA(parent, WM_HISTORY_ROLLBACK, 1, 0);
}

void HistoryStep::Open(const char* title) {
    m_wasOpened = m_isOpen = true; // also for a parent that hears of it and throws
    TellStepOpened(m_parent, title);
}

void HistoryStep::Close() {
    if (std::exchange(m_isOpen, false))
        TellStepClosed(m_parent);
}

void HistoryStep::RollBack() const {
    if (m_wasOpened)
        TellStepRolledBack(m_parent);
}

} // namespace korvel::internal

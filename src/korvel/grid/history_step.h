#pragma once

#include "korvel/window/base/types.h"

namespace korvel::internal {

// What the parent of a grid is told of undoable steps. A null parent, or one that is gone, hears nothing.
void TellStepOpened(HWND parent, const char* title);
void TellStepClosed(HWND parent);
void TellStepRolledBack(HWND parent);

/// One undoable step, of which a window is told. Its owner closes it whatever happens; it is closed once, and
/// rolled back only after that.
/// It stays with its window, also when the grid that wrote in it is destroyed meanwhile.
class HistoryStep {
public:
    /// Null hears nothing.
    explicit HistoryStep(HWND parent) : m_parent(parent) {}

    void Open(const char* title);
    /// Nothing for a step that was not opened, or is closed already.
    void Close();
    /// Has the parent drop what it recorded since the step was opened. To be called after Close.
    void RollBack() const;

private:
    HWND m_parent;
    bool m_wasOpened = false;
    bool m_isOpen = false;
};

} // namespace korvel::internal

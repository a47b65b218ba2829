#pragma once

#include "korvel/window/controls/controls.h"

namespace korvel {

class CSuperGridCtrl;

/// The text field over a cell of a bare tree grid. Return and the loss of the focus hand the text to
/// CSuperGridCtrl::OnCellTextChanged; Escape drops it.
class CListEditCtrl : public CEdit {
public:
    explicit CListEditCtrl(CSuperGridCtrl& grid) : m_grid(grid) {}

    /// Opens over a cell, with its text selected; ends an edit that is open. False when there is no such
    /// cell.
    bool Start(int row, int column);

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    enum class Ending { Take, Drop };
    void End(Ending ending);

    CSuperGridCtrl& m_grid;
    const void* m_node = nullptr; // whose cell it is; only compared
    int m_row = -1;
    int m_column = 0;
    bool m_isOpen = false;
};

} // namespace korvel

#include "korvel/grid/list_edit_ctrl.h"

#include "korvel/grid/super_grid_ctrl.h"

namespace korvel {

bool CListEditCtrl::Start(int row, int column) {
    End(Ending::Take);
    CRect cell;
    if (!m_grid.GetSubItemRect(row, column, LVIR_LABEL, &cell))
        return false;
    constexpr int EditId = 105;
    if (!m_hWnd && !Create(WS_CHILD | WS_BORDER | ES_AUTOHSCROLL, cell, &m_grid, EditId))
        return false;
    m_node = m_grid.NodeAtRow(row);
    m_row = row;
    m_column = column;
    m_isOpen = true;
    MoveWindow(cell, false);
    SetWindowTextA(m_grid.GetItemText(row, column));
    SetSel(0, -1);
    EnableWindow(true);
    ShowWindow(SW_SHOW);
    SetFocus();
    return true;
}

void CListEditCtrl::End(Ending ending) {
    if (!m_isOpen)
        return;
    m_isOpen = false; // hiding it takes the focus away, which ends here again
    const CString text = GetWindowTextA();
    if (GetFocus() == m_hWnd)
        m_grid.SetFocus();
    ShowWindow(SW_HIDE);
    EnableWindow(false);
    auto* node = m_grid.NodeAtRow(m_row);
    if (ending == Ending::Drop || !node || node != m_node)
        return;
    NMLVDISPINFO record;
    record.iItem = m_row;
    record.iSubItem = m_column;
    record.pszText = text.c_str();
    record.lParam = reinterpret_cast<LPARAM>(node);
    m_grid.OnCellTextChanged(node, &record);
}

LRESULT CListEditCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_KEYDOWN && (wParam == VK_RETURN || wParam == VK_ESCAPE)) {
        End(wParam == VK_RETURN ? Ending::Take : Ending::Drop);
        return 0;
    }
    if (message == WM_GETDLGCODE)
        return CEdit::WindowProc(message, wParam, lParam) | DLGC_WANTALLKEYS;
    const LRESULT result = CEdit::WindowProc(message, wParam, lParam);
    if (message == WM_KILLFOCUS)
        End(Ending::Take);
    return result;
}

} // namespace korvel

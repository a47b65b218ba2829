#include "korvel/grid/list_edit_ctrl.h"

#include "korvel/grid/super_grid_ctrl.h"

#include <algorithm>
#include <utility>

namespace korvel {

CListEditCtrl::~CListEditCtrl() {
    if (m_isOpen)
        m_grid.SetCellsMovedHook(nullptr);
}

bool CListEditCtrl::Start(int row, int column) {
    End(Ending::Take);
    CRect cell;
    if (!m_grid.NodeAtRow(row) || !m_grid.GetSubItemRect(row, column, LVIR_LABEL, &cell))
        return false;
    constexpr int EditId = 105;
    if (!m_hWnd && !Create(WS_CHILD | WS_BORDER | ES_AUTOHSCROLL, cell, &m_grid, EditId))
        return false;
    m_node = m_grid.NodeAtRow(row);
    m_column = column;
    m_isOpen = true;
    m_grid.SetCellsMovedHook([this] { FollowCell(); });
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
    m_grid.SetCellsMovedHook(nullptr);
    const CString text = GetWindowTextA();
    if (GetFocus() == m_hWnd)
        m_grid.SetFocus();
    ShowWindow(SW_HIDE);
    EnableWindow(false);
    grid::CTreeItem* node = std::exchange(m_node, nullptr); // null: a handler has removed it
    if (ending == Ending::Drop || !node)
        return;
    NMLVDISPINFO record;
    record.iItem = m_grid.RowOfNode(node);
    record.iSubItem = m_column;
    record.pszText = text.c_str();
    record.lParam = reinterpret_cast<LPARAM>(node);
    m_grid.OnCellTextChanged(node, &record);
}

void CListEditCtrl::FollowCell() {
    const int row = m_grid.RowOfNode(m_node);
    const int top = m_grid.GetTopIndex();
    if (row >= 0 && m_grid.NodeAtRow(row) != m_node)
        return; // the rows are being changed
    CRect cell;
    if (row < top || row >= top + std::max(1, m_grid.GetCountPerPage()) ||
        !m_grid.GetSubItemRect(row, m_column, LVIR_LABEL, &cell))
        End(Ending::Take);
    else
        MoveWindow(cell);
}

void CListEditCtrl::OnUnlinked(const grid::CTreeItem& root) {
    if (m_node && CSuperGridCtrl::IsNodeInSubtree(&root, m_node))
        Drop();
}

void CListEditCtrl::Drop() {
    End(Ending::Drop);
    m_node = nullptr;
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

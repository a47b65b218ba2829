#include "korvel/grid/list_edit_ctrl.h"

#include "korvel/grid/seen_cell.h"
#include "korvel/grid/tree_rows.h"
#include "korvel/grid/tree_walk.h"
#include "korvel/platform/first_failure.h"

#include <utility>

namespace korvel::internal {

bool CListEditCtrl::Start(int row, int column) {
    End();
    CRect cell;
    if (!m_tree.NodeAt(row) || !m_list.GetSubItemRect(row, column, LVIR_LABEL, &cell))
        return false;
    constexpr int EditId = 105;
    if (!m_hWnd && !Create(WS_CHILD | WS_BORDER | ES_AUTOHSCROLL, cell, &m_list, EditId))
        return false;
    m_node = m_tree.NodeAt(row);
    m_column = column;
    MoveWindow(cell, false);
    SetWindowTextA(m_list.GetItemText(row, column));
    SetSel(0, -1);
    if (!m_node)
        return false; // whoever heard of the text has removed it
    m_isOpen = true;
    m_list.SetCellsMovedHook([this] { FollowCell(); });
    EnableWindow(true);
    ShowWindow(SW_SHOW);
    SetFocus();
    return true;
}

void CListEditCtrl::End() {
    if (!m_isOpen)
        return;
    const CString text = GetWindowTextA();
    m_isOpen = false; // hiding it takes the focus away, which ends here again
    FirstFailure failure;
    failure.Try([&] { m_list.SetCellsMovedHook(nullptr); });
    failure.Try([&] {
        if (GetFocus() == m_hWnd)
            m_list.SetFocus();
    });
    failure.Try([&] { ShowWindow(SW_HIDE); });
    failure.Try([&] { EnableWindow(false); });
    if (grid::CTreeItem* node = std::exchange(m_node, nullptr))
        failure.Try([&] { HandOver(*node, text); });
    failure.Rethrow();
}

void CListEditCtrl::HandOver(grid::CTreeItem& node, const CString& text) {
    NMLVDISPINFO record;
    record.iItem = m_tree.RowOf(&node);
    record.iSubItem = m_column;
    record.pszText = text.c_str();
    record.lParam = reinterpret_cast<LPARAM>(&node);
    m_list.OnCellTextChanged(&node, &record);
}

void CListEditCtrl::FollowCell() {
    const int row = m_tree.RowOf(m_node);
    if (row >= 0 && m_tree.NodeAt(row) != m_node)
        return; // the rows are being changed
    if (const auto cell = SeenCell(m_list, row, m_column))
        MoveWindow(*cell);
    else
        End();
}

void CListEditCtrl::OnUnlinked(const grid::CTreeItem& root) {
    if (IsWithin(root, m_node))
        Drop();
}

void CListEditCtrl::Drop() {
    m_node = nullptr;
    End();
}

std::optional<view::CellPlace> CListEditCtrl::EditedCell() const {
    const int row = m_isOpen && m_node ? m_tree.RowOf(m_node) : -1;
    return row >= 0 ? std::optional(view::CellPlace{row, m_column}) : std::nullopt;
}

LRESULT CListEditCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_KEYDOWN && wParam == VK_ESCAPE) {
        Drop();
        return 0;
    }
    if (message == WM_KEYDOWN && wParam == VK_RETURN) {
        End();
        return 0;
    }
    if (message == WM_GETDLGCODE)
        return CEdit::WindowProc(message, wParam, lParam) | DLGC_WANTALLKEYS;
    if (message != WM_KILLFOCUS)
        return CEdit::WindowProc(message, wParam, lParam);
    FirstFailure failure;
    failure.Try([&] { CEdit::WindowProc(message, wParam, lParam); });
    failure.Try([&] { End(); });
    failure.Rethrow();
    return 0;
}

} // namespace korvel::internal

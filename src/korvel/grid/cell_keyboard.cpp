#include "korvel/grid/cell_keyboard.h"

#include "korvel/grid/edit_keys.h"
#include "korvel/grid/member_reads.h"
#include "korvel/grid/seen_cell.h"
#include "korvel/window/dialog/dialog_focus.h"
#include "korvel/window/dialog/dialog_state.h"
#include "korvel/window/list/list_mouse.h"

#include <algorithm>

namespace korvel::internal {

bool LeaveGridByTab(HWND grid) {
    const HWND focus = GetFocus();
    const HWND parent = GetParent(grid);
    const HWND dialog = OutermostDialog(parent);
    const bool isBack = IsKeyDown(VK_SHIFT);
    PressTab(dialog ? dialog : parent, isBack);
    return GetFocus() != focus || GetNextDlgTabItem(parent, grid, isBack);
}

bool CellKeyboard::Press(const MSG& message) {
    const grid::CTreeItem* node = m_grid.GetSelectedNode();
    if (!node || !node->info)
        return false;
    const bool isAtCell = m_members.RowsAreObjects() && m_grid.currentColumn > 0;
    const bool isGroup = node->CanExpand() && !isAtCell;
    const KeyMeaning meaning = MeaningOf(message, {isGroup, node->collapsed()});
    if (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN)
        ForgetLabelClick(m_grid.m_hWnd); // the list does not hear of a key that is used up
    switch (meaning.kind) {
    case KeyMeaning::Kind::Cell:
        return PressInCell(meaning.cell, *node);
    case KeyMeaning::Kind::Sign: {
        NMLVKEYDOWN notice;
        notice.wVKey = static_cast<decltype(notice.wVKey)>(meaning.sign);
        NotifyParent(m_grid.m_hWnd, LVN_KEYDOWN, notice.hdr);
        return true;
    }
    default:
        return false;
    }
}

// As a click at the place that stands for the key, so that derived grids decide about both alike.
bool CellKeyboard::PressInCell(CellKey key, const grid::CTreeItem& node) {
    IMemberDispatch* disp = m_members.ObjectOf(node);
    const int column = m_members.RowsAreObjects() ? std::max(m_grid.currentColumn, 1) : 1;
    const std::string name = m_members.MemberOf(node, column);
    if (!disp)
        return false;
    const EDataTyps type = ReadMemberType(*disp, name);
    const bool asksPath =
        key == CellKey::Open && type == DT_FileName && m_members.FindRow(disp, name) == &node;
    const bool canTypePath = asksPath && m_actions.CanTypePath(disp, name);
    const auto findRow = [&] {
        return m_members.FindRow(disp, name) == &node ? m_grid.RowOfNode(&node) : -1;
    };
    const int row = findRow();
    const auto place = [&] { return PointOfKey(key, type, canTypePath, CellRect(m_grid, row, column)); };
    if (row < 0 || !place())
        return false;
    m_grid.EnsureVisible(row, false);
    m_grid.currentColumn = column;
    m_grid.ShowColumn(column);
    m_grid.RedrawRow(row);
    // Painting has asked the host, and the cell may have been scrolled.
    const auto point = findRow() == row ? place() : std::nullopt;
    if (!point)
        return true;
    LVHITTESTINFO hit;
    hit.pt = *point;
    hit.flags = LVHT_ONITEMLABEL;
    hit.iItem = row;
    hit.iSubItem = column;
    m_grid.OnControlLButtonDown(0, hit.pt, hit);
    return true;
}

} // namespace korvel::internal

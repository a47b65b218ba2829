#include "korvel/grid/cell_keyboard.h"

#include "korvel/grid/edit_keys.h"
#include "korvel/grid/member_reads.h"
#include "korvel/grid/seen_cell.h"
#include "korvel/window/dialog/dialog_focus.h"
#include "korvel/window/dialog/dialog_state.h"

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
    const int row = m_members.FindRow(disp, name) == &node ? m_grid.RowOfNode(&node) : -1;
    const auto place = [&] { return PointOfKey(key, type, canTypePath, CellRect(m_grid, row, column)); };
    if (row < 0 || !place())
        return false;
    m_grid.EnsureVisible(row, false);
    m_grid.currentColumn = column;
    m_grid.ShowColumn(column);
    m_grid.RedrawRow(row);
    LVHITTESTINFO hit;
    hit.pt = *place(); // it may have been scrolled
    hit.flags = LVHT_ONITEMLABEL;
    hit.iItem = row;
    hit.iSubItem = column;
    m_grid.OnControlLButtonDown(0, hit.pt, hit);
    return true;
}

} // namespace korvel::internal

#include "korvel/editors/grid_ctrl_combo_box_input_state.h"

#include "korvel/editors/combo_choice.h"
#include "korvel/editors/combo_list.h"

#include <algorithm>
#include <utility>

namespace korvel {

IGridCtrlComboBoxInputState::IGridCtrlComboBoxInputState(CComboList& list)
    : m_pList(&list), m_nCurrent(list.GetNextItem(-1, LVNI_SELECTED)) {
    if (m_nCurrent != -1) {
        list.RedrawRow(m_nCurrent);
        list.UpdateWindow();
    }
}

IGridCtrlComboBoxInputState::~IGridCtrlComboBoxInputState() {
    Highlight(m_nCurrent, false);
}

void IGridCtrlComboBoxInputState::OnMouseWheel(UINT flags, short delta, CPoint point) {
    // A list that does not scroll must not hand the wheel to the window below it.
    if (m_pList->GetItemCount() > m_pList->GetCountPerPage())
        m_pList->CListCtrl::WindowProc(WM_MOUSEWHEEL, MAKEWPARAM(flags, static_cast<unsigned>(delta)),
                                       MAKELPARAM(point.x, point.y));
    if (m_pList) {
        m_pList->UpdateWindow();
        m_pList->RedrawWindow();
    }
}

void IGridCtrlComboBoxInputState::OnKeyDown(UINT key, UINT, UINT) {
    if (!m_pList)
        return;
    const int all = m_pList->GetItemCount();
    const int page = std::max(m_pList->GetCountPerPage(), 1);
    const std::pair<UINT, int> steps[] = {{VK_UP, -1},   {VK_DOWN, 1},      {VK_HOME, -all},
                                          {VK_END, all}, {VK_PRIOR, -page}, {VK_NEXT, page}};
    for (const auto& [stepKey, delta] : steps)
        if (stepKey == key)
            return Step(delta);
}

void IGridCtrlComboBoxInputState::SetCurrent(int row) {
    Highlight(m_nCurrent, false);
    m_nCurrent = row;
    Highlight(m_nCurrent, true);
}

void IGridCtrlComboBoxInputState::Highlight(int row, bool highlighted) {
    CComboList* list = m_pList; // a handler of the change may detach this state
    if (!list)
        return;
    if (row != -1)
        list->SetItemState(row, highlighted ? LVIS_SELECTED : 0, LVIS_SELECTED);
    list->RedrawRow(std::max(row, 0)); // without a current row, the first shows where the keyboard is
}

void IGridCtrlComboBoxInputState::RowsAdded(int first, int count) {
    if (m_nCurrent >= first)
        m_nCurrent += count;
}

void IGridCtrlComboBoxInputState::RowsRemoved(int first, int count) {
    if (m_nCurrent >= first + count)
        m_nCurrent -= count;
    else if (m_nCurrent >= first)
        m_nCurrent = -1;
}

void IGridCtrlComboBoxInputState::Detach() {
    m_pList = nullptr;
    m_nCurrent = -1;
}

ComboTreeItem* IGridCtrlComboBoxInputState::ItemAt(int row) const {
    return m_pList ? m_pList->GetTreeItem(row) : nullptr;
}

ComboTreeItem* IGridCtrlComboBoxInputState::CurrentItem() const {
    return ItemAt(m_nCurrent);
}

int IGridCtrlComboBoxInputState::HitRow(CPoint point) const {
    constexpr int InsideColumn = 4;
    return m_pList ? m_pList->HitTest({InsideColumn, point.y}) : -1; // a handler may have ended the binding
}

// An empty list is left with row 0 as the current one although there is none: kept. Nothing is found there.
void IGridCtrlComboBoxInputState::Move(int delta, ApplyMode apply) {
    Highlight(m_nCurrent, false);
    if (!m_pList)
        return;
    const int last = m_pList->GetItemCount() - 1;
    m_nCurrent = std::max(std::min(m_nCurrent + delta, last), 0);
    Highlight(m_nCurrent, true);
    if (m_pList)
        m_pList->EnsureVisible(m_nCurrent, false);
    if (apply == ApplyMode::Yes)
        Apply();
}

void IGridCtrlComboBoxInputState::Apply() {
    if (m_pList) {
        internal::ComboChoice(m_pList->GetModel()).Apply(CurrentItem());
        SendChanged();
    }
}

void IGridCtrlComboBoxInputState::SendChanged() {
    if (m_pList)
        m_pList->SendParentComboMessage(ComboListChanged);
}

void IGridCtrlComboBoxInputState::SendFinished() {
    if (m_pList)
        m_pList->SendParentComboMessage(ComboListFinished);
}

bool IGridCtrlComboBoxInputState::Hits(Region region, const ComboTreeItem& item, CPoint point) const {
    return m_pList && (m_pList->*region)(item).PtInRect(point) && m_pList;
}

void IGridCtrlComboBoxInputState::ToggleExpanded(ComboTreeItem& item) {
    if (item.IsExpanded())
        m_pList->Collapse(&item);
    else
        m_pList->Expand(&item);
}

void IGridCtrlComboBoxInputState::ExpandByKey(UINT key) {
    ComboTreeItem* item = CurrentItem();
    if (item && key == VK_LEFT)
        m_pList->Collapse(item);
    else if (item && key == VK_RIGHT)
        m_pList->Expand(item);
}

bool IGridCtrlComboBoxInputState::PressTreeButton(ComboTreeItem& item, CPoint point) {
    if (!Hits(&CComboList::GetRectTreeBox, item, point))
        return false;
    ToggleExpanded(item);
    return true;
}

// The click chooses nothing itself: what the pointer made current before is taken, wherever it is now. Kept;
// a click without a move before it takes the former row.
void CGridCtrlComboBoxInputState::OnLButtonDown(UINT, CPoint) {
    Apply();
    SendFinished();
}

void CGridCtrlComboBoxInputState::OnMouseMove(UINT, CPoint point) {
    const int row = HitRow(point);
    if (row != -1 && row != GetCurrent())
        SetCurrent(row);
}

void CGridCtrlComboBoxInputState::Step(int delta) {
    Move(delta, ApplyMode::Yes);
}

} // namespace korvel

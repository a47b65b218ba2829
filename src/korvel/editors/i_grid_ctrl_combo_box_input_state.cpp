#include "korvel/editors/i_grid_ctrl_combo_box_input_state.h"

#include "korvel/editors/combo_choice.h"
#include "korvel/editors/combo_list_codes.h"
#include "korvel/editors/combo_view.h"

#include <algorithm>
#include <utility>

namespace korvel {

using internal::ComboView;

IGridCtrlComboBoxInputState::IGridCtrlComboBoxInputState(ComboView& view)
    : m_view(&view), m_nCurrent(view.Control().GetNextItem(-1, LVNI_SELECTED)) {
    if (m_nCurrent != -1) {
        view.RedrawRow(m_nCurrent);
        view.Control().UpdateWindow();
    }
}

IGridCtrlComboBoxInputState::~IGridCtrlComboBoxInputState() {
    Highlight(m_nCurrent, false);
}

// A list that does not scroll must not hand the wheel to the window below it.
void IGridCtrlComboBoxInputState::OnMouseWheel(UINT flags, short delta, CPoint point) {
    CListCtrl& control = m_view->Control();
    if (control.GetItemCount() > control.GetCountPerPage())
        m_view->PassToList(WM_MOUSEWHEEL, MAKEWPARAM(flags, static_cast<unsigned>(delta)),
                           MAKELPARAM(point.x, point.y));
    if (m_view) {
        control.UpdateWindow();
        control.RedrawWindow();
    }
}

// The row that is current until another one is: handlers may add and remove rows meanwhile.
struct IGridCtrlComboBoxInputState::FormerRow {
    explicit FormerRow(IGridCtrlComboBoxInputState& owner)
        : state(owner), outer(owner.m_former), row(owner.m_nCurrent) {
        state.m_former = this;
    }
    ~FormerRow() { state.m_former = outer; }
    FormerRow(const FormerRow&) = delete;
    FormerRow& operator=(const FormerRow&) = delete;

    IGridCtrlComboBoxInputState& state;
    FormerRow* const outer;
    int row;
};

void IGridCtrlComboBoxInputState::OnKeyDown(UINT key, UINT, UINT) {
    if (!m_view)
        return;
    const int all = m_view->Control().GetItemCount();
    const int page = std::max(m_view->Control().GetCountPerPage(), 1);
    const std::pair<UINT, int> steps[] = {{VK_UP, -1},   {VK_DOWN, 1},      {VK_HOME, -all},
                                          {VK_END, all}, {VK_PRIOR, -page}, {VK_NEXT, page}};
    for (const auto& [stepKey, delta] : steps)
        if (stepKey == key)
            return Step(delta);
}

bool IGridCtrlComboBoxInputState::SetCurrent(int row) {
    const FormerRow former(*this);
    m_nCurrent = row;
    Highlight(row, true);
    const bool isTaken = !CurrentItem() || m_view->Control().GetItemState(m_nCurrent, LVIS_SELECTED) != 0;
    if (!isTaken)
        m_nCurrent = former.row;
    if (former.row != m_nCurrent || !isTaken)
        Highlight(former.row, !isTaken);
    return isTaken;
}

void IGridCtrlComboBoxInputState::Highlight(int row, bool highlighted) {
    ComboView* view = m_view; // a handler of the change may detach this state
    if (!view)
        return;
    if (row != -1)
        view->Control().SetItemState(row, highlighted ? LVIS_SELECTED : 0, LVIS_SELECTED);
    view->RedrawRow(std::max(row, 0)); // without a current row, the first shows where the keyboard is
}

void IGridCtrlComboBoxInputState::RowsAdded(int first, int count) {
    const auto follow = [=](int& row) {
        if (row >= first)
            row += count;
    };
    follow(m_nCurrent);
    for (FormerRow* former = m_former; former; former = former->outer)
        follow(former->row);
}

void IGridCtrlComboBoxInputState::RowsRemoved(int first, int count) {
    const auto follow = [=](int& row) {
        if (row >= first + count)
            row -= count;
        else if (row >= first)
            row = -1;
    };
    follow(m_nCurrent);
    for (FormerRow* former = m_former; former; former = former->outer)
        follow(former->row);
}

void IGridCtrlComboBoxInputState::Detach() {
    m_view = nullptr;
    m_nCurrent = -1;
}

ComboTreeItem* IGridCtrlComboBoxInputState::ItemAt(int row) const {
    return m_view ? m_view->ItemAt(row) : nullptr;
}

ComboTreeItem* IGridCtrlComboBoxInputState::CurrentItem() const {
    return ItemAt(m_nCurrent);
}

int IGridCtrlComboBoxInputState::HitRow(CPoint point) const {
    constexpr int InsideColumn = 4;
    return m_view ? m_view->Control().HitTest({InsideColumn, point.y}) : -1;
}

// An empty list is left with row 0 as the current one although there is none: kept. Nothing is found there.
void IGridCtrlComboBoxInputState::Step(int delta) {
    if (!m_view)
        return;
    const int last = m_view->Control().GetItemCount() - 1;
    SetCurrent(std::max(std::min(m_nCurrent + delta, last), 0));
    if (m_view)
        m_view->Control().EnsureVisible(m_nCurrent, false);
}

void IGridCtrlComboBoxInputState::Apply() {
    if (m_view) {
        internal::ComboChoice(m_view->Model()).Apply(CurrentItem());
        SendChanged();
    }
}

void IGridCtrlComboBoxInputState::SendChanged() {
    if (m_view)
        m_view->Notify(ComboListChanged);
}

void IGridCtrlComboBoxInputState::SendFinished() {
    if (m_view)
        m_view->Notify(ComboListFinished);
}

void IGridCtrlComboBoxInputState::RedrawAll() {
    if (m_view)
        m_view->Control().RedrawWindow();
}

bool IGridCtrlComboBoxInputState::Hits(Region region, const ComboTreeItem& item, CPoint point) const {
    if (!m_view || !item.HasRow())
        return false;
    const auto geometry = m_view->GeometryOf(item.GetRow());
    return m_view && geometry && ((*geometry).*region)().PtInRect(point);
}

void IGridCtrlComboBoxInputState::ToggleExpanded(ComboTreeItem& item) {
    if (item.IsExpanded())
        m_view->Collapse(item);
    else
        m_view->Expand(item);
}

void IGridCtrlComboBoxInputState::ExpandByKey(UINT key) {
    ComboTreeItem* item = CurrentItem();
    if (item && key == VK_LEFT)
        m_view->Collapse(*item);
    else if (item && key == VK_RIGHT)
        m_view->Expand(*item);
}

bool IGridCtrlComboBoxInputState::PressTreeButton(ComboTreeItem& item, CPoint point) {
    if (!Hits(&internal::ComboRowGeometry::TreeBox, item, point))
        return false;
    ToggleExpanded(item);
    return true;
}

} // namespace korvel

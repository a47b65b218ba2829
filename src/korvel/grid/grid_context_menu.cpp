#include "korvel/grid/grid_context_menu.h"

#include "korvel/grid/cell_edit_grid.h"
#include "korvel/grid/seen_cell.h"
#include "korvel/grid/write_frame.h"
#include "korvel/window/app/app.h"
#include "korvel/window/core/thread_queue.h"
#include "korvel/window/menu/menu.h"

#include <algorithm>

namespace korvel::internal {

struct GridContextMenu::Choice {
    unsigned command;
    const grid::CTreeItem* node; // null: beside all rows
    const IMemberDispatch* root;
    MenuTarget target; // only compared
    int column;
    const LossWatch noLoss;
};

class GridContextMenu::ArrivalScope {
public:
    ArrivalScope(const Choice*& arriving, const Choice& choice)
        : m_arriving(arriving), m_outer(std::exchange(arriving, &choice)) {}
    ~ArrivalScope() { m_arriving = m_outer; }
    ArrivalScope(const ArrivalScope&) = delete;
    ArrivalScope& operator=(const ArrivalScope&) = delete;

private:
    const Choice*& m_arriving;
    const Choice* const m_outer;
};

GridContextMenu::GridContextMenu(CellEditGrid& grid, const AttributeRows& rows, WriteFrame& frame)
    : m_grid(grid), m_rows(rows), m_frame(frame), m_arriving(std::make_shared<const Choice*>(nullptr)) {}

GridContextMenu::~GridContextMenu() = default;

bool GridContextMenu::OpenAt(CPoint point, const MenuPermissions& allowed) {
    m_hasTakenPress = true;
    const HWND window = m_grid.m_hWnd;
    if (!m_grid.EndEdit() || m_grid.m_hWnd != window)
        return true;
    LVHITTESTINFO hit;
    hit.pt = point;
    const int row = m_grid.SubItemHitTest(&hit);
    const grid::CTreeItem* node = m_grid.NodeAtRow(row);
    const LossWatch noLoss = m_rows.WatchRows();
    if (node && hit.iSubItem >= 0)
        m_grid.currentColumn = hit.iSubItem;
    Select(node ? row : -1);
    if (node && noLoss)
        m_grid.RedrawRow(row); // of the column
    if (!noLoss || m_grid.m_hWnd != window)
        return true;
    m_hasTakenPress = Open(node, point, allowed);
    return m_hasTakenPress;
}

bool GridContextMenu::OpenAtSelection(const MenuPermissions& allowed) {
    const HWND window = m_grid.m_hWnd;
    if (!m_grid.EndEdit() || m_grid.m_hWnd != window)
        return true;
    const int row = m_grid.GetNextItem(-1, LVNI_SELECTED);
    const grid::CTreeItem* node = m_grid.NodeAtRow(row);
    if (!node)
        return Open(nullptr, {0, m_grid.GetHeaderCtrl()->GetClientRect().Height()}, allowed);
    const LossWatch noLoss = m_rows.WatchRows();
    m_grid.EnsureVisible(row, false);
    Select(row);
    if (!noLoss || m_grid.m_hWnd != window)
        return true;
    const CRect label = CellRect(m_grid, row, 0);
    return Open(node, {std::max(label.left, 0), label.bottom - 1}, allowed);
}

void GridContextMenu::Select(int row) {
    if (row != -1 && m_grid.SendMessageA(LVM_GETSELECTEDCOUNT) == 1 &&
        m_grid.GetItemState(row, LVIS_SELECTED) != 0)
        return;
    const HWND window = m_grid.m_hWnd;
    const LossWatch noLoss = m_rows.WatchRows();
    m_grid.SetItemState(-1, 0, LVIS_SELECTED);
    if (row != -1 && noLoss && m_grid.m_hWnd == window)
        m_grid.SelectRow(row);
}

bool GridContextMenu::Open(const grid::CTreeItem* node, CPoint client, const MenuPermissions& allowed) {
    const ModuleStateGuard guard;
    const HWND window = m_grid.m_hWnd;
    const MenuTarget target = TargetOf(node, m_grid.currentColumn, m_rows);
    const std::shared_ptr<Choice> choice(
        new Choice{0, node, m_rows.GetRoot(), target, m_grid.currentColumn, m_rows.WatchRows()});
    CMenu menu;
    menu.CreatePopupMenu();
    bool isFilled = false;
    m_frame.RunOutside([&] { isFilled = FillContextMenu(menu, m_rows, target, allowed); });
    if (!isFilled || m_grid.m_hWnd != window)
        return true;
    if (menu.GetMenuItemCount() == 0)
        return false;
    const CPoint screen = ClientToScreen(window, client);
    choice->command = menu.TrackPopupMenu(TPM_RIGHTBUTTON | TPM_RETURNCMD, screen.x, screen.y, &m_grid);
    if (choice->command != 0)
        Post(window, choice);
    return true;
}

// A choice comes with its command and goes with it, also where a hook takes that or the window is gone.
void GridContextMenu::Post(HWND window, const std::shared_ptr<const Choice>& choice) const {
    ThreadQueue::Current()->Post(
        window,
        [window, choice, arriving = m_arriving] {
            const ArrivalScope scope(*arriving, *choice);
            SendMessageA(window, WM_COMMAND, choice->command, 0);
        });
}

bool GridContextMenu::SelectFor(unsigned command) {
    if (!*m_arriving || (*m_arriving)->command != command)
        return true;
    const Choice& choice = *std::exchange(*m_arriving, nullptr);
    const grid::CTreeItem* node = nullptr;
    if (!IsThere(choice, node))
        return false;
    const int row = node ? m_grid.RowOfNode(node) : -1;
    if (node && row == -1)
        return false; // collapsed
    m_grid.currentColumn = choice.column;
    Select(row);
    return choice.root == m_rows.GetRoot() && m_grid.GetSelectedNode() == node;
}

bool GridContextMenu::IsThere(const Choice& choice, const grid::CTreeItem*& node) const {
    if (choice.root != m_rows.GetRoot())
        return false;
    node = choice.node;
    if (node && !choice.noLoss)
        node = m_rows.Find(choice.target.owner, choice.target.name);
    return node || !choice.node;
}

void GridContextMenu::RunObjectCommand(unsigned number) {
    if (!m_grid.EndEdit())
        return;
    m_frame.RunOutside([&] {
        const MenuTarget target = TargetOf(m_grid.GetSelectedNode(), m_grid.currentColumn, m_rows);
        ObjectCommands::Run(m_rows, target, number);
    });
}

} // namespace korvel::internal

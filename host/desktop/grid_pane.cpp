#include "desktop/grid_pane.h"

#include "program/member_path.h"
#include "texts/program_texts.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace korvel::inspector {

namespace {

constexpr CRect FirstPlace = {0, 0, 900, 600}; // until a layout places it
constexpr double SmallestShare = 0.1;          // of a column
constexpr int GridId = 105;

// The child whose name begins the path; of several, the one with the longest name.
grid::CTreeItem* FindStep(const ChildList& children, std::string_view path) {
    grid::CTreeItem* found = nullptr;
    for (grid::CTreeItem* child : children)
        if (StepAt(path, child->info->text) > (found ? found->info->text.size() : 0))
            found = child;
    return found;
}

} // namespace

LRESULT AttributeGrid::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = CEditableGrid::WindowProc(message, wParam, lParam);
    const bool dragged = message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == HDN_ENDTRACK;
    const int width = GetClientRect().Width();
    if (dragged && width > 0)
        m_nameShare =
            std::clamp(static_cast<double>(GetColumnWidth(0)) / width, SmallestShare, 1 - SmallestShare);
    // A scroll bar that comes while the user drags changes the height only.
    if (dragged || (message == WM_SIZE && width != m_dividedWidth))
        DivideWidth();
    return result;
}

void AttributeGrid::DivideWidth() {
    const int width = GetClientRect().Width();
    const int name = static_cast<int>(std::lround(width * m_nameShare));
    m_dividedWidth = width;
    if (GetColumnCount() != 2) {
        SetColumnInfo({{0, name}, {1, width - name}});
        return;
    }
    SetColumnWidth(0, name);
    SetColumnWidth(1, width - name);
}

GridPane::GridPane() : m_grid(nullptr, nullptr) {
    CreateEx(0, "KorvelFrame", "", 0, FirstPlace, nullptr, 0);
    m_grid.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS,
                  FirstPlace, this, GridId);
    m_grid.SetGridOption(EGridOption::AngleUnit, true);
    m_grid.SetAllowEdit(false); // there is no way yet to save what was edited
}

void GridPane::Show(IMemberDispatch& root) {
    m_grid.Clear();
    m_grid.DivideWidth(); // the widths that the columns begin with
    const ProgramTexts& texts = TheProgramTexts;
    m_grid.Initialize(&root, InCodePage(texts.name), InCodePage(texts.value), 0);
    m_grid.DivideWidth(); // the rows may have brought a scroll bar
    Select(0);
    m_grid.SetFocus();
}

void GridPane::Select(int row) {
    constexpr UINT Both = LVIS_SELECTED | LVIS_FOCUSED;
    m_grid.SetItemState(row, Both, Both);
}

bool GridPane::Expand(const std::string& path) {
    const ChildList* children = &m_grid.rootItems();
    int row = 0;
    int lastRow = 0;
    for (std::string_view rest = path; !rest.empty();) {
        grid::CTreeItem* node = FindStep(*children, rest);
        if (!node)
            return false;
        row = m_grid.RowOfNode(node);
        lastRow = m_grid.ExpandNode(node, row);
        children = &node->children();
        rest.remove_prefix(std::min(rest.size(), node->info->text.size() + 1));
    }
    m_grid.EnsureVisible(lastRow, false);
    m_grid.EnsureVisible(row, false);
    Select(row);
    return true;
}

GridPane::Counts GridPane::Count() const {
    Counts counts;
    std::vector<const ChildList*> families = {&m_grid.rootItems()};
    while (!families.empty()) {
        const ChildList& family = *families.back();
        families.pop_back();
        for (const grid::CTreeItem* node : family) {
            ++(node->info->disp ? counts.objects : counts.members);
            if (!node->children().empty())
                families.push_back(&node->children());
        }
    }
    return counts;
}

LRESULT GridPane::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
    if (message == WM_SIZE)
        m_grid.MoveWindow(GetClientRect());
    else if (message == WM_SETFOCUS)
        m_grid.SetFocus();
    return result;
}

} // namespace korvel::inspector

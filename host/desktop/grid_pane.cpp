#include "desktop/grid_pane.h"

#include "desktop/program_texts.h"

#include <algorithm>
#include <string_view>

namespace korvel::inspector {

namespace {

constexpr CRect FirstPlace = {0, 0, 900, 600}; // until a layout places it
constexpr int SmallestValueColumn = 120;
constexpr int GridId = 105;
constexpr int NameShare = 2; // of fifths of the width

// The child whose name begins the path; of several, the one with the longest name.
grid::CTreeItem* FindStep(const ChildList& children, std::string_view path) {
    grid::CTreeItem* found = nullptr;
    for (grid::CTreeItem* child : children) {
        const std::string& name = child->info->text;
        const bool matches =
            path.starts_with(name) && (path.size() == name.size() || path[name.size()] == '/');
        if (matches && (!found || found->info->text.size() < name.size()))
            found = child;
    }
    return found;
}

} // namespace

LRESULT AttributeGrid::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = CEditableGrid::WindowProc(message, wParam, lParam);
    const bool dragged = message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == HDN_ENDTRACK;
    if (message == WM_SIZE || dragged)
        FitValueColumn();
    return result;
}

void AttributeGrid::FitValueColumn() {
    if (GetColumnCount() == 2)
        SetColumnWidth(1, std::max(SmallestValueColumn, GetClientRect().Width() - GetColumnWidth(0)));
}

GridPane::GridPane() : m_grid(nullptr, nullptr) {
    CreateEx(0, "KorvelFrame", "", 0, FirstPlace, nullptr, 0);
    m_grid.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS,
                  FirstPlace, this, GridId);
}

void GridPane::Show(IMemberDispatch& root) {
    m_grid.Clear();
    const int width = m_grid.GetClientRect().Width();
    const int name = width * NameShare / 5;
    m_grid.SetColumnInfo({{0, name}, {1, width - name}});
    const ProgramTexts& texts = TheProgramTexts();
    m_grid.Initialize(&root, InCodePage(texts.name), InCodePage(texts.value), 0);
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

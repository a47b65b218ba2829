#include "editing/grid_view.h"

#include "korvel/grid/super_grid_ctrl.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace korvel::inspector {
namespace {

using Groups = std::unordered_map<std::string_view, grid::CTreeItem*>;

std::vector<OpenGroup> OpenGroupsOf(const CSuperGridCtrl& grid) {
    struct Rest {
        ChildList::Iterator next;
        ChildList::Iterator end;
    };
    std::vector<OpenGroup> groups;
    std::vector<Rest> families = {{grid.rootItems().begin(), grid.rootItems().end()}};
    while (!families.empty()) {
        Rest& family = families.back();
        if (family.next == family.end) {
            families.pop_back();
            continue;
        }
        const grid::CTreeItem* node = *family.next++;
        if (node->collapsed() || node->children().empty())
            continue;
        groups.push_back({families.size() - 1, node->info->text});
        families.push_back({node->children().begin(), node->children().end()});
    }
    return groups;
}

std::vector<std::string> PathOf(const grid::CTreeItem* node) {
    std::vector<std::string> path;
    for (; node; node = node->parent())
        path.push_back(node->info->text);
    std::reverse(path.begin(), path.end());
    return path;
}

Groups GroupsIn(const ChildList& family) {
    Groups groups;
    for (grid::CTreeItem* node : family)
        if (!node->children().empty())
            groups.emplace(node->info->text, node);
    return groups;
}

void Open(CSuperGridCtrl& grid, const std::vector<OpenGroup>& openGroups) {
    std::vector<Groups> families = {GroupsIn(grid.rootItems())}; // of the last group and those around it
    for (const OpenGroup& group : openGroups) {
        if (group.depth >= families.size())
            continue; // it was in one that has gone
        families.resize(group.depth + 1);
        const auto found = families.back().find(group.name);
        if (found == families.back().end())
            continue;
        grid::CTreeItem* node = found->second;
        grid.ExpandNode(node, grid.RowOfNode(node));
        families.push_back(GroupsIn(node->children()));
    }
}

// The row at the end of a path, or the last one on the way that there is; -1 for none.
int RowAt(const CSuperGridCtrl& grid, const std::vector<std::string>& path) {
    const ChildList* family = &grid.rootItems();
    int row = -1;
    for (const std::string& name : path) {
        const auto node = std::find_if(family->begin(), family->end(), [&](const grid::CTreeItem* child) {
            return child->info->text == name;
        });
        if (node == family->end() || grid.RowOfNode(*node) < 0)
            break;
        row = grid.RowOfNode(*node);
        family = &(*node)->children();
    }
    return row;
}

} // namespace

GridView ViewOf(const CSuperGridCtrl& grid) {
    return {OpenGroupsOf(grid), PathOf(grid.GetSelectedNode()), PathOf(grid.NodeAtRow(grid.GetTopIndex()))};
}

void Restore(CSuperGridCtrl& grid, const GridView& view) {
    Open(grid, view.openGroups);
    if (const int selected = RowAt(grid, view.selected); selected >= 0)
        grid.SetItemState(selected, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    if (const int top = RowAt(grid, view.top); top >= 0) {
        grid.EnsureVisible(grid.GetItemCount() - 1, false);
        grid.EnsureVisible(top, false);
    }
}

} // namespace korvel::inspector

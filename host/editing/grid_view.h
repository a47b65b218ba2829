#pragma once

#include "program/open_groups.h"

#include <string>
#include <vector>

namespace korvel {
class CSuperGridCtrl;
}

namespace korvel::inspector {

/// What the user has made of the rows of a grid, by their names, so that it can be made of those of another
/// document: mostly of the same one, read again.
///
///     const GridView view = ViewOf(grid);
///     grid.Clear();
///     grid.Initialize(...);
///     Restore(grid, view);
struct GridView {
    std::vector<OpenGroup> openGroups;
    // The names on the way to a row; none without one.
    std::vector<std::string> selected;
    std::vector<std::string> top; ///< the first row that is in sight
};

GridView ViewOf(const CSuperGridCtrl& grid);

/// For a grid with all groups closed. What has gone is left out; in place of a row that has gone its group is
/// selected, or the first in sight.
void Restore(CSuperGridCtrl& grid, const GridView& view);

} // namespace korvel::inspector

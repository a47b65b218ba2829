#pragma once

#include "korvel/grid/editable_grid.h"
#include "korvel/window/core/cwnd.h"

namespace korvel::inspector {

/// A grid over the two columns name and value. The value column takes what the other leaves.
class AttributeGrid final : public CEditableGrid {
public:
    using CEditableGrid::CEditableGrid;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void FitValueColumn();
};

/// The window that Embed takes into the inspector's main window: a grid that fills it.
class GridPane final : public CWnd {
public:
    GridPane();

    /// Shows an object instead of what was shown, with the first row selected. It must live until Clear or
    /// the end of the pane.
    void Show(IMemberDispatch& root);
    void Clear() { m_grid.Clear(); }

    /// Expands the rows on the way to a member and the member itself, which is selected. The names of the
    /// path are separated by '/'; they may hold one themselves. False when there is no such row.
    bool Expand(const std::string& path);
    void ExpandAll() { m_grid.ExpandAll(); }
    /// How many rows there are when all is expanded: those that can hold others, and those that cannot.
    struct Counts {
        std::size_t objects = 0;
        std::size_t members = 0;
    };
    Counts Count() const;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void Select(int row);

    AttributeGrid m_grid;
};

} // namespace korvel::inspector

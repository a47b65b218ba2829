#pragma once

#include "korvel/grid/editable_grid.h"
#include "korvel/window/core/cwnd.h"

namespace korvel::inspector {

/// A grid over the two columns name and value, which share its width as the user has divided it.
class AttributeGrid final : public CEditableGrid {
public:
    using CEditableGrid::CEditableGrid;
    /// To be called before a binding, and by the grid itself whenever its width changes.
    void DivideWidth();
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    /// Red, as the default, looks like an error in a program that shows errors.
    COLORREF GetFocusCellColor() override { return GetSysColor(COLOR_HIGHLIGHTTEXT); }

private:
    double m_nameShare = 0.4; // of the width
    int m_dividedWidth = 0;
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

#pragma once

#include "korvel/window/base/messages.h"
#include "korvel/window/base/types.h"

#include <optional>

/// What a list says of itself to whoever reads it without looking at it: screen readers, test tools. It is
/// read by view::List, view::Cell and view::CellAt (window/display/window_view.h), which send the list
/// LVM_KORVEL_READLIST and LVM_KORVEL_READCELL. The list control fills in what it knows; an object that knows
/// more of its rows adds that in its WindowProc, after the control:
///
///     LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
///         const LRESULT result = CListCtrl::WindowProc(message, wParam, lParam);
///         if (message == LVM_KORVEL_READCELL && result)
///             reinterpret_cast<view::CellView*>(lParam)->readOnly = false;
///         return result;
///     }
namespace korvel::view {

constexpr int NoRow = -1;
constexpr int TitleRow = -1; // as the row of a cell: the title of its column

struct CellPlace {
    int row = NoRow;
    int column = 0;

    bool operator==(const CellPlace&) const = default;
};

/// A list as a table.
struct ListView {
    int rowCount = 0;
    int columnCount = 0;
    CellPlace current; // where keys act; NoRow: nowhere
    bool selectsMany = false;
    /// The window whose keys act in the list, which never takes them itself; null: the list takes its own.
    HWND keysFrom = nullptr;
    UINT expandKey = VK_ADD; // what opens and closes the current row
    UINT collapseKey = VK_SUBTRACT;
    HWND header = nullptr;           // shows the titles, which are cells here
    std::optional<CellPlace> edited; // the cell over which a control of the list is open
};

/// One cell.
struct CellView {
    CellPlace at; // which one; there before the rest is filled in
    CString text;
    CRect bounds;    // client coordinates, also far outside
    LPARAM data = 0; // of the row: only to tell it from others
    int level = 1;   // the depth in a tree
    bool selected = false;
    bool readOnly = true;
    bool invalid = false;         // the text over it was refused
    std::optional<bool> checked;  // nothing: it has no check box
    std::optional<bool> expanded; // nothing: there is nothing to open
};

} // namespace korvel::view

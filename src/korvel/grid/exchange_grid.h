#pragma once

#include "korvel/grid/cell_edit_grid.h"
#include "korvel/grid/grid_layout.h"

#include <sstream>
#include <string>
#include <vector>

namespace korvel {

namespace internal {
class ClipboardCopies;
class ColumnState;
} // namespace internal

/// The code of the WM_COMMAND by which a grid under EGridOption::QuietCopy tells its parent that it has
/// copied.
inline constexpr UINT GridCopied = 23;

/// What CEditableGrid hands out, as a base of it: cells, rows and trees as text for the clipboard, and the
/// widths of its columns for the next run.
///
///     grid.CopyClipboardLine(0);    // "length\t12,50 m"
///     grid.OnCopyClipboardRow();    // puts that of the selected row on the clipboard
///     grid.SendMessageA(WM_DLG_STATE, 1, reinterpret_cast<LPARAM>(&state));   // writes the widths
///
/// Cells are put together with tabs and rows with line feeds; a tab, the end of a line and a zero byte within
/// a cell each become one blank. A cell that begins with a quotation mark, unless it is copied alone, stands
/// in quotation marks with its own doubled, as spreadsheets take it. The text of a value is asked of its
/// object anew; a flag, a group and a member that is missing have none. Where the object removes rows while it
/// is asked, the copy is given up.
class KORVEL_API ExchangeGrid : public CellEditGrid {
public:
    ~ExchangeGrid() override;

    // The texts of a cell, of a row with all its columns, of all below a row. Empty for no such row and for a
    // copy that is given up. What the object throws passes through.
    std::string GetClipboardString(const CTreeItem* node, int column) const;
    std::string GetClipboardString(int row, int column) const;
    std::string CopyClipboardLine(const CTreeItem* node) const;
    std::string CopyClipboardLine(int row) const;
    /// Each row below, collapsed ones included, after a line feed and two blanks a level; `level` is that of
    /// the children.
    void CopyClipboardRecursive(int level, std::stringstream& out, const CTreeItem* node) const;

    /// Puts a text on the clipboard. Nothing happens with an empty one, and where there is no clipboard; of a
    /// text that is refused the user is told as of a failed write.
    void CopyToClipboard(const CString& text);

    // What the user copies, each also as a GridCommand. What is being edited ends first; refused, nothing is
    // copied. A box tells the user of a copy; under QuietCopy only the parent hears of it, by GridCopied.
    /// The cell of the selected row in the current column.
    void OnCopyClipboardValue();
    /// The cells of the current column, of all rows of the list.
    void OnCopyClipboardColumn();
    void OnCopyClipboardRow();
    /// The selected row with all below it; without one all rows.
    void OnCopyClipboardRecursive();

    /// The widths of the columns as the user or a former binding left them, and those for the next one.
    const std::vector<SColumnInfo>& GetColumnInfo() const { return m_ColumnInfo; }
    void SetColumnInfo(const std::vector<SColumnInfo>& info) { m_ColumnInfo = info; }

    // The messages by which those widths are kept from run to run. What is read goes to the columns that the
    // grid has; a grid without columns keeps it for its next binding, if a width of each is known then.
    // Unknown columns, a column that comes again, and widths that are not from 0 to 32,767 are left out. Each
    // returns 0.
    /// WM_DLG_STATE. With wParam 1 an element "Column" with POS and WIDTH is written for each column into the
    /// element in lParam (CXmlNode*), which must have been opened. Otherwise they are read from the element in
    /// lParam (const XmlElement*).
    LRESULT OnDlgState(WPARAM wParam, LPARAM lParam);
    /// WM_DLG_STATE_REGISTRY, as TDlgState sends it: lParam is a key of the user's settings (const char*). With
    /// wParam 1 the widths are saved there, under the control id and the ident of the object that is shown.
    /// Otherwise they are loaded, if they are as many as the columns. Nothing is said of a store that fails.
    LRESULT OnRegistryDlgState(WPARAM wParam, LPARAM lParam);
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    using CellEditGrid::CellEditGrid;
    /// To be called once, when the grid is made; both must outlive its window.
    void SetUpExchange(internal::ClipboardCopies& copies, internal::ColumnState& columnState);

    /// The user has dragged a column (HDN_ENDTRACK): its width is the one in the notice.
    void OnHdnEndtrack(NMHDR* header, LRESULT* result);
    bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

    std::vector<SColumnInfo> m_ColumnInfo;

private:
    internal::ClipboardCopies* m_copies = nullptr;
    internal::ColumnState* m_columnState = nullptr;
};

} // namespace korvel

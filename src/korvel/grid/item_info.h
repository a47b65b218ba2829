#pragma once

#include "korvel/editors/control_type.h"
#include "korvel/platform/export.h"
#include "korvel/window/base/types.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace korvel {

class IMemberDispatch;

/// All that one row of a tree grid shows.
///
///     auto* info = new CItemInfo;
///     info->text = "length";                          // column 0
///     info->SetSubItem(0, "12,50 m");                 // column 1
///     info->SetControlType(0, CItemInfo::ctEdit);
///     info->IsCellEnabled(0);                         // true unless it was set
///
/// A cell is named by its column index less 1: cell 0 is in column 1. What was never set reads as the
/// default that is given with each getter. Colors are 0x00BBGGRR; the top byte of a swatch is its opacity.
class KORVEL_API CItemInfo {
public:
    using CONTROLTYPE = korvel::CONTROLTYPE;
    using enum korvel::CONTROLTYPE;

    /// Whether a cell shows its color as a swatch.
    static constexpr bool IsSwatch(CONTROLTYPE type) { return type == ctColor || type == ctColorAlpha; }

    static constexpr COLORREF NoColor = 0xFFFFFFFF;

    CItemInfo();
    CItemInfo(const CItemInfo& other);
    CItemInfo& operator=(const CItemInfo&) = delete;
    virtual ~CItemInfo();

    /// Text of a cell; empty beyond the last one that was set.
    /// \throws std::out_of_range for a negative cell
    const CString& GetSubItem(int cell) const;
    /// Sets the text of a cell; cells between it and the last one become empty.
    /// \throws std::out_of_range for a negative cell
    void SetSubItem(int cell, CString text);
    int GetSubItemCount() const { return m_subItemCount; }

    CONTROLTYPE GetControlType(int cell) const; // ctEdit
    void SetControlType(int cell, CONTROLTYPE type);
    bool IsCellEnabled(int cell) const; // true
    void SetCellEnabled(int cell, bool enabled);
    COLORREF GetCellColor(int cell) const; // NoColor
    void SetCellColor(int cell, COLORREF color);
    int GetCellImage(int cell) const; // -1
    void SetCellImage(int cell, int image);
    /// The strings that belong to a cell; null when it has none.
    const std::vector<CString>* GetCellList(int cell) const;
    void SetCellList(int cell, std::vector<CString> list);

    IMemberDispatch* disp = nullptr; ///< the object that a group row shows; not owned
    CString text;                    ///< of column 0
    int checked = 0;                 ///< state of the row's check box
    int image = -1;                  ///< index in the image list
    COLORREF rowColor = NoColor;     ///< background of the whole row

    /// Where the member look-up of an attribute grid files this row; for its use alone.
    std::uint32_t indexHash = 0;

private:
    struct Cell;
    struct CellTable;
    const Cell& CellAt(int cell) const;
    Cell& MakeCell(int cell);

    // Nearly every row sets the text and these two of cell 0, and hardly any row sets more: the rest is
    // kept apart.
    CString m_firstText;
    int m_subItemCount = 0;
    std::uint8_t m_firstControl = ctEdit;
    bool m_firstEnabled = true;
    std::unique_ptr<CellTable> m_cells;
};

} // namespace korvel

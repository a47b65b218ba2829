#include "korvel/grid/item_info.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace korvel {

struct CItemInfo::Cell {
    CString text;
    CONTROLTYPE control = ctEdit;
    bool enabled = true;
    COLORREF color = NoColor;
    int image = -1;
    std::vector<CString> list;
};

struct CItemInfo::CellTable {
    std::map<int, Cell> cells;
};

CItemInfo::CItemInfo(const CItemInfo& other)
    : disp(other.disp), text(other.text), checked(other.checked), image(other.image),
      rowColor(other.rowColor), m_firstText(other.m_firstText), m_subItemCount(other.m_subItemCount),
      m_firstControl(other.m_firstControl), m_firstEnabled(other.m_firstEnabled),
      m_cells(other.m_cells ? std::make_unique<CellTable>(*other.m_cells) : nullptr) {}

CItemInfo::CItemInfo() = default;

CItemInfo::~CItemInfo() = default;

const CString& CItemInfo::GetSubItem(int cell) const {
    if (cell < 0)
        throw std::out_of_range("CItemInfo::GetSubItem");
    return cell == 0 ? m_firstText : CellAt(cell).text;
}

void CItemInfo::SetSubItem(int cell, CString cellText) {
    if (cell < 0)
        throw std::out_of_range("CItemInfo::SetSubItem");
    m_subItemCount = std::max(m_subItemCount, cell + 1);
    if (cell == 0)
        m_firstText = std::move(cellText);
    else
        MakeCell(cell).text = std::move(cellText);
}

const CItemInfo::Cell& CItemInfo::CellAt(int cell) const {
    static const Cell unset;
    if (!m_cells)
        return unset;
    const auto found = m_cells->cells.find(cell);
    return found == m_cells->cells.end() ? unset : found->second;
}

CItemInfo::Cell& CItemInfo::MakeCell(int cell) {
    if (!m_cells)
        m_cells = std::make_unique<CellTable>();
    return m_cells->cells[cell];
}

CItemInfo::CONTROLTYPE CItemInfo::GetControlType(int cell) const {
    return cell == 0 ? static_cast<CONTROLTYPE>(m_firstControl) : CellAt(cell).control;
}

void CItemInfo::SetControlType(int cell, CONTROLTYPE type) {
    if (cell == 0)
        m_firstControl = static_cast<std::uint8_t>(type);
    else if (type != GetControlType(cell))
        MakeCell(cell).control = type;
}

bool CItemInfo::IsCellEnabled(int cell) const {
    return cell == 0 ? m_firstEnabled : CellAt(cell).enabled;
}

void CItemInfo::SetCellEnabled(int cell, bool enabled) {
    if (cell == 0)
        m_firstEnabled = enabled;
    else if (enabled != IsCellEnabled(cell))
        MakeCell(cell).enabled = enabled;
}

COLORREF CItemInfo::GetCellColor(int cell) const {
    return CellAt(cell).color;
}

void CItemInfo::SetCellColor(int cell, COLORREF color) {
    if (color != GetCellColor(cell))
        MakeCell(cell).color = color;
}

int CItemInfo::GetCellImage(int cell) const {
    return CellAt(cell).image;
}

void CItemInfo::SetCellImage(int cell, int cellImage) {
    if (cellImage != GetCellImage(cell))
        MakeCell(cell).image = cellImage;
}

const std::vector<CString>* CItemInfo::GetCellList(int cell) const {
    const Cell& found = CellAt(cell);
    return found.list.empty() ? nullptr : &found.list;
}

void CItemInfo::SetCellList(int cell, std::vector<CString> list) {
    if (!list.empty() || GetCellList(cell))
        MakeCell(cell).list = std::move(list);
}

} // namespace korvel

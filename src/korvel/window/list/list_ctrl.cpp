#include "korvel/window/list/list_ctrl.h"

#include "korvel/window/core/dc.h"
#include "korvel/window/list/list_column_edit.h"
#include "korvel/window/list/list_geometry.h"
#include "korvel/window/list/list_rows.h"
#include "korvel/window/list/list_scroll.h"
#include "korvel/window/list/list_selection.h"
#include "korvel/window/list/on_list.h"

namespace korvel {

using namespace internal;

bool CListCtrl::Create(UINT style, const CRect& rect, CWnd* parent, int id) {
    return CreateEx(0, "SysListView32", "", style, rect, parent, id);
}

void CListCtrl::SetTextSource(TextSource source) {
    OnList(
        m_hWnd,
        [&](ListState& list) {
            list.textSource = source ? std::make_shared<const TextSource>(std::move(source)) : nullptr;
            RepaintAll(list);
        });
}

int CListCtrl::GetItemCount() const {
    return OnList(
        m_hWnd, [](ListState& list) { return list.rows.Size(); });
}

int CListCtrl::InsertItem(int row, const CString& text, int image) {
    ListRow content;
    content.text = text;
    content.image = image;
    return InsertRow(row, content);
}

int CListCtrl::InsertRow(int row, const ListRow& content) {
    const auto insert = [&](ListState& list) { return internal::InsertRow(list, row, content).row; };
    return OnList(m_hWnd, insert, NoRow);
}

bool CListCtrl::DeleteItem(int row) {
    return SendMessageA(LVM_DELETEITEM, static_cast<WPARAM>(row)) != 0;
}

bool CListCtrl::DeleteRows(int first, int last) {
    return OnRows(
        m_hWnd, first, last, [&](ListState& list) { internal::DeleteRows(list, first, last); });
}

bool CListCtrl::DeleteAllItems() {
    return OnList(
        m_hWnd, [](ListState& list) { return DeleteAllRows(list), true; });
}

LPARAM CListCtrl::GetItemData(int row) const {
    return OnRow(
        m_hWnd, row, [&](ListState& list) { return list.rows.At(row).data; });
}

bool CListCtrl::SetItemData(int row, LPARAM data) {
    return OnRow(
        m_hWnd, row, [&](ListState& list) { return SetData(list, row, data), true; });
}

int CListCtrl::GetItemIndent(int row) const {
    return OnRow(
        m_hWnd, row, [&](ListState& list) { return static_cast<int>(list.rows.At(row).indent); });
}

bool CListCtrl::SetItemIndent(int row, int indent) {
    return OnRow(
        m_hWnd, row, [&](ListState& list) { return SetIndent(list, row, indent), true; });
}

CString CListCtrl::GetItemText(int row, int column) const {
    return OnRow(
        m_hWnd, row, [&](ListState& list) { return column >= 0 ? TextOf(list, row, column) : CString(); });
}

bool CListCtrl::SetItemText(int row, int column, const CString& text) {
    return OnList(
        m_hWnd, [&](ListState& list) { return SetText(list, row, column, text); });
}

int CListCtrl::GetItemImage(int row) const {
    return OnRow(
        m_hWnd, row, [&](ListState& list) { return list.rows.At(row).image; }, -1);
}

bool CListCtrl::SetItemImage(int row, int image) {
    return OnRow(
        m_hWnd, row, [&](ListState& list) { return SetImage(list, row, image), true; });
}

bool CListCtrl::GetCheck(int row) const {
    return OnRow(
        m_hWnd, row, [&](ListState& list) { return list.rows.At(row).checked; });
}

bool CListCtrl::SetCheck(int row, bool check) {
    return OnRow(
        m_hWnd, row, [&](ListState& list) { return internal::SetCheck(list, row, check); });
}

void CListCtrl::ToggleCheck(int row) {
    OnRow(
        m_hWnd, row, [&](ListState& list) { return internal::ToggleCheck(list, row), true; });
}

UINT CListCtrl::GetItemState(int row, UINT mask) const {
    return static_cast<UINT>(SendMessageA(LVM_GETITEMSTATE, static_cast<WPARAM>(row), mask));
}

bool CListCtrl::SetItemState(int row, UINT state, UINT mask) {
    LVITEM change;
    change.state = state;
    change.stateMask = mask;
    return SendMessageA(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&change)) != 0;
}

int CListCtrl::GetNextItem(int row, UINT flags) const {
    return OnList(
        m_hWnd, [&](ListState& list) { return NextRow(list, row, flags); }, NoRow);
}

int CListCtrl::GetSelectionMark() const {
    return OnList(
        m_hWnd, [](ListState& list) { return list.markRow; }, NoRow);
}

void CListCtrl::SetSelectionMark(int row) {
    OnList(
        m_hWnd, [&](ListState& list) { SetMark(list, row); });
}

int CListCtrl::InsertColumn(int column, const CString& title, int width, int format) {
    const auto insert = [&](ListState& list) {
        return internal::InsertColumn(list, column, {title, width, format});
    };
    return OnList(m_hWnd, insert, -1);
}

bool CListCtrl::DeleteColumn(int column) {
    return OnColumn(
        m_hWnd, column,
        [&](ListState& list) {
            internal::DeleteColumn(list, column);
            return true;
        });
}

int CListCtrl::GetColumnCount() const {
    return OnList(
        m_hWnd, [](ListState& list) { return list.columns.Count(); });
}

CString CListCtrl::GetColumnTitle(int column) const {
    return OnColumn(
        m_hWnd, column, [&](ListState& list) { return list.columns[column].title; });
}

int CListCtrl::GetColumnWidth(int column) const {
    return OnList(
        m_hWnd, [&](ListState& list) { return list.columns.WidthOf(column); });
}

bool CListCtrl::SetColumnWidth(int column, int width) {
    return OnList(
        m_hWnd, [&](ListState& list) { return internal::SetColumnWidth(list, column, width); });
}

CHeaderCtrl* CListCtrl::GetHeaderCtrl() const {
    return OnList(
        m_hWnd,
        [](ListState& list) -> CHeaderCtrl* {
            // An object that a host has attached is preferred to the list's own.
            if (CWnd* attached = FromHandlePermanent(list.header))
                return dynamic_cast<CHeaderCtrl*>(attached);
            if (!list.headerObject)
                list.headerObject = std::make_unique<CHeaderCtrl>();
            list.headerObject->SubclassWindow(list.header);
            return list.headerObject.get();
        });
}

int CListCtrl::HitTest(CPoint point, UINT* flags) const {
    const ListHit hit = OnList(m_hWnd, [&](ListState& list) { return internal::HitTest(list, point); });
    if (flags)
        *flags = hit.flags;
    return hit.row;
}

int CListCtrl::SubItemHitTest(LVHITTESTINFO* info) const {
    if (!info)
        return NoRow;
    const ListHit hit = OnList(m_hWnd, [&](ListState& list) { return internal::HitTest(list, info->pt); });
    return hit.StoreIn(*info);
}

bool CListCtrl::GetItemRect(int row, CRect* rect, int part) const {
    return OnRow(
        m_hWnd, row,
        [&](ListState& list) {
            if (part == LVIR_BOUNDS) {
                *rect = RowBounds(list, row);
                return true;
            }
            if (list.columns.Count() == 0)
                return false;
            const CellParts parts = PartsOfCell(list, row, 0);
            *rect = part == LVIR_ICON ? parts.icon : parts.label;
            return true;
        });
}

bool CListCtrl::GetSubItemRect(int row, int column, int part, CRect* rect) const {
    if (column == 0)
        return GetItemRect(row, rect, part);
    return OnRow(m_hWnd, row, [&](ListState& list) {
        if (!list.columns.Has(column))
            return false;
        const CellParts parts = PartsOfCell(list, row, column);
        *rect = part == LVIR_ICON ? parts.icon : parts.label;
        return true;
    });
}

int CListCtrl::GetTopIndex() const {
    return OnList(
        m_hWnd, [](ListState& list) { return list.topRow; });
}

int CListCtrl::GetCountPerPage() const {
    return OnList(
        m_hWnd, [](ListState& list) { return LayoutOf(list).rowsPerPage; });
}

int CListCtrl::GetRowHeight() const {
    return OnList(
        m_hWnd, [](ListState& list) { return RowHeight(list); });
}

bool CListCtrl::EnsureVisible(int row, bool partialOk) {
    return SendMessageA(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), partialOk) != 0;
}

void CListCtrl::Scroll(CSize size) {
    OnList(
        m_hWnd, [&](ListState& list) { ScrollBy(list, size); });
}

void CListCtrl::RedrawItems(int first, int last) {
    OnList(
        m_hWnd, [&](ListState& list) { RepaintRows(list, first, std::min(last, list.rows.Size() - 1) + 1); });
}

UINT CListCtrl::SetExtendedStyle(UINT style) {
    return static_cast<UINT>(SendMessageA(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, style));
}

UINT CListCtrl::GetExtendedStyle() const {
    return OnList(
        m_hWnd, [](ListState& list) { return list.extendedStyle; });
}

void CListCtrl::SetCellsMovedHook(std::function<void()> hook) {
    OnList(
        m_hWnd,
        [&](ListState& list) {
            list.cellsMoved = hook ? std::make_shared<const std::function<void()>>(std::move(hook)) : nullptr;
        });
}

void CListCtrl::SetImageList(const CImageList* images) {
    OnList(
        m_hWnd,
        [&](ListState& list) {
            list.images = images;
            RepaintAll(list);
            UpdateExtent(list); // the rows may have another height
        });
}

const CImageList* CListCtrl::GetImageList() const {
    return OnList(
        m_hWnd, [](ListState& list) { return list.images; });
}

HWND CListCtrl::EditLabel(int row) {
    return reinterpret_cast<HWND>(SendMessageA(LVM_EDITLABEL, static_cast<WPARAM>(row)));
}

HWND CListCtrl::GetEditControl() const {
    return reinterpret_cast<HWND>(SendMessageA(LVM_GETEDITCONTROL));
}

void CListCtrl::CancelEditLabel() {
    OnList(
        m_hWnd, [](ListState& list) { list.EndLabelEdit(LabelEditEnd::Cancel); });
}

void CListCtrl::DrawItem(DRAWITEMSTRUCT*) {}

bool CListCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message != WM_DRAWITEM)
        return CWnd::OnChildNotify(message, wParam, lParam, result);
    DrawItem(reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
    *result = 1;
    return true;
}

} // namespace korvel

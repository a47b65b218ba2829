#include "korvel/editors/combo_list_parts.h"

#include "korvel/editors/drop_down_height.h"
#include "korvel/editors/grid_ctrl_combo_box_input_state.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace korvel::internal {

namespace {

// The system tells the height of the first screen only: below it, another one has room.
constexpr int NoEnd = std::numeric_limits<int>::max();

} // namespace

ComboListParts::ComboListParts(CComboList& comboList, EComboListMode mode)
    : list(comboList), model(mode, *this), writeBack(model.Binding()), input(comboList, model),
      commands(comboList, model), dateSink(&comboList), angleSink(&comboList), numberSink(&comboList),
      enumSink(&comboList) {}

void ComboListParts::OnRowsAdded(ComboTree::RowRange rows) {
    std::vector<LPARAM> data;
    for (int row = rows.first; row < rows.first + rows.count; ++row)
        data.push_back(reinterpret_cast<LPARAM>(model.Tree().ItemAt(row)));
    if (const auto state = input.State())
        state->RowsAdded(rows.first, rows.count);
    list.InsertRows(rows.first, data.data(), rows.count, 0);
    PlaceBelowField();
    list.RedrawWindow();
}

void ComboListParts::OnRowsHidden(ComboTree::RowRange rows) {
    if (const auto state = input.State())
        state->RowsRemoved(rows.first, rows.count);
    list.DeleteRowsQuietly(rows.first, rows.first + rows.count);
    PlaceBelowField();
    list.RedrawWindow();
}

// The current row is then the one that took the number, or the new last.
void ComboListParts::OnRowsRemoved(ComboTree::RowRange rows) {
    const BindingWatch bound(model.Binding());
    const int current = list.GetCurrentRow();
    const bool wasCurrent = current >= rows.first && current < rows.first + rows.count;
    OnRowsHidden(rows); // who hears the end of a label edit may end the binding
    if (wasCurrent && bound)
        list.SetCurrentRow(std::min(rows.first, model.Tree().RowCount() - 1));
}

void ComboListParts::PlaceBelowField() {
    if (!field)
        return;
    CRect firstRow;
    const int header = list.GetItemRect(list.GetTopIndex(), &firstRow) ? firstRow.top : 0;
    const int border = list.GetWindowRect().Height() - list.GetClientRect().Height();
    const int screen = GetSystemMetrics(SM_CYSCREEN);
    CRect place = *field;
    place.top = place.bottom;
    place.bottom += DropDownHeight({.rows = model.Tree().RowCount(),
                                    .rowHeight = list.GetRowHeight(),
                                    .frame = border + header,
                                    .room = place.top < screen ? screen - place.top : NoEnd});
    if (place != list.GetWindowRect())
        SetWindowPos(list.m_hWnd, nullptr, place, SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace korvel::internal

#include "korvel/editors/combo_list_parts.h"

#include "korvel/editors/drop_down_height.h"
#include "korvel/editors/grid_ctrl_combo_box_input_state.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace korvel::internal {

namespace {

// The system says the height of the first screen only: below it, another one has room.
constexpr int NoEnd = std::numeric_limits<int>::max();

} // namespace

ComboListParts::ComboListParts(CComboList& comboList, EComboListMode mode)
    : list(comboList), model(mode, *this), writeBack(model.Binding()), input(comboList, model),
      commands(comboList, model), dateSink(&comboList), angleSink(&comboList), numberSink(&comboList),
      enumSink(&comboList) {}

void ComboListParts::Open() {
    model.Open();
    const BindingWatch bound(model.Binding());
    try {
        Build();
    } catch (...) {
        // The host may have begun another binding before it threw.
        if (bound)
            Close();
        throw;
    }
}

void ComboListParts::Build() {
    const ComboTree::KeepItems keep(model.Tree());
    const BindingWatch bound(model.Binding());
    auto asked = ComboColumns::Ask(model.Binding());
    if (!asked)
        return;
    columns = std::move(*asked);
    CreateColumns();
    const ComboTreeItem* selected = model.InsertEntries();
    if (!bound)
        return;
    OnRowsAdded({0, model.Tree().RowCount()});
    if (selected && selected->HasRow()) {
        list.SetItemState(selected->GetRow(), LVIS_SELECTED, LVIS_SELECTED);
        list.EnsureVisible(selected->GetRow(), true);
    }
    if (bound)
        input.Begin();
}

// Titles are German in every language: kept, saved layouts name columns by them.
void ComboListParts::CreateColumns() {
    list.InsertColumn(0, "Bezeichnung", 0);
    for (const std::string& name : columns.Members())
        list.InsertColumn(list.GetColumnCount(), name, 0);
    list.ModifyStyle(columns.IsTable() ? LVS_NOCOLUMNHEADER : 0, columns.IsTable() ? 0 : LVS_NOCOLUMNHEADER);
    sinkTypes.insert(columns.Types().begin(), columns.Types().end());
    LayColumns();
}

void ComboListParts::LayColumns() {
    const int count = list.GetColumnCount();
    for (int column = 0; column < count; ++column)
        list.SetColumnWidth(column, list.GetClientRect().Width() / count);
}

void ComboListParts::Close() {
    const ComboTree::KeepItems keep(model.Tree());
    input.End();
    field.reset();
    model.Close();
    while (list.GetColumnCount() > 0)
        list.DeleteColumn(0);
    columns = {};
    writeBack.Forget();
    commands.SetBaseName({});
    list.SetImageList(nullptr);
    sinkTypes.clear();
    list.DeleteRowsQuietly(0, list.GetItemCount()); // last: the host hears the end of a label edit
}

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
    OnRowsHidden(rows); // the host hears the end of a label edit, and may end the binding
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

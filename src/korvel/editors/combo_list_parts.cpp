#include "korvel/editors/combo_list_parts.h"

#include "korvel/editors/grid_ctrl_combo_box_input_state.h"

#include <vector>

namespace korvel::internal {

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
    list.RedrawWindow();
}

void ComboListParts::OnRowsHidden(ComboTree::RowRange rows) {
    if (const auto state = input.State())
        state->RowsRemoved(rows.first, rows.count);
    list.DeleteRowsQuietly(rows.first, rows.first + rows.count);
    list.RedrawWindow();
}

void ComboListParts::OnRowsRemoved(ComboTree::RowRange rows) {
    OnRowsHidden(rows);
}

} // namespace korvel::internal

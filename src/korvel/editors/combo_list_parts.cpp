#include "korvel/editors/combo_list_parts.h"

#include "korvel/editors/drop_down_height.h"
#include "korvel/editors/i_grid_ctrl_combo_box_input_state.h"
#include "korvel/platform/first_failure.h"
#include "korvel/window/list/model_rows.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace korvel::internal {

namespace {

// The system says the height of the first screen only: below it, another one has room.
constexpr int NoEnd = std::numeric_limits<int>::max();

} // namespace

ComboListParts::ComboListParts(CComboList& comboList, EComboListMode mode)
    : model(mode, *this), view(comboList, model), writeBack(model.Binding()), input(view, writeBack),
      commands(view, input), dateSink(&comboList), angleSink(&comboList), numberSink(&comboList),
      enumSink(&comboList) {}

void ComboListParts::Open() {
    model.Open();
    const LossWatch bound = model.Binding().Watch();
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
    const LossWatch bound = model.Binding().Watch();
    const auto columns = ComboColumns::Ask(model.Binding());
    if (!columns)
        return;
    sinkTypes.insert(columns->Types().begin(), columns->Types().end());
    view.ShowColumns(*columns); // the host hears of the new style
    if (!bound)
        return;
    const ComboTreeItem* selected = model.InsertEntries();
    if (!bound)
        return;
    OnRowsAdded({0, model.Tree().RowCount()});
    if (selected && selected->HasRow()) {
        view.Control().SetItemState(selected->GetRow(), LVIS_SELECTED, LVIS_SELECTED);
        view.Control().EnsureVisible(selected->GetRow(), true);
    }
    if (bound)
        input.Begin();
}

void ComboListParts::Close() {
    const ComboTree::KeepItems keep(model.Tree());
    FirstFailure failure; // no row may be left, which would lead to an item that is gone
    failure.Try([&] { input.End(); });
    field.reset();
    failure.Try([&] { model.Close(); });
    failure.Try([&] { view.RemoveColumns(); });
    writeBack.Forget();
    commands.SetBaseName({});
    failure.Try([&] { view.Control().SetImageList(nullptr); });
    sinkTypes.clear();
    // Last: the host is told of the end of a label edit.
    failure.Try([&] { DeleteModelRows(view.Control().m_hWnd, 0, view.Control().GetItemCount()); });
    failure.Rethrow();
}

bool ComboListParts::Shows(const IEnumValue* enumeration) const {
    return model.Binding().IsOpen() && enumeration == model.Binding().Enumeration();
}

void ComboListParts::OnEntryAdded(const IEnumValue* enumeration, long id) {
    if (!Shows(enumeration))
        return;
    const ComboTree::KeepItems keep(model.Tree());
    const ComboTreeItem* item = model.EntryAdded(id);
    if (item && item->HasRow())
        input.SetCurrentRow(item->GetRow());
}

void ComboListParts::OnRowsAdded(ComboTree::RowRange rows) {
    std::vector<LPARAM> data;
    for (int row = rows.first; row < rows.first + rows.count; ++row)
        data.push_back(reinterpret_cast<LPARAM>(model.Tree().ItemAt(row)));
    if (const auto state = input.State())
        state->RowsAdded(rows.first, rows.count);
    InsertModelRows(view.Control().m_hWnd, rows.first, data.data(), rows.count, 0);
    PlaceBelowField();
    view.Control().RedrawWindow();
}

void ComboListParts::OnRowsHidden(ComboTree::RowRange rows) {
    if (const auto state = input.State())
        state->RowsRemoved(rows.first, rows.count);
    DeleteModelRows(view.Control().m_hWnd, rows.first, rows.first + rows.count);
    PlaceBelowField();
    view.Control().RedrawWindow();
}

// The current row is then the one that took the number, or the new last.
void ComboListParts::OnRowsRemoved(ComboTree::RowRange rows) {
    const LossWatch bound = model.Binding().Watch();
    const int current = input.CurrentRow();
    const bool wasCurrent = current >= rows.first && current < rows.first + rows.count;
    OnRowsHidden(rows); // the host is told of the end of a label edit, and may end the binding
    if (wasCurrent && bound)
        input.SetCurrentRow(std::min(rows.first, model.Tree().RowCount() - 1));
}

// What is current stays so: a command that follows must not be about its neighbour.
void ComboListParts::OnItemMoved(const ComboTreeItem& from, ComboTreeItem& to) {
    if (!from.HasRow() || from.GetRow() != input.CurrentRow())
        return;
    model.ExpandParent(to.GetParent());
    input.SetCurrentRow(to.HasRow() ? to.GetRow() : -1);
}

void ComboListParts::Complete(UINT message, LPARAM lParam) const {
    if (message == LVM_KORVEL_READLIST)
        view.Complete(*reinterpret_cast<korvel::view::ListView*>(lParam), input.CurrentRow());
    else
        view.Complete(*reinterpret_cast<korvel::view::CellView*>(lParam));
}

void ComboListParts::PlaceBelowField() {
    if (!field)
        return;
    const CListCtrl& list = view.Control();
    const CHeaderCtrl* header = view.Columns().IsTable() ? list.GetHeaderCtrl() : nullptr;
    const int border = list.GetWindowRect().Height() - list.GetClientRect().Height();
    const int screen = GetSystemMetrics(SM_CYSCREEN);
    CRect place = *field;
    place.top = place.bottom;
    place.bottom += DropDownHeight({.rows = model.Tree().RowCount(),
                                    .rowHeight = list.GetRowHeight(),
                                    .frame = border + (header ? header->GetWindowRect().Height() : 0),
                                    .room = place.top < screen ? screen - place.top : NoEnd,
                                    .highest = highest});
    if (place != list.GetWindowRect())
        SetWindowPos(list.m_hWnd, nullptr, place, SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace korvel::internal

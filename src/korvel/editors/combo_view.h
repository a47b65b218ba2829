#pragma once

#include "korvel/editors/combo_columns.h"
#include "korvel/editors/combo_model.h"
#include "korvel/editors/combo_row_geometry.h"
#include "korvel/window/base/list_view.h"
#include "korvel/window/list/list_ctrl.h"

#include <optional>

namespace korvel::internal {

/// The items of a ComboModel as the rows of a list control, and the window that is notified of
/// them. What the user does in a list acts on this; it need not know the class of the control.
///
///     ComboView view(control, model);
///     view.Expand(*view.ItemAt(0));
///     view.GeometryOf(1)->Label();   // where its first child shows its label
///     view.Notify(ComboListChanged);
class ComboView {
public:
    ComboView(CListCtrl& control, ComboModel& model) : m_control(control), m_model(model) {}

    CListCtrl& Control() const { return m_control; }
    ComboModel& Model() const { return m_model; }
    bool IsDropDown() const { return m_model.Binding().Mode() == eDropDown; }

    const ComboColumns& Columns() const { return m_columns; }
    void ShowColumns(const ComboColumns& columns);
    void RemoveColumns();
    /// All columns of one width, over the whole list.
    void LayColumns();

    /// Null for no such row.
    ComboTreeItem* ItemAt(int row) const { return m_model.Tree().ItemAt(row); }
    /// None for no such row. Asks the host, which may end the binding.
    std::optional<ComboRowGeometry> GeometryOf(int row) const;
    /// The control's own handling of a message, without that of its class.
    LRESULT PassToList(UINT message, WPARAM wParam, LPARAM lParam) const;
    /// Does nothing for no such row.
    void RedrawRow(int row);
    void Expand(ComboTreeItem& item);
    void Collapse(ComboTreeItem& item);

    /// What the list control does not know of itself, for whoever does not see it. Asks the host about check
    /// boxes.
    void Complete(view::ListView& list, int currentRow) const;
    void Complete(view::CellView& cell) const;

    /// Null: the parent window of the control.
    void SetOwner(HWND owner) { m_owner = owner; }
    HWND Owner() const;
    /// WM_COMMAND to the owner: `code` in the high word, the control id in the low one, the control in
    /// lParam.
    void Notify(UINT code);

private:
    CListCtrl& m_control;
    ComboModel& m_model;
    ComboColumns m_columns;
    HWND m_owner = nullptr;
};

} // namespace korvel::internal

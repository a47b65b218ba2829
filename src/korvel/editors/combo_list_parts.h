#pragma once

#include "korvel/editors/combo_commands.h"
#include "korvel/editors/combo_input.h"
#include "korvel/editors/combo_list.h"

#include <optional>
#include <set>

namespace korvel::internal {

/// What a CComboList is made of. The rows of the control follow those of the model.
struct ComboListParts final : ComboRowSink {
    ComboListParts(CComboList& comboList, EComboListMode mode);

    /// Shows the enumeration of the binding. What the host throws passes through, and nothing is shown then.
    void Open();
    /// Empties the list and forgets what it was about.
    void Close();

    bool Shows(const IEnumValue* enumeration) const;
    /// The new entry becomes the current row. Nothing for another enumeration.
    void OnEntryAdded(const IEnumValue* enumeration, long id);

    void OnRowsAdded(ComboTree::RowRange rows) override;
    void OnRowsHidden(ComboTree::RowRange rows) override;
    void OnRowsRemoved(ComboTree::RowRange rows) override;
    void OnItemMoved(const ComboTreeItem& from, ComboTreeItem& to) override;
    /// Adds to what the list control has said of itself in LVM_KORVEL_READLIST or LVM_KORVEL_READCELL.
    void Complete(UINT message, LPARAM lParam) const;
    /// As high as the rows need; does nothing without a field.
    void PlaceBelowField();

    void Build();

    ComboModel model;
    ComboView view;
    ComboWriteBack writeBack;
    ComboInput input;
    ComboCommands commands;
    std::set<EDataTyps> sinkTypes;
    std::optional<CRect> field; // that the list has dropped below
    int highest = HighestDropDown;
    IDateFormatChangedImp<CComboList> dateSink;
    IAngleFormatChangedImp<CComboList> angleSink;
    INumberFormatChangedImp<CComboList> numberSink;
    IEnumSinkImp<CComboList> enumSink;
};

} // namespace korvel::internal

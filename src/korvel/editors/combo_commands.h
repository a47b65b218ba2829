#pragma once

#include "korvel/editors/combo_input.h"
#include "korvel/editors/combo_list_codes.h"
#include "korvel/window/core/display.h"

#include <string>
#include <vector>

namespace korvel::internal {

/// The commands of a list: its context menu and what its entries do, and the editing of labels.
class ComboCommands {
public:
    ComboCommands(ComboView& view, ComboInput& input) : m_view(view), m_input(input), m_model(view.Model()) {}

    /// Bits of ECommandList.
    void Enable(std::uint32_t commands, bool enable);
    /// What the names of new entries begin with.
    void SetBaseName(std::string name) { m_baseName = std::move(name); }

    /// Makes the row at the point current and shows the menu there, if it has entries.
    void TrackMenu(CPoint point);
    /// False for a number that is no command, and while nothing is shown.
    bool Run(UINT command);
    /// F2 renames and Delete removes the current row where the menu would offer it. False for other keys.
    bool RunByKey(UINT key);
    /// The result of LVN_BEGINLABELEDIT: 1 forbids the edit.
    LRESULT OnBeginLabelEdit(int row);
    /// The result of LVN_ENDLABELEDIT: 1 when the row has its new label. `text` is null after Escape.
    LRESULT OnEndLabelEdit(int row, const char* text);

private:
    std::vector<MenuEntry> BuildMenu(const ComboTreeItem* item) const;
    void AddEntriesForAdding(std::vector<MenuEntry>& menu) const;
    bool IsEnabled(std::uint32_t command, EnumFlags flag) const;
    /// False for null.
    bool MayDelete(const ComboTreeItem* item) const;
    bool MayRename(const ComboTreeItem* item) const;
    ComboTreeItem* CurrentItem() const;
    ComboTreeItem* CurrentGroup() const;
    bool TakesRootItems() const;

    void PassOnDataSheet();
    void AddRootItem();
    void AddRootGroup();
    void AddItem();
    void AddGroup();
    void Delete();
    void Rename();
    void AddEntryUnder(ComboTreeItem& parent);
    void AddGroupUnder(ComboTreeItem& parent);

    ComboView& m_view;
    ComboInput& m_input; // which row is current
    ComboModel& m_model;
    std::uint32_t m_enabled = 0;
    std::string m_baseName;
};

} // namespace korvel::internal

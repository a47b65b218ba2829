#pragma once

#include "korvel/window/base/control_messages.h"
#include "korvel/window/controls/combo_entries.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_record.h"

namespace korvel::internal {

/// The state of a combo box. What it shows in its line is the text of its field, or of its window when it has
/// none.
class ComboBoxState : public ControlState {
public:
    explicit ComboBoxState(WindowRecord& window) : record(window) {}

    view::Kind Kind() const override { return view::Kind::ComboBox; }
    view::ChoiceView Choice() const override;
    CString ChoiceText(int index) const override;
    void Value(double value) override;
    void Dropped(bool isOpen) override;

    bool HasEdit() const { return (record.style & CBS_TYPEMASK) != CBS_DROPDOWNLIST; }
    bool IsSimple() const { return (record.style & CBS_TYPEMASK) <= CBS_SIMPLE; }

    WindowRecord& record;
    HWND edit = nullptr; // the text field
    ComboEntries entries;
    int current = ComboEntries::None;
    int currentAtDrop = ComboEntries::None; // what Escape brings back
    CString textAtDrop; // of the field; what Escape brings back where no entry was current
    int listHeight = 0; // pixels of the drop-down list
    bool isDropped = false;
    bool isSettingText = false; // a program sets the text of the field, which is no typing
};

} // namespace korvel::internal

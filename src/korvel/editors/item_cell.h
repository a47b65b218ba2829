#pragma once

#include "korvel/editors/grid_option.h"
#include "korvel/values/variant_value.h"
#include "korvel/window/base/control_view.h"
#include "korvel/window/core/dc.h"

namespace korvel::internal {

/// What edits the value of an item window.
enum class ItemEditor { None, Flag, List, Color, File, Date, Text };

/// None for groups, void, and lists without an enumeration. A file without a chooser is typed.
ItemEditor ItemEditorOf(const CVariantValue& value);

/// A button in the right square of an item window, which has clicks of its own.
enum class ItemButton { None, AngleUnit, Dice, Drop, Browse };

ItemButton ItemButtonOf(const CVariantValue& value);

/// The value of an item window as the cell of a grid shows it.
struct ItemCell {
    CRect rect;
    GridOptions options;
    bool isEnabled = true;
    bool hasFocus = false;

    /// What an enumeration throws leaves the cell without a text.
    void Paint(CDC& dc, const CVariantValue& value) const;
    /// The same for whoever does not see it.
    view::ValueView Read(const CVariantValue& value) const;
    /// Whether a point is on the value's button.
    bool IsOnButton(const CVariantValue& value, CPoint point) const;
    /// `room` without the value's button.
    CRect BesideButton(const CVariantValue& value, CRect room) const;
};

} // namespace korvel::internal

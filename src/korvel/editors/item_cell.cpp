#include "korvel/editors/item_cell.h"

#include "korvel/editors/cell_conversion.h"
#include "korvel/editors/cell_geometry.h"
#include "korvel/editors/cell_painter.h"
#include "korvel/window/core/window.h"

#include <new>

namespace korvel::internal {

namespace {

CString TextOf(const CVariantValue& value, GridOptions options) {
    const TextForm form =
        options.Has(EGridOption::AngleUnit) ? TextForm::WithAngleUnit : TextForm::UserFacing;
    try {
        CString text;
        CONTROLTYPE control = ctEdit;
        if (value.Type == DT_Group)
            text = value.ToText();
        ConvertCell(value, form, text, control);
        UnescapeDashes(value, text);
        return text;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (...) {
        return {};
    }
}

// A file has one button here, and a formula, which a grid shows on a button, is typed.
CONTROLTYPE ControlOf(const CVariantValue& value) {
    const auto conversion = FindCellConversion(value.Type);
    const CONTROLTYPE control = conversion ? conversion->control : ctEdit;
    if (control == ctFile)
        return value.EnumContext ? ctButton : ctEdit;
    return control == ctButton ? ctEdit : control;
}

CellLook LookOf(const CVariantValue& value, bool isEnabled) {
    CellLook look;
    look.control = ControlOf(value);
    if (look.control == ctButton && !isEnabled)
        look.control = ctEdit; // in a grid, a button may be pressed all the same
    look.isEnabled = isEnabled;
    look.isChosen = true;
    look.swatch = value.Value.UInt;
    look.checkState = DFCS_BUTTONCHECK;
    if (value.Value.Bool)
        look.checkState |= DFCS_CHECKED;
    if (!isEnabled)
        look.checkState |= DFCS_INACTIVE;
    return look;
}

} // namespace

ItemEditor ItemEditorOf(const CVariantValue& value) {
    if (!FindCellConversion(value.Type))
        return ItemEditor::None;
    switch (ControlOf(value)) {
    case ctCheck:
        return ItemEditor::Flag;
    case ctList:
        return value.EnumValue ? ItemEditor::List : ItemEditor::None;
    case ctColor:
    case ctColorAlpha:
        return ItemEditor::Color;
    case ctButton:
        return ItemEditor::File;
    case ctDate:
        return ItemEditor::Date;
    default:
        return ItemEditor::Text;
    }
}

ItemButton ItemButtonOf(const CVariantValue& value) {
    switch (ControlOf(value)) {
    case ctAngle:
        return ItemButton::AngleUnit;
    case ctRandom:
        return ItemButton::Dice;
    case ctList:
        return ItemButton::Drop;
    case ctButton:
        return ItemButton::Browse;
    default:
        return ItemButton::None;
    }
}

void ItemCell::Paint(CDC& dc, const CVariantValue& value) const {
    const COLORREF ground = GetSysColor(isEnabled ? COLOR_WINDOW : COLOR_BTNFACE);
    dc.FillSolidRect(rect, ground);
    CellPainter painter(
        dc, [&dc](const CRect& part, UINT type, UINT state) { dc.DrawFrameControl(part, type, state); });
    const CRect room = painter.DrawControl(LookOf(value, isEnabled), rect);
    painter.DrawText(TextOf(value, options), room, ground, CellGround::Plain, isEnabled);
    if (hasFocus)
        dc.DrawFocusRect(rect);
}

view::ValueView ItemCell::Read(const CVariantValue& value) const {
    view::ValueView view;
    view.text = TextOf(value, options);
    view.readOnly = !isEnabled || ItemEditorOf(value) == ItemEditor::None;
    if (ItemEditorOf(value) == ItemEditor::Flag)
        view.checked = value.Value.Bool;
    return view;
}

bool ItemCell::IsOnButton(const CVariantValue& value, CPoint point) const {
    return ItemButtonOf(value) != ItemButton::None && RightSquare(rect).PtInRect(point);
}

CRect ItemCell::BesideButton(const CVariantValue& value, CRect room) const {
    if (ItemButtonOf(value) != ItemButton::None)
        room.right = std::min(room.right, RightSquare(rect).left);
    return room;
}

} // namespace korvel::internal

#include "korvel/grid/edit_decision.h"

#include "korvel/editors/cell_conversion.h"
#include "korvel/editors/cell_geometry.h"

namespace korvel::internal {

namespace {

using Info = CItemInfo;

// The control that cells of a type have; none for a type without a cell.
std::optional<Info::CONTROLTYPE> ControlOf(EDataTyps type) {
    if (type == DT_Group)
        return Info::ctButton;
    const auto conversion = FindCellConversion(type);
    return conversion ? std::optional(conversion->control) : std::nullopt;
}

// These squares are clicked whatever else the cell shows.
bool IsInLeftSquare(Info::CONTROLTYPE control) {
    return control == Info::ctCheck || Info::IsSwatch(control);
}

EditDecision OpenField(const CRect& cell, int right, CellAction action = CellAction::EditText) {
    CRect field = InsideOfCell(cell);
    field.right = right;
    if (field.IsRectEmpty())
        return {};
    return {action, field};
}

EditDecision DecideSquare(const CellClick& click, CellAction action) {
    const bool isHit = click.isEditable && LeftSquare(click.cell).PtInRect(click.point);
    return {isHit ? action : CellAction::None};
}

EditDecision DecideBesideSpin(const CRect& cell) {
    EditDecision decision = OpenField(cell, SpinArea(cell).left - 1);
    decision.action = CellAction::EditBesideSpin;
    decision.spin = SpinArea(cell);
    return decision;
}

EditDecision DecideFile(const CellClick& click) {
    if (BrowseSquare(click.cell).PtInRect(click.point))
        return {click.isEditable ? CellAction::BrowseFile : CellAction::None};
    if (OpenSquare(click.cell).PtInRect(click.point))
        return {CellAction::OpenFile};
    return click.isEditable ? OpenField(click.cell, OpenSquare(click.cell).left, CellAction::EditPath)
                            : EditDecision();
}

EditDecision DecideButton(const CellClick& click) {
    if (!RightSquare(InsideOfCell(click.cell)).PtInRect(click.point))
        return {};
    return {click.type == DT_Group ? CellAction::PressGroup : CellAction::PressButton};
}

// A field beside a square at the right edge that has a click of its own.
EditDecision DecideBesideSquare(const CellClick& click, CellAction action, int gap) {
    const CRect square = RightSquare(click.cell);
    return square.PtInRect(click.point) ? EditDecision{action} : OpenField(click.cell, square.left - gap);
}

EditDecision DecideEditable(const CellClick& click, Info::CONTROLTYPE control) {
    const CRect inside = InsideOfCell(click.cell);
    switch (control) {
    case Info::ctEdit:
        return OpenField(click.cell, inside.right);
    case Info::ctAngle:
        return DecideBesideSquare(click, CellAction::ChangeAngleUnit, 1);
    case Info::ctRandom:
        return DecideBesideSquare(click, CellAction::RollDice, 0);
    case Info::ctList:
        return {CellAction::DropList, inside};
    case Info::ctDate:
        // One row of pixels higher than the cell on both sides, so that the picker's own frame has room.
        return {CellAction::PickDate, {inside.left, click.cell.top - 1, inside.right, click.cell.bottom + 1}};
    case Info::ctRange:
        return DecideBesideSpin(click.cell);
    default:
        return {};
    }
}

} // namespace

bool OpensControl(CellAction action) {
    switch (action) {
    case CellAction::EditText:
    case CellAction::EditPath:
    case CellAction::EditBesideSpin:
    case CellAction::PickDate:
    case CellAction::DropList:
        return true;
    default:
        return false;
    }
}

EditDecision DecideEdit(const CellClick& click) {
    const auto control = ControlOf(click.type);
    if (!control || (!IsInLeftSquare(*control) && *control != click.control))
        return {};
    switch (*control) {
    case Info::ctCheck:
        return DecideSquare(click, CellAction::ToggleFlag);
    case Info::ctColor:
    case Info::ctColorAlpha:
        return DecideSquare(click, CellAction::ChooseColor);
    case Info::ctFile:
        return DecideFile(click);
    case Info::ctButton:
        return DecideButton(click);
    default:
        return click.isEditable ? DecideEditable(click, *control) : EditDecision();
    }
}

CRect ControlSquare(EDataTyps type, const CRect& cell) {
    const auto control = ControlOf(type);
    return control && IsInLeftSquare(*control) ? LeftSquare(cell) : RightSquare(cell);
}

std::optional<CPoint> PointOfKey(CellKey key, EDataTyps type, bool canTypePath, const CRect& cell) {
    const auto control = type == DT_Group ? std::nullopt : ControlOf(type);
    if (!control)
        return std::nullopt;
    const CPoint start{cell.left, cell.top + cell.Height() / 2};
    switch (key) {
    case CellKey::Toggle:
        return *control == Info::ctCheck ? std::optional(start) : std::nullopt;
    case CellKey::Drop:
        return *control == Info::ctList ? std::optional(start) : std::nullopt;
    case CellKey::Open:
        break;
    }
    if (*control == Info::ctCheck)
        return std::nullopt;
    const bool isAtRight = *control == Info::ctButton || (*control == Info::ctFile && !canTypePath);
    return isAtRight ? CPoint{InsideOfCell(cell).right - 1, start.y} : start;
}

} // namespace korvel::internal

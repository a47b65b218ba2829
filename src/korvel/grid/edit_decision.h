#pragma once

#include "korvel/grid/item_info.h"
#include "korvel/values/data_types.h"

#include <optional>

namespace korvel::internal {

/// What a click in a cell means.
enum class CellAction {
    None,
    EditText,
    EditPath, ///< only where the file value lets the user type a path
    EditBesideSpin,
    PickDate,
    DropList,
    ToggleFlag,
    ChooseColor,
    ChangeAngleUnit,
    BrowseFile,
    OpenFile,
    PressButton,
    PressGroup,
    RollDice,
};

/// Whether the action opens a control over the cell.
bool OpensControl(CellAction action);

/// A click in a cell of a member.
struct CellClick {
    EDataTyps type = DT_Void;
    CItemInfo::CONTROLTYPE control = CItemInfo::ctEdit; ///< what the cell shows
    bool isEditable = false;                            ///< the member
    CRect cell;
    CPoint point;
};

struct EditDecision {
    CellAction action = CellAction::None;
    CRect field{}; ///< where the control that opens goes; empty: there is no room for one
    CRect spin{};
};

/// Nothing when the cell shows another control than the type has. Flags and colors are decided by the type
/// alone.
///
///     DecideEdit({DT_AngleDouble, CItemInfo::ctAngle, true, {0, 0, 100, 20}, {90, 10}});
///     // ChangeAngleUnit: the point is in the square of the unit
EditDecision DecideEdit(const CellClick& click);

/// The square of a cell in which the type has a click of its own: the left one for flags and colors, else the
/// right one.
CRect ControlSquare(EDataTyps type, const CRect& cell);

/// What a key asks for in a cell.
enum class CellKey { Open, Toggle, Drop };

/// Where a click does what the key asks for; none when the type knows no such thing. `canTypePath` is about
/// files alone.
std::optional<CPoint> PointOfKey(CellKey key, EDataTyps type, bool canTypePath, const CRect& cell);

} // namespace korvel::internal

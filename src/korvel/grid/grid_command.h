#pragma once

namespace korvel {

/// What an attribute grid does for its selected row when its context menu or a menu of the host sends it
/// WM_COMMAND with the number and without a control.
///
///     grid.SendMessageA(WM_COMMAND, static_cast<WPARAM>(GridCommand::RemoveMember));
///
/// The grid asks the object of the row for the flag of the member that allows removing, renaming or
/// protecting it. A new member, a change of the type and the opening of a file are done unasked: whoever
/// offers them asks before.
enum class GridCommand : unsigned {
    ChangeToInt = 15010,
    ChangeToDouble = 15011,
    ChangeToFloat = 15012,
    ChangeToString = 15013,
    ChangeToLong = 15014,
    ChangeToAngleDouble = 15015,
    ChangeToAngleFloat = 15016,
    ConfigureFormats = 15017,
    ChangeToUInt = 15020,
    FirstObjectCommand = 15021, ///< to the last one: what objects have put into the context menu
    LastObjectCommand = 15040,
    AddMember = 15041,
    RemoveMember = 15042,
    RenameMember = 15043,
    CopyRow = 15049,
    CopyTree = 15050,
    OpenFile = 15051,
    CopyValue = 15053,
    CopyColumn = 15054,
    OpenFolder = 15055,
    ToggleWriteProtection = 18039,
};

} // namespace korvel

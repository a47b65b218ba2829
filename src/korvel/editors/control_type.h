#pragma once

namespace korvel {

/// The editor that a cell opens; hosts name it as a member of CItemInfo.
enum CONTROLTYPE {
    ctEdit = 0,
    ctCombo = 1, // an arrow on the selected row; no data type has it
    ctCheck = 2,
    ctColor = 3,
    ctColorAlpha = 4,
    ctAngle = 5,
    ctDate = 6,
    ctList = 7,
    ctFile = 8,
    ctRange = 10,
    ctButton = 12,
    ctRandom = 13,
};

} // namespace korvel

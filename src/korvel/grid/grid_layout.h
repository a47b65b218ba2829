#pragma once

namespace korvel {

enum EGridLayout {
    eSingleAttrColumn = 0, // a row is a member: its name, its value
    eMultiColumn = 1,      // a row is an object: its members are the columns
};

struct SColumnInfo {
    int column = 0;
    int width = 0; // pixels
};

} // namespace korvel

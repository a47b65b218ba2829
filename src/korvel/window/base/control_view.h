#pragma once

#include "korvel/window/base/types.h"

namespace korvel {
struct Image;
}

/// What a display reads of the control in a window.
namespace korvel::view {

/// How a display shows a window: natively, or as a plain surface that input::Paint fills.
enum class Kind { Painted, List, Edit, Button, Static };

/// The sizes between which the user may size a window.
struct SizeRange {
    static constexpr int NoLimit = 1 << 24; // no window is larger

    CSize least;
    CSize most{NoLimit, NoLimit};
};

struct EditView {
    int selectionStart = 0; // bytes of the text
    int selectionEnd = 0;
    bool readOnly = false;
};

/// Where a list is scrolled to, and how far it can be.
struct ScrollView {
    int x = 0; // pixels
    int contentWidth = 0;
    int pageWidth = 0;
    int topRow = 0;
    int rowCount = 0;
    int rowsPerPage = 0; // whole rows
};

/// A standard scroll bar of a plain window.
struct BarView {
    bool shown = false;
    int minimum = 0;
    int maximum = 0;
    int position = 0;
};

struct ButtonView {
    int check = 0;                  // 1: checked
    const Image* picture = nullptr; // before the text; lives as long as the button shows it
};

} // namespace korvel::view

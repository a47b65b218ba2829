#pragma once

#include "korvel/window/base/types.h"

#include <optional>

namespace korvel {
struct Image;
}

/// What a display reads of the control in a window.
namespace korvel::view {

/// How a display shows a window: natively, or as a plain surface that input::Paint fills.
enum class Kind { Painted, List, Edit, Button, Static, ComboBox, Progress, Slider, Date, Tabs };

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
    bool canUndo = false; // the last change, which was no new text of a program
    int leftMargin = 0;   // pixels between the border and the text
    int rightMargin = 0;
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

/// The entries of a combo box, or the tabs of a tab control.
struct ChoiceView {
    int count = 0;
    int current = -1;
    int rowsInList = 0; // whole rows of the drop-down list
    bool isDropped = false;
};

/// Where a progress bar or a slider is.
struct RangeView {
    int lower = 0;
    int upper = 0; // not below `lower`
    int position = 0;
    int line = 1; // what an arrow key moves
    int page = 1;
    int tick = 1;           // from one mark to the next
    bool isMarquee = false; // a progress bar that shows no position, only that something goes on
};

/// A date control; dates are days since 30 December 1899 (platform/calendar.h).
struct DateView {
    double date = 0;
    double first = 0; // the range that the user may choose from
    double last = 0;
    bool isNone = false; // it says that there is no date
    bool isDropped = false;
    CString picture; // as in platform/regional_settings.h: "dd.MM.yyyy"
};

/// What a window that paints itself shows, where that is one value: its answer to WM_KORVEL_READVALUE.
struct ValueView {
    CString text;
    bool readOnly = true;        // nothing edits it
    std::optional<bool> checked; // it shows a check box in place of a text
};

} // namespace korvel::view

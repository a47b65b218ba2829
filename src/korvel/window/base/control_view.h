#pragma once

/// What a display reads of the control in a window.
namespace korvel::view {

/// How a display shows a window: natively, or as a plain surface that input::Paint fills.
enum class Kind { Painted, List, Edit, Button, Static };

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

} // namespace korvel::view

#pragma once

#include "korvel/window/base/types.h"

#include <span>

namespace korvel {

/// A place in dialog units: a quarter of the average width of a character across, an eighth of the height of
/// a line down, so that a dialog grows with the font of the display.
struct DialogPlace {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

/// One control of a dialog. WS_CHILD and WS_VISIBLE are added to its style.
struct DialogItem {
    const char* className;
    const char* text;
    int id;
    UINT style;
    DialogPlace place; // in the client area
    UINT exStyle = 0;
};

/// A dialog as data, with its controls in the order of Tab. The size is that of the client area; the place is
/// relative to the client area of the parent (with DS_ABSALIGN: to the screen). A dialog with DS_CENTER, or
/// with the place (0, 0), is centered over its owner.
///
///     constexpr DialogItem Items[] = {
///         {"STATIC", "&Name:", 10, 0, {7, 9, 40, 8}},
///         {"EDIT", "", 11, WS_TABSTOP | WS_BORDER, {50, 7, 120, 14}},
///         {"BUTTON", "OK", IDOK, WS_TABSTOP | BS_DEFPUSHBUTTON, {120, 28, 50, 14}},
///     };
///     constexpr DialogTemplate Rename{300, "Rename", WS_POPUP | WS_CAPTION | WS_SYSMENU, {0, 0, 177, 49}, Items};
///
/// Texts are in the library's code page. What the pointers and the span refer to must outlive the module.
struct DialogTemplate {
    UINT id;
    const char* caption;
    UINT style;
    DialogPlace place;
    std::span<const DialogItem> items;
    UINT exStyle = 0;
    const char* name = nullptr; // of a template that is known by a name, compared without case
};

} // namespace korvel

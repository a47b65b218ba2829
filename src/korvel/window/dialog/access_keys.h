#pragma once

#include "korvel/window/base/types.h"

/// The letters that "&" marks in the texts of labels, group boxes and buttons.
namespace korvel::internal {

/// Looks, from after the control with the focus and going round, for a visible, enabled control of the dialog
/// that has this access key, and acts on it: a button is clicked, a check box or radio button gets the focus
/// and is clicked, a label gives the focus to the next tab stop. When several have the key, they only get the
/// focus in turn. False: there is none.
bool PressAccessKey(HWND dialog, const CString& character);

} // namespace korvel::internal

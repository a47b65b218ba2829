#pragma once

#include "korvel/window/app/dialog_template.h"
#include "korvel/window/base/messages.h"

#include <array>

/// The dialog that edits one pair of a code list, in any language.
namespace korvel::internal {

inline constexpr UINT EditCodeDialog = 15059;
inline constexpr int CodeField = 15064;
inline constexpr int ValueField = 15065;
inline constexpr int CodeLabel = 15066;
inline constexpr int ValueLabel = 15067; // "$PLACEHOLDER" in it is replaced

struct EditCodeTexts {
    const char* code;
    const char* value;
    const char* cancel;
};

constexpr std::array<DialogItem, 6> EditCodeItems(const EditCodeTexts& texts) {
    return {{{"STATIC", texts.code, CodeLabel, 0, {7, 9, 90, 8}},
             {"EDIT", "", CodeField, WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL, {100, 7, 133, 14}},
             {"STATIC", texts.value, ValueLabel, 0, {7, 28, 90, 8}},
             {"EDIT", "", ValueField, WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL, {100, 26, 133, 14}},
             {"BUTTON", "OK", IDOK, WS_TABSTOP | BS_DEFPUSHBUTTON, {129, 50, 50, 14}},
             {"BUTTON", texts.cancel, IDCANCEL, WS_TABSTOP, {183, 50, 50, 14}}}};
}

/// The caption is the dialog's own.
constexpr DialogTemplate EditCodeTemplate(std::span<const DialogItem> items) {
    return {EditCodeDialog, "", WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME, {0, 0, 240, 71}, items};
}

} // namespace korvel::internal

#pragma once

#include "korvel/window/app/dialog_template.h"
#include "korvel/window/base/messages.h"

namespace korvel::internal {

constexpr int AlphaTemplateId = 15000;
constexpr int AlphaColorId = 4044;
constexpr int AlphaSliderId = 4045;
constexpr int AlphaNumberId = 4046;

/// The words of CColorAplhaDlg in one language, in the library's code page.
struct AlphaDialogWords {
    const char* caption;
    const char* color;
    const char* transparency;
    const char* opaque;
    const char* transparent;
    const char* ok;
    const char* cancel;
};

/// In the library itself.
inline constexpr AlphaDialogWords GermanAlphaWords = {.caption = "Eingabe Farbe",
                                                      .color = "Farbe:",
                                                      .transparency = "Transparenz",
                                                      .opaque = "undurchsichtig",
                                                      .transparent = "durchsichtig",
                                                      .ok = "OK",
                                                      .cancel = "Abbrechen"};

/// In the language module.
inline constexpr AlphaDialogWords EnglishAlphaWords = {.caption = "Color",
                                                       .color = "Color:",
                                                       .transparency = "Transparency",
                                                       .opaque = "opaque",
                                                       .transparent = "transparent",
                                                       .ok = "OK",
                                                       .cancel = "Cancel"};

/// The dialog with these words.
template <const AlphaDialogWords& Words>
class AlphaDialogLayout {
    static constexpr UINT Frame = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
    static constexpr UINT Button = WS_TABSTOP | BS_PUSHBUTTON;
    static constexpr UINT DefaultButton = WS_TABSTOP | BS_DEFPUSHBUTTON;
    static constexpr UINT Swatch = WS_TABSTOP | BS_OWNERDRAW;

    static constexpr DialogItem Items[] = {
        {"STATIC", Words.color, -1, 0, {13, 11, 60, 10}},
        {"BUTTON", "", AlphaColorId, Swatch, {77, 7, 60, 16}},
        {"BUTTON", Words.transparency, -1, BS_GROUPBOX, {7, 30, 266, 36}},
        {"STATIC", Words.opaque, -1, 0, {13, 46, 60, 10}},
        {"msctls_trackbar32", "", AlphaSliderId, WS_TABSTOP, {77, 42, 108, 16}},
        {"STATIC", Words.transparent, -1, 0, {191, 46, 52, 10}},
        {"STATIC", "", AlphaNumberId, 0, {246, 46, 16, 10}},
        {"STATIC", "%", -1, 0, {262, 46, 8, 10}},
        {"BUTTON", Words.ok, IDOK, DefaultButton, {153, 73, 58, 16}},
        {"BUTTON", Words.cancel, IDCANCEL, Button, {215, 73, 58, 16}},
    };

public:
    static constexpr DialogTemplate Template{AlphaTemplateId, Words.caption, Frame, {0, 0, 280, 96}, Items};
};

} // namespace korvel::internal

#pragma once

#include "korvel/dialogs/dialog_ids.h"
#include "korvel/dialogs/dialog_words.h"
#include "korvel/window/app/dialog_template.h"
#include "korvel/window/base/control_messages.h"

namespace korvel::internal {

/// The dialogs with these words: each language has the same controls at the same places.
///
///     CommonDialogs<EnglishWords>::Templates
template <const DialogWords& Words>
class CommonDialogs {
    static constexpr UINT Frame = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
    static constexpr UINT Unclosable = WS_POPUP | WS_CAPTION | WS_VISIBLE | DS_MODALFRAME;
    static constexpr UINT Sizable = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME;
    static constexpr UINT Button = WS_TABSTOP | BS_PUSHBUTTON;
    static constexpr UINT DefaultButton = WS_TABSTOP | BS_DEFPUSHBUTTON;
    static constexpr UINT Field = WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL;
    static constexpr UINT Lines = WS_TABSTOP | WS_BORDER | WS_VSCROLL | ES_MULTILINE | ES_WANTRETURN;
    static constexpr UINT List = WS_TABSTOP | WS_BORDER | LVS_REPORT | LVS_SHOWSELALWAYS;

    static constexpr DialogItem CodeList[] = {
        {"SysListView32", "", CodeListId, List, {7, 7, 326, 130}},
        {"BUTTON", Words.add, AddCodesId, Button, {7, 142, 65, 16}},
        {"BUTTON", Words.edit, EditCodesId, Button, {75, 142, 65, 16}},
        {"BUTTON", Words.remove, RemoveCodesId, Button, {143, 142, 61, 16}},
        {"BUTTON", Words.moveUp, MoveUpCodeId, Button, {210, 142, 60, 16}},
        {"BUTTON", Words.moveDown, MoveDownCodeId, Button, {273, 142, 60, 16}},
        {"BUTTON", Words.ok, IDOK, DefaultButton, {213, 168, 58, 16}},
        {"BUTTON", Words.cancel, IDCANCEL, Button, {275, 168, 58, 16}},
    };
    static constexpr DialogItem EditCodeList[] = {
        {"STATIC", Words.code, CodeLabelId, 0, {7, 10, 68, 10}},
        {"EDIT", "", CodeEditId, Field, {79, 7, 150, 14}},
        {"STATIC", "$PLACEHOLDER:", ValueLabelId, 0, {7, 29, 68, 10}},
        {"EDIT", "", ValueEditId, Field, {79, 26, 150, 14}},
        {"BUTTON", Words.ok, IDOK, DefaultButton, {109, 49, 58, 16}},
        {"BUTTON", Words.cancel, IDCANCEL, Button, {171, 49, 58, 16}},
    };
    static constexpr DialogItem EditAttributs[] = {
        {"STATIC", Words.name, AttributeNameLabelId, 0, {7, 10, 50, 10}},
        {"EDIT", "", AttributeNameId, Field, {61, 7, 192, 14}},
        {"STATIC", Words.type, AttributeTypeLabelId, 0, {7, 29, 50, 10}},
        {"COMBOBOX", "", AttributeTypeId, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, {61, 26, 192, 14}},
        {"STATIC", Words.value, AttributeValueLabelId, 0, {7, 48, 50, 10}},
        {"KorvelItem", "", AttributeValueId, WS_TABSTOP | WS_BORDER, {61, 45, 192, 14}},
        {"BUTTON", Words.writeProtected, AttributeProtectId, WS_TABSTOP | BS_AUTOCHECKBOX, {61, 64, 192, 12}},
        {"STATIC", "", AttributeProblemId, SS_NOPREFIX, {7, 81, 246, 20}},
        {"BUTTON", Words.ok, IDOK, DefaultButton, {133, 107, 58, 16}},
        {"BUTTON", Words.cancel, IDCANCEL, Button, {195, 107, 58, 16}},
    };
    static constexpr DialogItem Progress[] = {
        {"msctls_progress32", "", ProgressBarId, PBS_SMOOTH, {7, 7, 306, 12}},
        {"STATIC", "STATUS", ProgressStatusId, SS_NOPREFIX, {7, 24, 306, 10}},
        {"BUTTON", Words.cancel, CancelProcessingId, Button, {255, 39, 58, 16}},
    };
    static constexpr DialogItem Text[] = {
        {"RICHEDIT50W", "", TextEditId, Lines, {7, 7, 286, 150}},
        {"BUTTON", Words.ok, IDOK, DefaultButton, {173, 164, 58, 16}},
        {"BUTTON", Words.cancel, IDCANCEL, Button, {235, 164, 58, 16}},
    };

public:
    static constexpr DialogTemplate Templates[] = {
        {CodeListTemplateId, "", Frame, {0, 0, 340, 191}, CodeList},
        {EditCodeListTemplateId, "", Frame, {0, 0, 236, 72}, EditCodeList},
        {EditAttributsTemplateId, Words.newAttribute, Sizable, {0, 0, 260, 130}, EditAttributs},
        {ProgressTemplateId, Words.processing, Unclosable, {0, 0, 320, 62}, Progress},
        {TextTemplateId, "", Frame, {0, 0, 300, 187}, Text},
    };
};

} // namespace korvel::internal

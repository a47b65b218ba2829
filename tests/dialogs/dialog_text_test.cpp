#include "korvel/dialogs/dialog_text.h"
#include "support/dialog_fixture.h"

namespace korvel {
namespace {

constexpr int TextField = 2110;

using DialogTextTest = DialogTest;

TEST_F(DialogTextTest, TakesWhatWasChangedAndNoOtherByte) {
    const CString mixed = "one\ntwo\r\nthree\rend\n";
    CDialogText dialog(&frame);
    const auto field = [&] { return GetDlgItem(dialog.m_hWnd, TextField); };
    const auto type = [&](UINT key, const CString& character) {
        return [this, field, key, character] {
            SetFocus(field());
            korvel::SendMessageA(field(), EM_SETSEL, 1, 1);
            Press(key, character);
        };
    };
    const auto fill = [&](const CString& text) {
        return [field, text] { korvel::SetWindowTextA(field(), text); };
    };
    const auto ok = [&] { korvel::SendMessageA(GetDlgItem(dialog.m_hWnd, IDOK), BM_CLICK, 0, 0); };
    const auto cancel = [&] { Press(VK_ESCAPE); };
    for (const auto& [border, text, change, end, isDirty, result] :
         Table<CString, std::function<void()>, std::function<void()>, bool, CString>{
             {"nothing", mixed, [] {}, ok, false, mixed},
             {"a letter", mixed, type('X', "X"), ok, true, "oXne\ntwo\r\nthree\rend\n"},
             {"a line", mixed, type(VK_RETURN, "\r"), ok, true, "o\r\nne\ntwo\r\nthree\rend\n"},
             {"cancelled", mixed, type('X', "X"), cancel, true, mixed},
             {"all taken out", mixed, fill(""), ok, true, ""},
             {"into nothing", "", fill("\n"), ok, true, "\n"}}) {
        SCOPED_TRACE(border);
        dialog.SetCaption("Description");
        dialog.SetText(text);
        display.Then([&, doIt = change] {
            EXPECT_EQ(dialog.GetWindowTextA(), "Description");
            EXPECT_FALSE(dialog.GetIsDirty()) << "filling it is no change";
            doIt();
        });
        display.Then(end);
        dialog.DoModal();
        EXPECT_EQ(dialog.GetIsDirty(), isDirty);
        EXPECT_EQ(dialog.GetText(), result);
    }
}

} // namespace
} // namespace korvel

#include "korvel/window/controls/rich_edit_ctrl.h"
#include "support/control_fixture.h"

namespace korvel {
namespace {

class RichEditTest : public ControlTest {
protected:
    void Make(UINT mask, UINT style = ES_MULTILINE) {
        edit.DestroyWindow();
        edit.Create(WS_CHILD | WS_VISIBLE | style, {0, 0, 100, 60}, &parent, 5);
        edit.SetEventMask(mask);
    }

    CRichEditCtrl edit;
};

TEST_F(RichEditTest, TellsWhatItsMaskAsksFor) {
    for (const auto& [border, mask, style, codes] :
         Table<UINT, UINT, Codes>{{"nothing", ENM_NONE, ES_MULTILINE, {}},
                                  {"changes", ENM_CHANGE, ES_MULTILINE, {EN_CHANGE}},
                                  {"both", ENM_CHANGE | ENM_UPDATE, ES_MULTILINE, {EN_UPDATE, EN_CHANGE}},
                                  {"a single line", ENM_CHANGE, 0, {EN_CHANGE}}}) {
        Make(mask, style);
        EXPECT_EQ(edit.GetEventMask(), mask);
        edit.SetWindowTextA("set");
        EXPECT_EQ(parent.Take(), codes) << border;
        input::Key(edit.m_hWnd, WM_KEYDOWN, 'A', "a");
        EXPECT_EQ(parent.Take(), codes) << border;
    }
}

TEST_F(RichEditTest, OneChangedLetterChangesNoOtherByte) {
    Make(ENM_CHANGE);
    const CString text = "one\ntwo\r\nthree\rfour\r\r\n\n";
    edit.SetWindowTextA(text);
    const CHARRANGE letter{5, 6};
    EXPECT_EQ(edit.SendMessageA(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&letter)), 6);
    input::Key(edit.m_hWnd, WM_KEYDOWN, 'W', "W");
    CString changed = text;
    changed[5] = 'W';
    EXPECT_EQ(edit.GetWindowTextA(), changed);
}

TEST_F(RichEditTest, ItsLimitsAreItsOwn) {
    Make(ENM_NONE);
    for (const auto& [border, wanted, limit] :
         Table<LPARAM, LRESULT>{{"none", 0, 65536}, {"some", 5, 5}, {"below nothing", -1, 1}}) {
        edit.SendMessageA(EM_EXLIMITTEXT, 0, wanted);
        EXPECT_EQ(edit.SendMessageA(EM_GETLIMITTEXT), limit) << border;
    }
    Make(ENM_NONE);
    EXPECT_EQ(edit.SendMessageA(EM_GETLIMITTEXT), 32767);
}

} // namespace
} // namespace korvel

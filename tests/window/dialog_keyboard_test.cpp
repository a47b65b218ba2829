#include "korvel/window/base/access_mark.h"
#include "korvel/window/controls/tab_ctrl.h"
#include "korvel/window/dialog/dialog_keyboard.h"
#include "support/dialog_fixture.h"

namespace korvel {
namespace {

enum Id { Label = 10, Name, Lines, Typed, Frame, Red, Green, Blue, Check, Twin, OtherTwin, Gone, Browse };
constexpr UINT Stop = WS_TABSTOP;

constexpr DialogItem Items[] = {
    {"STATIC", "&Name:", Label, 0, {}},
    {"EDIT", "Axis", Name, Stop, {}},
    {"EDIT", "", Lines, Stop | ES_MULTILINE, {}},
    {"EDIT", "", Typed, Stop | ES_MULTILINE | ES_WANTRETURN, {}},
    {"BUTTON", "&Farbe", Frame, BS_GROUPBOX | WS_GROUP, {}},
    {"BUTTON", "Red", Red, Stop | WS_GROUP | BS_AUTORADIOBUTTON, {}},
    {"BUTTON", "&Green", Green, BS_AUTORADIOBUTTON, {}},
    {"BUTTON", "Blue", Blue, BS_AUTORADIOBUTTON | WS_DISABLED, {}},
    {"BUTTON", "\xDC&\xDC && more", Check, Stop | WS_GROUP | BS_AUTOCHECKBOX, {}},
    {"BUTTON", "&Twin", Twin, Stop | BS_AUTOCHECKBOX, {}},
    {"BUTTON", "&twin", OtherTwin, Stop | BS_AUTOCHECKBOX, {}},
    {"BUTTON", "&Away", Gone, Stop | WS_DISABLED, {}},
    {"BUTTON", "&Browse", Browse, Stop | WS_GROUP, {}},
    {"BUTTON", "OK", IDOK, Stop | BS_DEFPUSHBUTTON, {}},
    {"BUTTON", "K&\x81\xE2\xF0", IDCANCEL, Stop, {}},
};

class DialogKeyboardTest : public DialogTest {
protected:
    DialogKeyboardTest() {
        Have({{300, "Dialog", Plain | WS_VISIBLE, {0, 0, 200, 100}, Items}});
        dialog.onCommand = {{IDOK, [] {}}, {IDCANCEL, [] {}}};
        dialog.Create(300u, &frame);
        CheckRadioButton(dialog.m_hWnd, Red, Blue, Red);
    }
    bool HasRing(int id) const { return (GetWindowLongPtrA(dialog.Item(id), GWL_STYLE) & BS_TYPEMASK) == 1; }

    RecordedDialog dialog;
};

TEST_F(DialogKeyboardTest, EachKeyMovesOrCommands) {
    const std::vector<int> none;
    struct Stroke {
        UINT modifier;
        UINT key;
        const char* characters;
    };
    const Stroke tab{0, VK_TAB, "\t"}, back{VK_SHIFT, VK_TAB, "\t"}, enter{0, VK_RETURN, "\r"},
        escape{0, VK_ESCAPE, "\x1B"}, down{0, VK_DOWN, ""}, up{0, VK_UP, ""};
    for (const auto& [border, from, stroke, to, commands] : Table<int, Stroke, int, std::vector<int>>{
             {"Tab leaves a field of lines", Lines, tab, Typed, none},
             {"Tab enters a group at its checked button", Typed, tab, Red, none},
             {"Tab leaves a group from any button", Green, tab, Check, none},
             {"Tab passes what is disabled", OtherTwin, tab, Browse, none},
             {"Tab goes round", IDCANCEL, tab, Name, none},
             {"Shift and Tab go back", Check, back, Red, none},
             {"Ctrl and Tab are the window's", Name, {VK_CONTROL, VK_TAB, "\t"}, Name, none},
             {"arrow checks the next radio button", Red, down, Green, {Green}},
             {"arrow passes what is disabled and goes round", Green, down, Red, none},
             {"arrow back", Red, up, Green, {Green}},
             {"arrow in a field is the field's", Name, down, Name, none},
             {"arrow on buttons only moves", Browse, down, IDOK, none},
             {"Return in a field of lines", Lines, enter, Lines, {IDOK}},
             {"Return in a field that types it", Typed, enter, Typed, none},
             {"Return on a button", Browse, enter, Browse, {Browse}},
             {"Escape", Name, escape, Name, {IDCANCEL}},
             {"Escape in a field of lines", Typed, escape, Typed, {IDCANCEL}},
             {"key of a label", Check, {VK_MENU, 'N', "n"}, Name, none},
             {"key of a group box", Check, {VK_MENU, 'F', "F"}, Red, none},
             {"key of a radio button", Name, {VK_MENU, 'G', "g"}, Green, {Green}},
             {"key of a button", Name, {VK_MENU, 'B', "b"}, Browse, {Browse}},
             {"key of an accented letter", Name, {VK_MENU, 0, "\xFC"}, Check, {Check}},
             {"the same without Alt", Check, {0, 0, "\x81\xE2\xF1"}, IDCANCEL, {IDCANCEL}},
             {"a byte of another letter is no key", Name, {VK_MENU, 0, "\x81\xE2\xFC"}, Name, none},
             {"key without Alt where nothing is typed", Check, {0, 'B', "b"}, Browse, {Browse}},
             {"key without Alt in a field", Name, {0, 'B', "b"}, Name, none},
             {"key of two only leads to them", Name, {VK_MENU, 'T', "t"}, Twin, none},
             {"key of two, again", Twin, {VK_MENU, 'T', "t"}, OtherTwin, none},
             {"key of a disabled button", Name, {VK_MENU, 'A', "a"}, Name, none}}) {
        CheckRadioButton(dialog.m_hWnd, Red, Blue, Red);
        SetFocus(dialog.Item(from));
        dialog.commands.clear();
        if (stroke.modifier)
            PressWith(stroke.modifier, stroke.key, stroke.characters);
        else
            Press(stroke.key, stroke.characters);
        EXPECT_EQ(GetFocus(), dialog.Item(to)) << border << ", " << GetDlgCtrlID(GetFocus());
        EXPECT_EQ(dialog.commands, commands) << border;
    }
    EXPECT_EQ(GetDlgItemTextA(dialog.m_hWnd, Typed), "\r\n");
    EXPECT_EQ(GetDlgItemTextA(dialog.m_hWnd, Lines), "");
    EXPECT_EQ(IsDlgButtonChecked(dialog.m_hWnd, Check), 1);
}

TEST_F(DialogKeyboardTest, ATabStopThatIsAFieldIsSelectedWhole) {
    SetFocus(dialog.Item(IDCANCEL));
    Press(VK_TAB, "\t");
    EXPECT_EQ(SendDlgItemMessageA(dialog.m_hWnd, Name, EM_GETSEL, 0, 0), MAKELPARAM(0, 4));
}

TEST_F(DialogKeyboardTest, TheRingFollowsTheButtonThatReturnPresses) {
    for (const auto& [border, act, ring, command] : Table<std::function<void()>, int, int>{
             {"the default button", [] {}, IDOK, IDOK},
             {"a button with the focus", [this] { SetFocus(dialog.Item(Browse)); }, Browse, Browse},
             {"a field again", [this] { SetFocus(dialog.Item(Name)); }, IDOK, IDOK},
             {"another default", [this] { dialog.SetDefID(IDCANCEL); }, IDCANCEL, IDCANCEL},
             {"no default", [this] { dialog.SetDefID(999); }, 0, 999},
             {"a default that is disabled",
              [this] {
                  dialog.SetDefID(Browse);
                  EnableWindow(dialog.Item(Browse), false);
              },
              Browse, 0}}) {
        act();
        for (const int id : {int{Browse}, IDOK, IDCANCEL})
            EXPECT_EQ(HasRing(id), id == ring) << border << ", " << id;
        dialog.commands.clear();
        Press(VK_RETURN, "\r");
        EXPECT_EQ(dialog.commands, command ? std::vector<int>{command} : std::vector<int>()) << border;
    }
}

TEST_F(DialogKeyboardTest, FindsItsWayWhenTheFocusIsNowhere) {
    SetFocus(dialog.Item(Check));
    EnableWindow(dialog.Item(Check), false);
    EXPECT_EQ(GetFocus(), nullptr);
    input::Key(dialog.m_hWnd, WM_KEYDOWN, VK_TAB, "\t");
    EXPECT_EQ(GetFocus(), dialog.Item(Twin));
    ShowWindow(dialog.Item(Twin), SW_HIDE);
    EXPECT_EQ(GetFocus(), dialog.m_hWnd) << "a control that hides leaves it to the dialog";
    EXPECT_EQ(GetNextDlgTabItem(dialog.m_hWnd, nullptr, true), dialog.Item(IDCANCEL)) << "back from nowhere";
    frame.SetFocus();
    input::Activated(dialog.m_hWnd, true);
    EXPECT_EQ(GetFocus(), dialog.Item(Name)) << "who had it last is hidden";
    SetFocus(dialog.Item(Browse));
    frame.SetFocus();
    input::Activated(dialog.m_hWnd, true);
    EXPECT_EQ(GetFocus(), dialog.Item(Browse));
}

TEST_F(DialogKeyboardTest, APageLiesInTheRoundOfTheDialogAroundIt) {
    constexpr DialogItem OfPage[] = {{"EDIT", "", 50, Stop, {}}, {"BUTTON", "&Seite", 51, Stop, {}}};
    Have({{301, "Page", WS_CHILD | WS_VISIBLE, {0, 0, 100, 40}, OfPage}});
    CTabCtrl tabs;
    tabs.Create(WS_CHILD | WS_VISIBLE, {}, &dialog, 40);
    for (const auto& [border, parent] :
         Table<CWnd*>{{"in the dialog", &dialog}, {"in a tab control", &tabs}}) {
        SCOPED_TRACE(border);
        RecordedDialog page;
        ASSERT_TRUE(page.Create(301u, parent));
        SetFocus(dialog.Item(IDCANCEL));
        for (const int expected : {50, 51, int{Name}}) {
            Press(VK_TAB, "\t");
            EXPECT_EQ(GetDlgCtrlID(GetFocus()), expected);
        }
        PressWith(VK_MENU, 'S', "s");
        EXPECT_EQ(page.commands, std::vector<int>{51});
        SetFocus(page.Item(50));
        dialog.commands.clear();
        Press(VK_RETURN, "\r");
        EXPECT_EQ(dialog.commands, std::vector<int>{IDOK});
        SetFocus(dialog.Item(Name));
        page.SetFocus();
        EXPECT_EQ(GetFocus(), page.Item(50));
        page.DestroyWindow();
    }
}

TEST_F(DialogKeyboardTest, AKeyThatEndsTheDialogIsTheLastOneItHears) {
    dialog.onCommand[IDOK] = [&] { dialog.DestroyWindow(); };
    SetFocus(dialog.Item(Name));
    Press(VK_RETURN, "\r");
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(dialog.commands, std::vector<int>{IDOK});
}

TEST(AccessKeys, AreTheLettersAfterASingleMark) {
    const std::vector<std::pair<const char*, const char*>> cases = {{"&Open", "o"}, {"Save && &Exit", "e"},
                                                                    {"&&", ""},     {"Save &", ""},
                                                                    {"plain", ""},  {"\xC4&\xC4", "\xE4"}};
    for (const auto& [text, key] : cases)
        EXPECT_EQ(internal::AccessKeyOf(text), key) << text;
}

} // namespace
} // namespace korvel

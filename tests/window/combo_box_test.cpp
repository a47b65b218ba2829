#include "korvel/window/controls/combo_box.h"
#include "korvel/window/display/window_view.h"
#include "support/control_fixture.h"

#include <limits>
#include <stdexcept>

namespace korvel {
namespace {

using Texts = std::vector<CString>;

class ComboBoxTest : public ControlTest {
protected:
    void Make(UINT style, const Texts& entries = {"apple", "Banana", "cherry"}) {
        box.DestroyWindow();
        box.Create(WS_CHILD | WS_VISIBLE | style, {0, 0, 100, 120}, &parent, 7);
        for (const CString& entry : entries)
            box.AddString(entry);
        parent.codes.clear();
    }
    HWND Field() const { return GetDlgItem(box.m_hWnd, 1001); }
    void Press(UINT key, UINT message = WM_KEYDOWN, const CString& characters = {}) {
        input::Key(GetFocus(), message, key, characters);
    }
    Texts Entries() const {
        Texts texts;
        for (int i = 0; i < box.GetCount(); ++i)
            texts.push_back(box.GetLBText(i));
        return texts;
    }

    CComboBox box;
};

TEST_F(ComboBoxTest, MessagesAnswerAsTheWindowModelDoesAndSendNothing) {
    using Ask = std::function<LRESULT(CComboBox&)>;
    for (const auto& [border, ask, answer, current, text] : Table<Ask, LRESULT, int, const char*>{
             {"none is current", [](auto& b) { return b.SetCurSel(-1); }, -1, -1, ""},
             {"beyond keeps", [](auto& b) { return b.SetCurSel(3); }, -1, 1, "Banana"},
             {"insert above", [](auto& b) { return b.InsertString(1, "x"); }, 1, 2, "Banana"},
             {"insert at the end", [](auto& b) { return b.InsertString(-1, "x"); }, 3, 1, "Banana"},
             {"insert beyond", [](auto& b) { return b.InsertString(4, "x"); }, -1, 1, "Banana"},
             {"delete above", [](auto& b) { return b.DeleteString(0); }, 2, 0, "Banana"},
             {"delete no entry", [](auto& b) { return b.DeleteString(-1); }, -1, 1, "Banana"},
             {"find goes round", [](auto& b) { return b.FindString(1, "A"); }, 0, 1, "Banana"},
             {"find after itself", [](auto& b) { return b.FindString(1, "BAN"); }, 1, 1, "Banana"},
             {"find nothing", [](auto& b) { return b.FindString(-1, ""); }, -1, 1, "Banana"},
             {"the whole text", [](auto& b) { return b.FindStringExact(-1, "CHERR"); }, -1, 1, "Banana"},
             {"whatever the case", [](auto& b) { return b.FindStringExact(9, "CHERRY"); }, 2, 1, "Banana"},
             {"select by text", [](auto& b) { return b.SelectString(-1, "ch"); }, 2, 2, "cherry"},
             {"data", [](auto& b) { return b.SetItemData(1, 5) + b.GetItemData(1); }, 5, 1, "Banana"},
             {"data of no entry", [](auto& b) { return b.SetItemData(3, 5) + b.GetItemData(3); }, -2, 1,
              "Banana"},
             {"no entry left", [](auto& b) { return b.SendMessageA(CB_RESETCONTENT); }, 0, -1, ""}})
        for (const UINT style : {CBS_DROPDOWN, CBS_DROPDOWNLIST, CBS_SIMPLE}) {
            SCOPED_TRACE(border);
            Make(style);
            box.SetCurSel(1);
            EXPECT_EQ(ask(box), answer);
            EXPECT_EQ(box.GetCurSel(), current);
            EXPECT_EQ(box.GetWindowTextA(), text);
            EXPECT_EQ(parent.Take(), Codes());
        }
}

TEST_F(ComboBoxTest, TheTextOfADeletedEntryStaysInTheFieldOnly) {
    for (const auto& [border, style, text] :
         Table<UINT, const char*>{{"field", CBS_DROPDOWN, "Banana"}, {"no field", CBS_DROPDOWNLIST, ""}}) {
        Make(style);
        box.SetCurSel(1);
        box.DeleteString(1);
        EXPECT_EQ(box.GetCurSel(), CB_ERR) << border;
        EXPECT_EQ(box.GetWindowTextA(), text) << border;
    }
}

TEST_F(ComboBoxTest, ASortedBoxSortsWhatIsAddedOverManyBlocks) {
    Make(CBS_DROPDOWNLIST | CBS_SORT, {"b", "B", "a"});
    EXPECT_EQ(box.InsertString(0, "z"), 0);
    EXPECT_EQ(Entries(), (Texts{"z", "a", "b", "B"}));

    Make(CBS_DROPDOWNLIST | CBS_SORT, {});
    constexpr int Count = 2003; // a prime: the steps reach every number
    for (int i = 0; i < Count; ++i)
        box.AddString(std::to_string(10000 + i * 787 % Count));
    for (int i = Count - 2; i > 0; i -= 2)
        box.DeleteString(i);
    ASSERT_EQ(box.GetCount(), 1002);
    for (int i = 0; i < box.GetCount(); ++i)
        ASSERT_EQ(box.GetLBText(i), std::to_string(10000 + 2 * i));
    EXPECT_EQ(box.FindString(1000, "12000"), 1000);
}

TEST_F(ComboBoxTest, KeysTellWhatTheyDo) {
    const Codes moved{CBN_SELENDOK, CBN_SELCHANGE};
    const Codes movedOpen{CBN_DROPDOWN, CBN_SELCHANGE};
    const auto with = [](Codes codes, const Codes& more) {
        codes.insert(codes.end(), more.begin(), more.end());
        return codes;
    };
    const Codes taken{CBN_SELENDOK, CBN_CLOSEUP};
    const Codes cancelled{CBN_SELENDCANCEL, CBN_CLOSEUP};
    for (const auto& [border, style, keys, current, codes] : Table<UINT, std::vector<UINT>, int, Codes>{
             {"down", CBS_DROPDOWN, {VK_DOWN}, 2, moved},
             {"up", CBS_DROPDOWNLIST, {VK_UP}, 0, moved},
             {"home and end", CBS_DROPDOWNLIST, {VK_HOME, VK_END}, 2, with(moved, moved)},
             {"home is the field's", CBS_DROPDOWN, {VK_HOME}, 1, {}},
             {"a page", CBS_DROPDOWNLIST, {VK_NEXT}, 2, moved},
             {"open and taken", CBS_DROPDOWN, {VK_F4, VK_UP, VK_RETURN}, 0, with(movedOpen, taken)},
             {"open and back", CBS_DROPDOWNLIST, {VK_F4, VK_UP, VK_ESCAPE}, 1, with(movedOpen, cancelled)},
             {"Return while closed", CBS_DROPDOWN, {VK_RETURN}, 1, {}},
             {"a simple one moves", CBS_SIMPLE, {VK_F4, VK_DOWN}, 2, moved}}) {
        SCOPED_TRACE(border);
        Make(style);
        box.SetCurSel(1);
        box.SetFocus();
        parent.codes.clear();
        for (const UINT key : keys)
            Press(key);
        EXPECT_EQ(box.GetCurSel(), current);
        EXPECT_EQ(parent.Take(), codes);
        EXPECT_FALSE(box.GetDroppedState());
    }
}

TEST_F(ComboBoxTest, AltWithAnArrowOpensAndClosesAndALetterFinds) {
    Make(CBS_DROPDOWNLIST, {"a1", "b", "a2"});
    box.SetFocus();
    parent.codes.clear();
    Press(VK_DOWN, WM_SYSKEYDOWN);
    EXPECT_TRUE(box.GetDroppedState());
    for (const auto& [border, key, isTheLists] :
         Table<UINT, bool>{{"Return", VK_RETURN, true}, {"Escape", VK_ESCAPE, true}, {"Tab", VK_TAB, false}})
        EXPECT_EQ((box.SendMessageA(WM_GETDLGCODE, key) & DLGC_WANTALLKEYS) != 0, isTheLists) << border;
    Press(VK_UP, WM_SYSKEYDOWN);
    EXPECT_EQ(parent.Take(), (Codes{CBN_DROPDOWN, CBN_SELENDOK, CBN_CLOSEUP}));
    EXPECT_FALSE(box.SendMessageA(WM_GETDLGCODE, VK_RETURN) & DLGC_WANTALLKEYS);
    for (const int expected : {0, 2, 0}) {
        Press('A', WM_KEYDOWN, "A");
        EXPECT_EQ(box.GetCurSel(), expected);
    }
}

TEST_F(ComboBoxTest, TheFieldIsTheBoxesText) {
    Make(CBS_DROPDOWN);
    box.LimitText(4);
    box.SetCurSel(1);
    box.SetWindowTextA("programs may");
    EXPECT_EQ(parent.Take(), Codes()) << "a program types nothing";
    EXPECT_TRUE(box.SetEditSel(1, -1));
    EXPECT_EQ(box.GetEditSel(), MAKELPARAM(1, 12));
    box.SetFocus();
    EXPECT_EQ(GetFocus(), Field());
    EXPECT_EQ(box.GetEditSel(), MAKELPARAM(0, 12)) << "all is selected at first";
    parent.codes.clear();
    Press('N', WM_KEYDOWN, "n");
    EXPECT_EQ(parent.Take(), (Codes{CBN_EDITUPDATE, CBN_EDITCHANGE}));
    EXPECT_EQ(box.GetWindowTextA(), "n");
    EXPECT_EQ(box.GetCurSel(), CB_ERR);
    for (const UINT key : {VK_F4, VK_DOWN, VK_ESCAPE})
        Press(key);
    EXPECT_EQ(box.GetWindowTextA(), "n") << "Escape brings back what was typed";
    box.EnableWindow(false);
    EXPECT_FALSE(IsWindowEnabled(Field()));

    Make(CBS_DROPDOWNLIST);
    box.SetCurSel(0);
    EXPECT_EQ(box.GetEditSel(), CB_ERR);
    EXPECT_FALSE(box.SetEditSel(0, 1));
    box.SetWindowTextA("x");
    EXPECT_EQ(box.GetWindowTextA(), "apple");
}

TEST_F(ComboBoxTest, TheListOfTheDesktopChoosesAndCloses) {
    using Act = std::function<void(HWND)>;
    const auto choose = [](double entry) -> Act { return [=](HWND window) { input::Value(window, entry); }; };
    const Act close = [](HWND window) { input::Dropped(window, false); };
    constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();
    for (const auto& [border, open, act, current, codes] : Table<bool, Act, int, Codes>{
             {"another entry", true, choose(2), 2, {CBN_SELENDOK, CBN_CLOSEUP, CBN_SELCHANGE}},
             {"the wheel", false, choose(2), 2, {CBN_SELENDOK, CBN_SELCHANGE}},
             {"the same entry", true, choose(1), 1, {CBN_SELENDOK, CBN_CLOSEUP}},
             {"a press outside", true, close, 1, {CBN_SELENDCANCEL, CBN_CLOSEUP}},
             {"closed before", false, close, 1, {}},
             {"no entry", true, choose(3), 1, {}},
             {"no number", true, choose(NoNumber), 1, {}}}) {
        SCOPED_TRACE(border);
        Make(CBS_DROPDOWN);
        box.SetCurSel(1);
        if (open)
            input::Dropped(box.m_hWnd, true);
        parent.codes.clear();
        act(box.m_hWnd);
        EXPECT_EQ(box.GetCurSel(), current);
        EXPECT_EQ(parent.Take(), codes);
    }
}

TEST_F(ComboBoxTest, ABoxIsOneLineHighAndKeepsTheRestForItsList) {
    Make(CBS_DROPDOWN);
    EXPECT_EQ(box.GetWindowRect().Height(), 24);
    EXPECT_EQ(view::Choice(box.m_hWnd).rowsInList, 6); // (120 - 24) / 16
    box.MoveWindow({0, 0, 80, 10});
    EXPECT_EQ(box.GetWindowRect().Height(), 24);
    EXPECT_LT(view::Rectangle(Field()).right, 80 - GetSystemMetrics(SM_CXVSCROLL) + 1);
    Make(CBS_SIMPLE);
    EXPECT_EQ(box.GetWindowRect().Height(), 120);
}

TEST_F(ComboBoxTest, LeavingCancelsAndAHandlerThatFailsKeepsNoNoticeBack) {
    using Act = std::function<void()>;
    const Act open = [&] { box.ShowDropDown(); };
    const Act choose = [&] { input::Value(box.m_hWnd, 1); };
    const Act move = [&] { Press(VK_DOWN); };
    const Act leave = [&] { parent.SetFocus(); };
    const Codes left{CBN_SELENDCANCEL, CBN_KILLFOCUS};
    const Codes leftOpen{CBN_SELENDCANCEL, CBN_CLOSEUP, CBN_KILLFOCUS};
    for (const auto& [border, isOpen, fails, act, codes] : Table<bool, UINT, Act, Codes>{
             {"opening", false, CBN_DROPDOWN, open, {CBN_DROPDOWN}},
             {"choosing", true, CBN_SELENDOK, choose, {CBN_SELENDOK, CBN_CLOSEUP, CBN_SELCHANGE}},
             {"moving", false, CBN_SELENDOK, move, {CBN_SELENDOK, CBN_SELCHANGE}},
             {"leaving it open", true, CBN_SELENDCANCEL, leave, leftOpen},
             {"leaving it closed", false, CBN_SELENDCANCEL, leave, left}})
        for (const UINT style : {CBS_DROPDOWN, CBS_DROPDOWNLIST}) {
            SCOPED_TRACE(border);
            Make(style);
            box.SetFocus();
            EXPECT_EQ(parent.Take(), Codes{CBN_SETFOCUS});
            box.ShowDropDown(isOpen);
            parent.Take();
            display.TakeChanges(box.m_hWnd);
            parent.FailOn(fails);
            EXPECT_THROW(act(), std::runtime_error);
            parent.on.clear();
            EXPECT_EQ(parent.Take(), codes);
            if (box.GetDroppedState() != isOpen)
                EXPECT_TRUE(display.TakeChanges(box.m_hWnd) & Aspect::State)
                    << "the display shows or hides the list";
        }
}

TEST_F(ComboBoxTest, AHandlerMayDestroyTheBoxInEachNotice) {
    for (const UINT code : {CBN_SETFOCUS, CBN_DROPDOWN, CBN_SELCHANGE, CBN_EDITUPDATE, CBN_SELENDOK,
                            CBN_SELENDCANCEL, CBN_CLOSEUP, CBN_KILLFOCUS}) {
        parent.on.clear();
        Make(CBS_DROPDOWN);
        parent.on[code] = [this] { box.DestroyWindow(); };
        box.SetFocus();
        Press('X', WM_KEYDOWN, "x");
        for (const UINT key : {VK_F4, VK_DOWN, VK_RETURN, VK_F4, VK_ESCAPE})
            Press(key);
        parent.SetFocus();
        EXPECT_EQ(box.m_hWnd, nullptr) << code;
    }
}

} // namespace
} // namespace korvel

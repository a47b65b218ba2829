#include "korvel/window/controls/edit.h"
#include "korvel/window/display/window_view.h"
#include "support/control_fixture.h"

#include <string>

namespace korvel {
namespace {

class EditTest : public ControlTest {
protected:
    void MakeEdit(UINT style = 0, const char* text = "") {
        edit.DestroyWindow();
        edit.Create(WS_CHILD | WS_VISIBLE | style, {0, 0, 100, 20}, &parent, 5);
        edit.SetWindowTextA(text);
        parent.codes.clear();
    }
    void Type(const CString& text) {
        for (const char character : text)
            input::Key(edit.m_hWnd, WM_KEYDOWN, 0, CString(1, character));
    }
    void Press(UINT key, std::vector<UINT> modifiers = {}) {
        for (const UINT modifier : modifiers)
            display.PressKey(modifier, true);
        input::Key(edit.m_hWnd, WM_KEYDOWN, key, {});
        for (const UINT modifier : modifiers)
            display.PressKey(modifier, false);
    }
    std::pair<int, int> Selection() const {
        std::pair<int, int> selection;
        edit.GetSel(selection.first, selection.second);
        return selection;
    }

    CEdit edit;
};

TEST_F(EditTest, SettingTheTextTellsAChangeOnASingleLineOnly) {
    MakeEdit(0, "same");
    edit.SetWindowTextA("same");
    EXPECT_EQ(parent.Take(), (Codes{EN_UPDATE, EN_CHANGE}));
    MakeEdit(ES_READONLY | ES_NUMBER);
    edit.LimitText(2);
    edit.SetWindowTextA("longer than that");
    EXPECT_EQ(edit.GetWindowTextA(), "longer than that");
    MakeEdit(ES_MULTILINE);
    edit.SetWindowTextA("text");
    EXPECT_EQ(parent.Take(), Codes{});
}

TEST_F(EditTest, WhatTheUserTypesIsHeldToTheStyles) {
    for (const auto& [border, style, limit, typed, text] : Table<UINT, int, const char*, const char*>{
             {"no limit", 0, 0, "a b", "a b"},
             {"at the limit", 0, 3, "abcd", "abc"},
             {"digits only", ES_NUMBER, 0, "1a-2", "12"},
             {"read-only", ES_READONLY, 0, "a\b", ""},
             {"Return in one line", 0, 0, "a\rb", "ab"},
             {"Return in several", ES_MULTILINE, 0, "a\rb", "a\r\nb"},
             {"control characters", 0, 0, "a\x1B\x11", "a"},
             {"Backspace at the start", 0, 0, "\ba\b\b", ""},
             {"Backspace over a line break", ES_MULTILINE, 0, "a\r\b", "a"}}) {
        MakeEdit(style);
        edit.LimitText(limit);
        Type(typed);
        EXPECT_EQ(edit.GetWindowTextA(), text) << border;
    }
}

TEST_F(EditTest, TypingReplacesTheSelectionAndCountsItAsRoom) {
    MakeEdit(0, "abcd");
    edit.LimitText(4);
    edit.SetSel(1, 3);
    Type("XYZ");
    EXPECT_EQ(edit.GetWindowTextA(), "aXYd");
    EXPECT_EQ(Selection(), std::pair(3, 3));
    EXPECT_TRUE(edit.GetModify());
    edit.SetWindowTextA("");
    EXPECT_FALSE(edit.GetModify());
}

TEST_F(EditTest, WhatFindsNoRoomIsToldFirstAndNothingForNothingIsSilent) {
    const auto replace = [this](const char* text) { return [=, this] { edit.ReplaceSel(text); }; };
    const auto type = [this](const char* text) { return [=, this] { Type(text); }; };
    const auto report = [this](const char* text, int caret) {
        return [=, this] { input::Edited(edit.m_hWnd, text, caret, caret); };
    };
    const auto paste = [this] { edit.SendMessageA(WM_PASTE); };
    display.SetClipboardText("12345");
    for (const auto& [border, style, end, act, text, codes] :
         Table<UINT, int, std::function<void()>, const char*, Codes>{
             {"typed in a full field", 0, 1, type("x"), "abcd", {EN_MAXTEXT}},
             {"the last place", 0, 2, type("x"), "axcd", {EN_UPDATE, EN_CHANGE}},
             {"replaced by what fits", 0, 3, replace("123"), "a12d", {EN_MAXTEXT, EN_UPDATE, EN_CHANGE}},
             {"pasted as far as it fits", 0, 4, paste, "a123", {EN_MAXTEXT, EN_UPDATE, EN_CHANGE}},
             {"no room for a replacement", 0, 1, replace("x"), "abcd", {EN_MAXTEXT}},
             {"dropped, not limited", ES_NUMBER, 1, type("x"), "abcd", {}},
             {"read-only takes a replacement", ES_READONLY, 2, replace("x"), "axcd", {EN_UPDATE, EN_CHANGE}},
             {"not half of a line break", ES_MULTILINE, 2, replace("\r\n"), "abcd", {EN_MAXTEXT}},
             {"a line break and no half of another",
              ES_MULTILINE,
              4,
              replace("\r\n\r\n"),
              "a\r\n",
              {EN_MAXTEXT, EN_UPDATE, EN_CHANGE}},
             {"taken in by a native widget",
              0,
              3,
              report("a12345d", 6),
              "a12d",
              {EN_MAXTEXT, EN_UPDATE, EN_CHANGE}},
             {"a full field, the same letter", 0, 1, report("abbcd", 2), "abcd", {EN_MAXTEXT}},
             {"nothing for nothing", 0, 1, replace(""), "abcd", {}},
             {"nothing for something", 0, 3, replace(""), "ad", {EN_UPDATE, EN_CHANGE}},
             {"nothing to clear", 0, 1, [this] { edit.SendMessageA(WM_CLEAR); }, "abcd", {}}}) {
        SCOPED_TRACE(border);
        MakeEdit(style, "abcd");
        edit.LimitText(4);
        edit.SetSel(1, end);
        act();
        EXPECT_EQ(edit.GetWindowTextA(), text);
        EXPECT_EQ(parent.Take(), codes);
        EXPECT_EQ(edit.GetModify(), edit.GetWindowTextA() != "abcd");
    }
}

TEST_F(EditTest, TheLimitOfANewFieldIsThePlatforms) {
    MakeEdit();
    EXPECT_EQ(edit.SendMessageA(EM_GETLIMITTEXT), 30000);
    edit.LimitText(0);
    EXPECT_EQ(edit.SendMessageA(EM_GETLIMITTEXT), 0x7FFFFFFE);
    edit.ReplaceSel(CString(30001, 'x'));
    EXPECT_EQ(edit.GetWindowTextA().size(), 30001u);
}

TEST_F(EditTest, KeysMoveTheCaretAndExtendTheSelection) {
    MakeEdit(ES_MULTILINE, "one two\r\nx");
    for (const auto& [border, key, modifiers, selection] :
         Table<UINT, std::vector<UINT>, std::pair<int, int>>{
             {"before the text", VK_LEFT, {}, {0, 0}},
             {"one place", VK_RIGHT, {}, {1, 1}},
             {"a word", VK_RIGHT, {VK_CONTROL}, {4, 4}},
             {"extended", VK_END, {VK_SHIFT}, {4, 7}},
             {"over the line break in one step", VK_RIGHT, {VK_SHIFT}, {4, 9}},
             {"from the caret, not the selection's start", VK_END, {}, {10, 10}},
             {"behind the text", VK_RIGHT, {}, {10, 10}},
             {"the line above", VK_UP, {}, {1, 1}},
             {"no line above", VK_UP, {}, {1, 1}},
             {"to the end", VK_END, {}, {7, 7}},
             {"the shorter line below", VK_DOWN, {}, {10, 10}},
             {"its start", VK_HOME, {}, {9, 9}},
             {"the line break backwards", VK_LEFT, {}, {7, 7}},
             {"a word back", VK_LEFT, {VK_CONTROL, VK_SHIFT}, {4, 7}},
             {"all", 'A', {VK_CONTROL}, {0, 10}},
             {"the text's start", VK_HOME, {VK_CONTROL}, {0, 0}}}) {
        Press(key, modifiers);
        EXPECT_EQ(Selection(), selection) << border;
    }
}

TEST_F(EditTest, ACharacterOfSeveralBytesIsOne) {
    const CString L = "\x81\xE2\xE1"; // L with a stroke, which the code page does not hold
    const auto press = [this](UINT key) { return [=, this] { Press(key); }; };
    const auto type = [this](CString text) {
        return [=, this] { input::Key(edit.m_hWnd, WM_KEYDOWN, 0, text); };
    };
    for (const auto& [border, caret, act, text, selection, codes] :
         Table<int, std::function<void()>, CString, std::pair<int, int>, Codes>{
             {"typed", 0, type(L), L + "a" + L + "b", {3, 3}, {EN_UPDATE, EN_CHANGE}},
             {"beyond the limit",
              5,
              type(L + L),
              "a" + L + "b" + L,
              {8, 8},
              {EN_UPDATE, EN_CHANGE, EN_MAXTEXT}},
             {"replaced as far as it fits",
              5,
              [=, this] { edit.ReplaceSel("c" + L); },
              "a" + L + "bc",
              {6, 6},
              {EN_MAXTEXT, EN_UPDATE, EN_CHANGE}},
             {"by a native widget",
              5,
              [=, this] { input::Edited(edit.m_hWnd, "a" + L + "bc" + L, 9, 9); },
              "a" + L + "bc",
              {6, 6},
              {EN_MAXTEXT, EN_UPDATE, EN_CHANGE}},
             {"taken back whole", 4, type("\b"), "ab", {1, 1}, {EN_UPDATE, EN_CHANGE}},
             {"removed whole", 1, press(VK_DELETE), "ab", {1, 1}, {EN_UPDATE, EN_CHANGE}},
             {"a place inside goes to its border", 3, press(VK_DELETE), "ab", {1, 1}, {EN_UPDATE, EN_CHANGE}},
             {"one step", 1, press(VK_RIGHT), "a" + L + "b", {4, 4}, {}},
             {"and back", 4, press(VK_LEFT), "a" + L + "b", {1, 1}, {}}}) {
        SCOPED_TRACE(border);
        MakeEdit();
        edit.SetWindowTextA("a" + L + "b");
        edit.LimitText(8);
        parent.Take();
        edit.SetSel(caret, caret);
        act();
        EXPECT_EQ(edit.GetWindowTextA(), text);
        EXPECT_EQ(Selection(), selection);
        EXPECT_EQ(parent.Take(), codes);
    }
    MakeEdit(0, "a");
    type(L)();
    edit.SendMessageA(EM_UNDO);
    EXPECT_EQ(edit.GetWindowTextA(), "a") << "one step of undo";
    EXPECT_EQ(display.TextWidth("a" + L), 14);
}

TEST_F(EditTest, OfACharacterWhoseByteIsDroppedNothingIsTyped) {
    struct Picky : CEdit {
        bool PreTranslateMessage(MSG& message) override {
            return message.message == WM_CHAR && message.wParam == dropped;
        }
        WPARAM dropped = 0;
    } picky;
    picky.Create(WS_CHILD | WS_VISIBLE, {0, 0, 100, 20}, &parent, 5);
    for (const WPARAM byte : {0x81u, 0xE2u, 0xE1u}) {
        picky.dropped = byte;
        input::Key(picky.m_hWnd, WM_KEYDOWN, 0, "\x81\xE2\xE1x");
        EXPECT_EQ(picky.GetWindowTextA(), "x") << byte;
        picky.SetWindowTextA("");
    }
}

TEST_F(EditTest, TheClipboardIsTheDisplays) {
    MakeEdit(0, "abcd");
    edit.SetSel(1, 3);
    Press('X', {VK_CONTROL});
    EXPECT_EQ(display.ClipboardText(), "bc");
    EXPECT_EQ(edit.GetWindowTextA(), "ad");
    Press('V', {VK_CONTROL});
    Press('V', {VK_CONTROL});
    EXPECT_EQ(edit.GetWindowTextA(), "abcbcd");

    for (const auto& [border, style, clipboard, text] :
         Table<UINT, const char*, const char*>{{"one line takes the first", 0, "1\r\n2", "1"},
                                               {"several take all", ES_MULTILINE, "1\r\n2", "1\r\n2"},
                                               {"digits only", ES_NUMBER, "1a2", "12"},
                                               {"read-only", ES_READONLY, "1", ""}}) {
        MakeEdit(style);
        display.SetClipboardText(clipboard);
        edit.SendMessageA(WM_PASTE);
        EXPECT_EQ(edit.GetWindowTextA(), text) << border;
    }
    MakeEdit(ES_PASSWORD, "secret");
    edit.SetSel(0, -1);
    Press('C', {VK_CONTROL});
    Press('X', {VK_CONTROL});
    EXPECT_EQ(display.ClipboardText(), "1");
    EXPECT_EQ(edit.GetWindowTextA(), "secret");
}

TEST_F(EditTest, UndoTakesBackARunOfTypingAndItself) {
    MakeEdit(0, "");
    Type("abc");
    parent.Take();
    edit.SendMessageA(EM_UNDO);
    EXPECT_EQ(parent.Take(), (Codes{EN_UPDATE, EN_CHANGE, EN_CHANGE}));
    EXPECT_EQ(edit.GetWindowTextA(), "");
    Press('Z', {VK_CONTROL});
    EXPECT_EQ(edit.GetWindowTextA(), "abc");
    edit.SetSel(1, 2);
    Press(VK_DELETE);
    Type("x");
    Press('Z', {VK_CONTROL});
    EXPECT_EQ(edit.GetWindowTextA(), "ac"); // the deletion is a step of its own
    edit.SetWindowTextA("new");
    EXPECT_EQ(edit.SendMessageA(EM_UNDO), 0);
}

TEST_F(EditTest, WhatANativeWidgetReportsIsToldOnceAndTheFocusToo) {
    MakeEdit(0, "ab");
    input::Edited(edit.m_hWnd, "abc", 3, 3);
    EXPECT_EQ(parent.Take(), (Codes{EN_UPDATE, EN_CHANGE}));
    EXPECT_TRUE(edit.GetModify());
    input::Edited(edit.m_hWnd, "abc", 0, 2); // the selection alone
    EXPECT_EQ(parent.Take(), Codes{});
    EXPECT_EQ(view::Edit(edit.m_hWnd).selectionEnd, 2);
    Press(VK_DELETE);
    EXPECT_EQ(edit.GetWindowTextA(), "c");
    parent.Take();
    edit.SetFocus();
    parent.SetFocus();
    EXPECT_EQ(parent.Take(), (Codes{EN_SETFOCUS, EN_KILLFOCUS}));
}

TEST_F(EditTest, TheMousePlacesTheCaretAndSelects) {
    MakeEdit(0, "one two"); // 7 pixels a character
    const auto mouse = [&](UINT message, UINT flags, int x) {
        input::Mouse(edit.m_hWnd, message, flags, {x, 5});
    };
    mouse(WM_LBUTTONDOWN, MK_LBUTTON, 15);
    EXPECT_EQ(GetFocus(), edit.m_hWnd);
    EXPECT_EQ(Selection(), std::pair(2, 2));
    mouse(WM_MOUSEMOVE, MK_LBUTTON, 900);
    mouse(WM_LBUTTONUP, 0, 900);
    mouse(WM_MOUSEMOVE, 0, 0);
    EXPECT_EQ(Selection(), std::pair(2, 7));
    mouse(WM_LBUTTONDBLCLK, MK_LBUTTON, 10);
    EXPECT_EQ(Selection(), std::pair(0, 3));
    edit.SetSel(-1, 0);
    EXPECT_EQ(Selection(), std::pair(3, 3));
}

} // namespace
} // namespace korvel

#include "korvel/window/controls/edit.h"
#include "support/control_fixture.h"

#include <string>

namespace korvel {
namespace {

class EditTest : public ControlTest {
protected:
    void MakeEdit(UINT style = 0, const CString& text = {}) {
        edit.DestroyWindow();
        edit.Create(WS_CHILD | WS_VISIBLE | style, {0, 0, 100, 20}, &parent, 5);
        edit.SetWindowTextA(WithLetters(text));
        parent.codes.clear();
    }
    void Type(const CString& text) { input::Key(edit.m_hWnd, WM_KEYDOWN, 0, text); }
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

    // The text with a letter outside of the code page, an L with a stroke, for each '#'.
    static CString WithLetters(const CString& text) {
        CString result;
        for (const char character : text)
            result += character == '#' ? "\x81\xE2\xE1" : CString(1, character);
        return result;
    }

    const Codes changed{EN_UPDATE, EN_CHANGE};
    const Codes cut{EN_MAXTEXT, EN_UPDATE, EN_CHANGE};
    CEdit edit;
};

TEST_F(EditTest, SettingTheTextTellsAChangeOnASingleLineOnly) {
    for (const auto& [border, style, codes] : Table<UINT, Codes>{
             {"a single line", ES_READONLY | ES_NUMBER, changed}, {"several", ES_MULTILINE, {}}}) {
        MakeEdit(style, "the same");
        edit.LimitText(2);
        edit.SetWindowTextA("the same");
        EXPECT_EQ(parent.Take(), codes) << border;
        EXPECT_EQ(edit.GetWindowTextA(), "the same") << border;
    }
}

TEST_F(EditTest, WhatTheUserTypesIsHeldToTheStyles) {
    for (const auto& [border, style, limit, typed, text] : Table<UINT, int, const char*, const char*>{
             {"no limit", 0, 0, "a b", "a b"},
             {"at the limit", 0, 3, "abcd", "abc"},
             {"digits only", ES_NUMBER, 0, "1a-209", "1209"},
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

TEST_F(EditTest, WhatFindsNoRoomIsToldFirstAndNothingForNothingIsSilent) {
    const auto replace = [this](const char* text) { return [=, this] { edit.ReplaceSel(text); }; };
    const auto send = [this](UINT message) { return [=, this] { edit.SendMessageA(message); }; };
    const auto type = [this](const char* text) { return [=, this] { Type(text); }; };
    const auto report = [this](const char* text, int caret) {
        return [=, this] { input::Edited(edit.m_hWnd, text, caret, caret); };
    };
    display.SetClipboardText("12345");
    for (const auto& [border, style, end, act, text, codes] :
         Table<UINT, int, std::function<void()>, const char*, Codes>{
             {"typed in a full field", 0, 1, type("x"), "abcd", {EN_MAXTEXT}},
             {"replaced by what fits", 0, 3, replace("123"), "a12d", cut},
             {"pasted as far as it fits", 0, 4, send(WM_PASTE), "a123", cut},
             {"dropped, not limited", ES_NUMBER, 1, type("x"), "abcd", {}},
             {"read-only takes a replacement", ES_READONLY, 2, replace("x"), "axcd", changed},
             {"not half of a line break", ES_MULTILINE, 2, replace("\r\n"), "abcd", {EN_MAXTEXT}},
             {"taken in by a native widget", 0, 3, report("a12345d", 6), "a12d", cut},
             {"reported by a native widget", 0, 3, report("axd", 2), "axd", changed},
             {"a selection alone", 0, 3, report("abcd", 2), "abcd", {}},
             {"a full field, the same letter", 0, 1, report("abbcd", 2), "abcd", {EN_MAXTEXT}},
             {"nothing for nothing", 0, 1, replace(""), "abcd", {}},
             {"nothing for something", 0, 3, replace(""), "ad", changed},
             {"nothing to clear", 0, 1, send(WM_CLEAR), "abcd", {}}}) {
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
             {"after the text", VK_RIGHT, {}, {10, 10}},
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
    const auto press = [this](UINT key) { return [=, this] { Press(key); }; };
    const auto type = [this](const char* text) { return [=, this] { Type(WithLetters(text)); }; };
    const auto replace = [this] { edit.ReplaceSel(WithLetters("c#")); };
    const auto report = [this] { input::Edited(edit.m_hWnd, WithLetters("a#bc#"), 9, 9); };
    for (const auto& [border, position, act, text, caret, codes] :
         Table<int, std::function<void()>, const char*, int, Codes>{
             {"typed", 0, type("#"), "#a#b", 3, changed},
             {"beyond the limit", 5, type("##"), "a#b#", 8, {EN_UPDATE, EN_CHANGE, EN_MAXTEXT}},
             {"replaced as far as it fits", 5, replace, "a#bc", 6, cut},
             {"by a native widget", 5, report, "a#bc", 6, cut},
             {"taken back whole", 4, type("\b"), "ab", 1, changed},
             {"removed whole", 1, press(VK_DELETE), "ab", 1, changed},
             {"a place inside goes to its border", 3, press(VK_DELETE), "ab", 1, changed},
             {"one step", 1, press(VK_RIGHT), "a#b", 4, {}},
             {"and back", 4, press(VK_LEFT), "a#b", 1, {}}}) {
        SCOPED_TRACE(border);
        MakeEdit(0, "a#b");
        edit.LimitText(8);
        edit.SetSel(position, position);
        act();
        EXPECT_EQ(edit.GetWindowTextA(), WithLetters(text));
        EXPECT_EQ(Selection(), std::pair(caret, caret));
        EXPECT_EQ(parent.Take(), codes);
    }
    MakeEdit(0, "a");
    type("#")();
    edit.SendMessageA(EM_UNDO);
    EXPECT_EQ(edit.GetWindowTextA(), "a") << "one step of undo";
    EXPECT_EQ(display.TextWidth(WithLetters("a#")), 14);
    MakeEdit(ES_MULTILINE);
    edit.SetWindowTextA(WithLetters("a#b\r\nwxyz"));
    for (const auto& [key, caret] : {std::pair(VK_END, 5), {VK_LEFT, 4}, {VK_DOWN, 9}, {VK_UP, 4}}) {
        Press(static_cast<UINT>(key));
        EXPECT_EQ(Selection(), std::pair(caret, caret)) << "characters from the start of the line";
    }
    char buffer[4] = {};
    EXPECT_EQ(edit.SendMessageA(WM_GETTEXT, sizeof buffer, reinterpret_cast<LPARAM>(buffer)), 1);
    EXPECT_STREQ(buffer, "a") << "half a character does not fit";
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
        input::Key(picky.m_hWnd, WM_KEYDOWN, 0, WithLetters("#x"));
        EXPECT_EQ(picky.GetWindowTextA(), "x") << byte;
        picky.SetWindowTextA("");
    }
}

TEST_F(EditTest, TheClipboardIsTheDisplays) {
    const std::vector<UINT> copy{'C', 'X'}, paste{'V'};
    for (const auto& [border, style, text, clipboard, keys, textAfter, clipboardAfter] :
         Table<UINT, const char*, const char*, std::vector<UINT>, const char*, const char*>{
             {"copied and cut", 0, "abcd", "", copy, "", "abcd"},
             {"a password is not", ES_PASSWORD, "secret", "1", copy, "secret", "1"},
             {"one line takes the first", 0, "", "1\r\n2", paste, "1", "1\r\n2"},
             {"several take all", ES_MULTILINE, "", "1\r\n2", paste, "1\r\n2", "1\r\n2"},
             {"digits only", ES_NUMBER, "", "1a2", paste, "12", "1a2"},
             {"read-only", ES_READONLY, "", "1", paste, "", "1"}}) {
        MakeEdit(style, text);
        display.SetClipboardText(clipboard);
        edit.SetSel(0, -1);
        for (const UINT key : keys)
            Press(key, {VK_CONTROL});
        EXPECT_EQ(edit.GetWindowTextA(), textAfter) << border;
        EXPECT_EQ(display.ClipboardText(), clipboardAfter) << border;
    }
    MakeEdit(0, "abcd");
    edit.SetSel(0, -1);
    display.AnswerNextClipboard({ClipboardAnswer::Outcome::NotOpened});
    Press('X', {VK_CONTROL});
    EXPECT_EQ(edit.GetWindowTextA(), "abcd") << "what the clipboard does not take stays";
}

TEST_F(EditTest, UndoTakesBackARunOfTypingAndItself) {
    MakeEdit();
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
    EXPECT_EQ(edit.GetWindowTextA(), "ac") << "the deletion is a step of its own";
    edit.SetWindowTextA("new");
    EXPECT_EQ(edit.SendMessageA(EM_UNDO), 0);
    EXPECT_FALSE(edit.GetModify());
}

TEST_F(EditTest, WhatANativeWidgetReportsIsTakenBackByTheProgramToo) {
    MakeEdit(0, "ab");
    input::Edited(edit.m_hWnd, "abc", 3, 3);
    edit.LimitText(2);
    parent.Take();
    input::Edited(edit.m_hWnd, "abc", 0, 2); // the selection alone
    EXPECT_EQ(parent.Take(), Codes{}) << "a full field that only moves its caret";
    EXPECT_EQ(edit.SendMessageA(WM_UNDO), 1);
    EXPECT_EQ(edit.GetWindowTextA(), "ab");
}

TEST_F(EditTest, MarginsMoveTheTextInside) {
    MakeEdit(0, "one two"); // 7 pixels a character
    for (const auto& [border, which, left, right, margins, caret] :
         Table<UINT, unsigned, unsigned, unsigned, int>{
             {"both", EC_LEFTMARGIN | EC_RIGHTMARGIN, 20, 5, 0x50014, 0},
             {"the left alone", EC_LEFTMARGIN, 4, 9, 0x50004, 1},
             {"the right alone", EC_RIGHTMARGIN, 9, 7, 0x70004, 1},
             {"one as the font has it", EC_RIGHTMARGIN, 0, EC_USEFONTINFO, 0x30004, 1},
             {"as the font has it", EC_USEFONTINFO, 50, 50, 0x30003, 1}}) {
        edit.SendMessageA(EM_SETMARGINS, which, static_cast<LPARAM>(MAKEWPARAM(left, right)));
        EXPECT_EQ(edit.GetMargins(), margins) << border;
        input::Mouse(edit.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, {12, 5});
        EXPECT_EQ(Selection(), std::pair(caret, caret)) << border;
    }
}

TEST_F(EditTest, TheMousePlacesTheCaretAndSelects) {
    MakeEdit(0, "one two"); // 7 pixels a character
    const auto mouse = [&](UINT message, UINT flags, int x) {
        input::Mouse(edit.m_hWnd, message, flags, {x, 5});
    };
    mouse(WM_LBUTTONDOWN, MK_LBUTTON, 15);
    EXPECT_EQ(GetFocus(), edit.m_hWnd);
    EXPECT_EQ(parent.Take(), Codes{EN_SETFOCUS});
    EXPECT_EQ(Selection(), std::pair(2, 2));
    mouse(WM_MOUSEMOVE, MK_LBUTTON, 900);
    mouse(WM_LBUTTONUP, 0, 900);
    mouse(WM_MOUSEMOVE, 0, 0);
    EXPECT_EQ(Selection(), std::pair(2, 7));
    mouse(WM_LBUTTONDBLCLK, MK_LBUTTON, 10);
    EXPECT_EQ(Selection(), std::pair(0, 3));
    edit.SetSel(4, 1);
    edit.SetSel(-1, 0);
    EXPECT_EQ(Selection(), std::pair(4, 4)) << "the end of the selection";
    parent.SetFocus();
    EXPECT_EQ(parent.Take(), Codes{EN_KILLFOCUS});
}

} // namespace
} // namespace korvel

#include "support/combo_fixture.h"
#include "support/table.h"

namespace korvel {
namespace {

using namespace std::chrono_literals;

constexpr std::uint32_t Checks = ENF_CheckBoxes, Tree = ENF_Tree, Both = ENF_CheckBoxes | ENF_Tree;

class ComboStatesTest : public ComboTest {};

TEST_F(ComboStatesTest, ClicksAndKeys) {
    const auto drop = eDropDown, page = eDesignFlat;
    const std::uint32_t commandBits = 0x38000000 | 0x03000500;
    const Strings abc = {"a", "b", "c"}, tree = {"g/a", "b"}, family = {"g/a", "g/b", "c"};
    const Strings parent = {"a", "a/b"}, deep = {"g/a", "g/a/b"},
                  words = {"gravel", "Sand", "stone", "\xE4sche", "new value", "sandy"};
    const Strings lodz = {"\x81", "\x81\xE2\xE1-a", "\x81\xE2\xE1-b"}; // a capital; the small one is typed
    const std::string wordRows = "gravel|Sand|stone|\xE4sche|new value|sandy";
    // mode, flags, names, selection, acts; rows, current, heard, calls
    using Text = std::string;
    const Table<EComboListMode, std::uint32_t, Strings, Text, Text, Text, Text, Text, Text> cases = {
        {"plain, down", drop, 0, abc, ",1,", "down", "xa|b|c", "b", "9", "select 2"},
        {"up stays in the list", drop, 0, abc, "", "up, up", "a|b|c", "a", "9 9", "select 1, select 1"},
        {"space is free", drop, 0, abc, ",1,", "space", "xa|b|c", "a", "", ""},
        {"a click without a move", drop, 0, abc, ",1,", "press row 2", "xa|b|c", "a", "9 -3", "select 1"},
        {"the pointer leads", drop, 0, abc, "", "move row 2, move row 7", "a|b|c", "c", "", ""},
        {"a click", drop, 0, abc, "", "move row 2, press row 7", "a|b|c", "c", "9 -3", "select 3"},
        {"nothing current", drop, 0, {"a", ""}, "", "press row 7", "a|", "", "9 -3", "select 2"},
        {"bit 26 too", page, Tree | 0x04000000, {"b"}, "", "press row 0", "b", "b", "3 9", "select 1"},
        {"a page", page, 0, abc, "", "press row 1, press row 8", "a|b|c", "b", "3 9", "select 2"},
        {"a tree, over two rows", eDesignTree, Tree, tree, ",2,", "press label g, double label b", "+g|xb",
         "b", "3 9 -3", "select 2"},
        {"pages", drop, 0, abc, ",2,", "pagedown, pageup", "a|xb|c", "a", "9 9", "select 3, select 1"},
        {"checks, space", drop, Checks, abc, ",1,", "space, down", "a|b|c", "b", "9", "deselect 1"},
        {"checks, the end", drop, Checks, abc, ",1,", "end", "xa|b|c", "c", "", ""},
        {"a check box", page, Checks, abc, ",1,", "press check b", "xa|xb|c", "b", "3 9", "select 2"},
        {"twice, anywhere", drop, Checks, abc, "", "double row 8", "a|b|c", "", "-3", ""},

        {"a tree button", drop, Tree | commandBits, tree, "", "press button g", "-g|  a|b", "g", "", ""},
        {"opened by a key", drop, Tree, parent, "", "down, right", "-a|  b", "a", "9", "select 1"},
        {"a group twice", drop, Tree, tree, ",1,", "up, double label g", "+g|b", "g", "", ""},
        {"twice on its button", drop, Tree, tree, "", "double button g", "+g|b", "", "", ""},
        {"an entry twice", drop, Tree, tree, "", "double label b", "+g|b", "", "-3", ""},
        {"a tree's end: applied", drop, Tree, tree, "", "home, end", "+g|b", "b", "9", "select 2"},
        {"a checked one", drop, Both, family, ",2,", "press check g", "-g|  a|  b|c", "g", "9", "deselect 2"},
        {"no checked one", drop, Both, family, "", "press check g", "+g|c", "g", "9", "select 1, select 2"},
        {"space is quiet", drop, Both, family, "", "down, space", "+g|c", "g", "", "select 1, select 2"},
        {"a button", drop, Both, family, "", "press button g, down", "-g|  a|  b|c", "a", "", ""},
        {"a parent alone", drop, Both, parent, "", "press check a, right", "-xa|  b", "a", "9", "select 1"},
        {"its child's check", drop, Both, parent, ",2,", "press check a", "-a|  xb", "a", "9", "deselect 1"},
        {"deep", drop, Both, deep, ",2,", "press check g", "-g|  -a|    b", "g", "9", "deselect 2"},

        {"the next one", drop, 0, words, "", "down, type s", wordRows, "Sand", "9 9", "select 1, select 2"},
        {"a letter again goes on, and round", drop, Both, words, "", "type ssss", wordRows, "Sand", "", ""},
        {"whatever the case, accents too", drop, Both, words, "", "type \xC4", wordRows, "\xE4sche", "", ""},
        {"letters of several bytes", drop, Both, lodz, "", "type \x81\xE2\xE2\x81\xE2\xE2",
         "\x81|" + lodz[1] + "|" + lodz[2], lodz[2], "", ""},
        {"a blank inside", drop, 0, words, "", "type new, space, type v", wordRows, "new value", "9",
         "select 5"},
        {"found nowhere", drop, 0, words, "", "type q", wordRows, "", "", ""},
    };
    for (const auto& [name, mode, flags, names, selection, acts, rows, current, heard, calls] : cases) {
        SCOPED_TRACE(name);
        TestEnumeration shown(names, flags);
        Show(shown, mode, selection);
        display.Advance(2s); // what was typed before is forgotten
        Do(acts);
        EXPECT_EQ(Rows(), rows);
        EXPECT_EQ(Current(), current);
        EXPECT_EQ(Heard(), heard);
        EXPECT_EQ(shown.calls, calls);
        ExpectConsistent(*list);
    }
}

TEST_F(ComboStatesTest, EveryState) {
    for (const std::uint32_t flags : {0u, Checks, Tree, Both}) {
        for (const EComboListMode mode : {eDesignTree, eDropDown}) {
            SCOPED_TRACE(testing::Message() << flags << " " << mode);
            TestEnumeration shown(Strings(50, "x"), flags);
            Show(shown, mode, {}, 4);
            for (int i = 0; i < 50; ++i)
                Do("down");
            EXPECT_EQ(list->GetTopIndex(), 46);
            Do("wheel");
            EXPECT_EQ(list->GetTopIndex(), 43);
            EXPECT_EQ(list->GetCurrentRow(), 49);
            Do("home,pagedown,pagedown,pageup");
            EXPECT_EQ(list->GetCurrentRow(), 4);
            EXPECT_EQ(list->GetTopIndex(), 4);
            Do("double row 2, double row 8"); // one row is current
            EXPECT_EQ(Current(), "x");
            for (const UINT key :
                 {VK_SPACE, VK_HOME, VK_LEFT, VK_DOWN, VK_ESCAPE, VK_TAB}) // the last are free
                EXPECT_EQ(Key(key), key >= VK_SPACE) << key;
            TestEnumeration page(Strings(4, "x"), flags);
            Show(page, mode, {}, 4);
            Do("wheel"); // nor does it scroll the window below the list
            EXPECT_EQ(Heard(), "");
        }
    }
}

TEST_F(ComboStatesTest, ARowWhoseSelectionIsRefusedIsNeitherCurrentNorTaken) {
    for (const std::uint32_t flags : {0u, Checks, Tree, Both})
        for (const char* act : {"down", "press row 1", "press check b"}) {
            SCOPED_TRACE(testing::Message() << flags << " " << act);
            TestEnumeration shown({"a", "b"}, flags);
            Show(shown, eDesignTree, ",1,");
            frame.refuses = [](const NMLISTVIEW& notice) { return notice.uNewState & LVIS_SELECTED; };
            Do(act);
            frame.refuses = nullptr;
            EXPECT_EQ(Current(), "a");
            EXPECT_EQ(shown.calls.find('2'), CString::npos) << shown.calls;
        }
}

TEST_F(ComboStatesTest, WhichRowIsCurrentWhenRowsComeAndGo) {
    TestEnumeration shown({"g/a", "g/b", "c", "d"}, Tree);
    const Table<int, long, const char*> removals = {
        {"the next one", 1, 1, "b"}, {"the new last", 4, 4, "c"}, {"another one", 3, 1, "c"}};
    for (const auto& [name, current, id, expected] : removals) {
        Show(shown).Expand(list->GetTreeItem(0));
        list->SetCurrentRow(current);
        list->OnDestroyEnumValue(&shown, id);
        EXPECT_EQ(Current(), expected) << name;
    }
    list->Collapse(Item("g"));
    EXPECT_EQ(Current(), "c"); // as the last removal left it
    list->Expand(Item("g"));
    EXPECT_EQ(Current(), "c");
    list->SetCurrentRow(1);
    list->Collapse(Item("g")); // takes the current row away
    EXPECT_EQ(Current(), "");
    EXPECT_EQ(list->GetCurrentRow(), -1);
    Show(shown = TestEnumeration({"a"}));
    list->SetCurrentRow(0);
    list->OnDestroyEnumValue(&shown, 1);
    EXPECT_EQ(list->GetCurrentRow(), -1);
}

TEST_F(ComboStatesTest, KeysThatTheFieldHandsOn) {
    struct Field : CWnd {
        CComboList* dropped = nullptr;
        bool PreTranslateMessage(MSG& message) override {
            dropped->SendMessageA(message.message, message.wParam, message.lParam);
            return true;
        }
    } field;
    field.CreateEx(0, "KorvelFrame", "", WS_CHILD | WS_VISIBLE, {0, 0, 9, 9}, &frame, 0);
    TestEnumeration shown({"a", "b", "stone", "sand"});
    field.dropped = &Show(shown);
    input::Key(field.m_hWnd, WM_KEYDOWN, 'S', "s");
    EXPECT_EQ(Current(), "stone");
    input::Key(field.m_hWnd, WM_KEYDOWN, 'A', "a"); // still the same search
    EXPECT_EQ(Current(), "sand");
    input::Key(field.m_hWnd, WM_KEYDOWN, VK_UP, {});
    EXPECT_EQ(Current(), "stone");
}

TEST_F(ComboStatesTest, AListThatDropsDownLeavesTheKeyboardAlone) {
    TestEnumeration shown({"a", "b"});
    frame.SetFocus();
    Show(shown);
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_RBUTTONDOWN, WM_RBUTTONUP})
        Mouse(message, InRow(1));
    EXPECT_EQ(GetFocus(), frame.m_hWnd);
    EXPECT_EQ(list->SendMessageA(WM_MOUSEACTIVATE), 3);
    EXPECT_EQ(list->SendMessageA(WM_GETDLGCODE) & DLGC_WANTALLKEYS, DLGC_WANTALLKEYS);
    Show(shown, eDesignFlat);
    Do("press row 1");
    EXPECT_EQ(GetFocus(), list->m_hWnd);
}

} // namespace
} // namespace korvel

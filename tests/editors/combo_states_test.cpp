#include "combo_fixture.h"

namespace korvel {
namespace {

constexpr int Changed = 9;
constexpr int Finished = -3;

class ComboStatesTest : public ComboTest {
protected:
    /// The parts of a row in which a point has a meaning.
    CPoint In(const std::string& label, CRect (CComboList::*part)(const CComboTreeItem&) const) {
        const CRect rect = (list.get()->*part)(*Item(label));
        return {rect.left + 1, rect.top + 1};
    }
    CPoint Button(const std::string& label) { return In(label, &CComboList::GetRectTreeBox); }
    CPoint Check(const std::string& label) { return In(label, &CComboList::GetRectCheckBox); }
    CPoint Label(const std::string& label) { return In(label, &CComboList::GetRectLabel); }
};

TEST_F(ComboStatesTest, WhichListGetsWhichState) {
    struct Case {
        const char* name;
        std::uint32_t flags;
        bool (*isDesign)(const IGridCtrlComboBoxInputState*);
        bool (*isDropped)(const IGridCtrlComboBoxInputState*);
    };
    const auto plain = [](const IGridCtrlComboBoxInputState* state) {
        return dynamic_cast<const CGridCtrlComboBoxInputState*>(state) != nullptr;
    };
    const auto design = [](const IGridCtrlComboBoxInputState* state) {
        return dynamic_cast<const CGridCtrlComboBoxInputStateDesignDefault*>(state) != nullptr;
    };
    const auto check = [](const IGridCtrlComboBoxInputState* state) {
        return dynamic_cast<const CGridCtrlComboBoxInputStateCheckBox*>(state) != nullptr;
    };
    const auto tree = [](const IGridCtrlComboBoxInputState* state) {
        return dynamic_cast<const CGridCtrlComboBoxInputStateTree*>(state) != nullptr;
    };
    const auto treeCheck = [](const IGridCtrlComboBoxInputState* state) {
        return dynamic_cast<const CGridCtrlComboBoxInputStateTreeCheckBox*>(state) != nullptr;
    };
    const Case cases[] = {
        {"plain", 0, design, plain},
        {"checks", 1, check, check},
        {"tree", 512, tree, tree},
        {"tree with checks", 513, treeCheck, treeCheck},
        {"command bits do not count", 0x38000000 | 0x03000500 | 512, tree, tree},
        {"any other bit makes it plain", 513 | 2, design, plain},
        {"bit 26 is such a bit", 512 | 0x04000000, design, plain},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        TestEnumeration shown({"a"}, row.flags);
        for (const EComboListMode mode : {eDesignFlat, eDesignTree}) {
            Show(shown, mode);
            EXPECT_TRUE(row.isDesign(list->GetInputState()));
        }
        Show(shown);
        EXPECT_TRUE(row.isDropped(list->GetInputState()));
    }
}

TEST_F(ComboStatesTest, KeysInEveryState) {
    struct Case {
        const char* name;
        EComboListMode mode;
        std::uint32_t flags;
        UINT key;
        std::string current;
        Codes codes;
        Strings calls;
    };
    const std::uint32_t checks = ENF_CheckBoxes, tree = ENF_Tree, both = ENF_CheckBoxes | ENF_Tree;
    // The list begins at "b", the middle of three rows; in a tree these are a, the closed group b, c.
    const Case cases[] = {
        {"plain, down", eDropDown, 0, VK_DOWN, "c", {Changed}, {"select 3"}},
        {"plain, up", eDropDown, 0, VK_UP, "a", {Changed}, {"select 1"}},
        {"plain, space is free", eDropDown, 0, VK_SPACE, "b", {}, {}},
        {"design, down", eDesignFlat, 0, VK_DOWN, "c", {Changed}, {"select 3"}},
        {"checks, down chooses nothing", eDropDown, checks, VK_DOWN, "c", {}, {}},
        {"checks, space", eDropDown, checks, VK_SPACE, "b", {Changed}, {"deselect 2"}},
        {"checks, left is free", eDropDown, checks, VK_LEFT, "b", {}, {}},
        {"tree, down onto an entry", eDropDown, tree, VK_DOWN, "c", {Changed}, {"select 3"}},
        {"tree, right opens", eDropDown, tree, VK_RIGHT, "b", {}, {}},
        {"tree with checks, down", eDropDown, both, VK_DOWN, "c", {}, {}},
        {"tree with checks, space tells nobody", eDropDown, both, VK_SPACE, "b", {}, {"select 2"}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        const bool isTree = (row.flags & ENF_Tree) != 0;
        TestEnumeration shown({"a", isTree ? "b/x" : "b", "c"}, row.flags);
        Show(shown, row.mode, isTree ? "" : ",2,");
        list->SetCurrentRow(1);
        Key(row.key);
        EXPECT_EQ(Current(), row.current);
        EXPECT_EQ(Highlighted(), row.current);
        EXPECT_EQ(TakeCodes(), row.codes);
        EXPECT_EQ(shown.calls, row.calls);
        ExpectConsistent(*list);
    }
}

TEST_F(ComboStatesTest, MovingStaysInTheList) {
    TestEnumeration shown({"a", "b"});
    Show(shown);
    Key(VK_UP); // nothing is current yet
    EXPECT_EQ(Current(), "a");
    Key(VK_UP);
    EXPECT_EQ(Current(), "a");
    Key(VK_DOWN);
    Key(VK_DOWN);
    EXPECT_EQ(Current(), "b");

    TestEnumeration none{std::vector<std::string>{}};
    Show(none);
    Key(VK_DOWN);
    EXPECT_EQ(list->GetCurrentRow(), 0);
    EXPECT_EQ(TakeCodes(), Codes{Changed}); // all the same
    EXPECT_TRUE(none.calls.empty());
}

TEST_F(ComboStatesTest, KeysReachEveryRow) {
    TestEnumeration shown(std::vector<std::string>(50, "x"));
    Show(shown, eDropDown, {}, 4);
    for (int i = 0; i < 50; ++i)
        Key(VK_DOWN);
    EXPECT_EQ(list->GetTopIndex(), 46);
    input::Mouse(list->m_hWnd, WM_MOUSEWHEEL, 0, {5, 5}, 120);
    EXPECT_EQ(list->GetTopIndex(), 43);
    EXPECT_EQ(list->GetCurrentRow(), 49);
}

TEST_F(ComboStatesTest, AClickTakesWhatThePointerMadeCurrent) {
    TestEnumeration shown({"a", "b", "c"});
    Show(shown, eDropDown, ",1,");
    Mouse(WM_LBUTTONDOWN, InRow(2)); // no move came before: the former row
    EXPECT_EQ(shown.calls, Strings{"select 1"});
    EXPECT_EQ(TakeCodes(), (Codes{Changed, Finished}));
    Mouse(WM_MOUSEMOVE, InRow(2));
    EXPECT_EQ(Highlighted(), "c");
    Mouse(WM_MOUSEMOVE, InRow(7)); // below the rows
    Mouse(WM_LBUTTONDOWN, InRow(7));
    EXPECT_EQ(shown.calls, (Strings{"select 1", "select 3"}));
    EXPECT_EQ(list->GetValue().Text, ",3,");
}

TEST_F(ComboStatesTest, AClickWithNothingCurrentTakesTheEntryWithoutName) {
    TestEnumeration shown({"a", ""});
    Show(shown);
    Mouse(WM_LBUTTONDOWN, InRow(7));
    EXPECT_EQ(shown.calls, Strings{"select 2"});
}

TEST_F(ComboStatesTest, EveryEqualEntryIsSelected) {
    TestEnumeration shown({"same", "x", "same"});
    Show(shown);
    Key(VK_DOWN);
    EXPECT_EQ(shown.calls, (Strings{"select 1", "select 3"}));
}

TEST_F(ComboStatesTest, ClicksInAListThatStands) {
    TestEnumeration shown({"a", "b", "c"});
    Show(shown, eDesignFlat);
    Mouse(WM_LBUTTONDOWN, InRow(1));
    Mouse(WM_LBUTTONUP, InRow(1));
    EXPECT_EQ(Highlighted(), "b");
    EXPECT_EQ(shown.calls, Strings{"select 2"});
    EXPECT_EQ(GetFocus(), list->m_hWnd);
    Mouse(WM_LBUTTONDOWN, InRow(8));
    EXPECT_EQ(Highlighted(), "b"); // what commands are about stays visible
    EXPECT_EQ(TakeCodes(), (Codes{ComboListSetFocus, Changed}));
}

TEST_F(ComboStatesTest, ClicksInCheckBoxes) {
    TestEnumeration shown({"a", "b"}, ENF_CheckBoxes);
    Show(shown, eDropDown, ",1,");
    const CRect box = list->GetRectCheckBox(1);
    Mouse(WM_LBUTTONDOWN, {box.left, box.top});
    EXPECT_EQ(Rows(), (Strings{"xa", "xb"}));
    Mouse(WM_LBUTTONDOWN, {box.right - 1, box.bottom - 1});
    EXPECT_EQ(Rows(), (Strings{"xa", "b"}));
    EXPECT_EQ(TakeCodes(), (Codes{Changed, Changed}));
    Mouse(WM_LBUTTONDOWN, {box.right, box.top});
    EXPECT_EQ(TakeCodes(), Codes{Finished});
    EXPECT_EQ(Rows(), (Strings{"xa", "b"}));
    Mouse(WM_LBUTTONDBLCLK, {box.left, box.top});
    EXPECT_EQ(TakeCodes(), Codes{Finished});
    Mouse(WM_LBUTTONDOWN, InRow(8));
    EXPECT_EQ(TakeCodes(), Codes{});
}

TEST_F(ComboStatesTest, ClicksInATree) {
    TestEnumeration shown({"g/a", "b"}, ENF_Tree);
    Show(shown);
    Mouse(WM_LBUTTONDOWN, Button("g"));
    EXPECT_EQ(Rows(), (Strings{"-g", "  a", "b"}));
    Mouse(WM_LBUTTONDOWN, Label("g")); // only becomes current
    EXPECT_EQ(Current(), "g");
    EXPECT_EQ(TakeCodes(), Codes{});
    Mouse(WM_LBUTTONDOWN, Label("a"));
    EXPECT_EQ(TakeCodes(), (Codes{Changed, Finished}));
    EXPECT_EQ(list->GetValue().Text, ",1,");
    Mouse(WM_LBUTTONDBLCLK, Label("g"));
    EXPECT_EQ(Rows(), (Strings{"+g", "b"}));
    Mouse(WM_LBUTTONDBLCLK, Button("g")); // outside of the label
    EXPECT_EQ(Rows(), (Strings{"+g", "b"}));
    Mouse(WM_LBUTTONDBLCLK, Label("b"));
    EXPECT_EQ(TakeCodes(), Codes{Finished});
    Mouse(WM_LBUTTONDBLCLK, InRow(8));
    EXPECT_EQ(TakeCodes(), Codes{});
}

TEST_F(ComboStatesTest, AnEntryThatOthersStandUnderOpensByItsButton) {
    TestEnumeration shown({"a", "a/b"}, ENF_Tree | ENF_CheckBoxes);
    Show(shown);
    Mouse(WM_LBUTTONDOWN, Button("a"));
    EXPECT_EQ(Rows(), (Strings{"-a", "  b"}));
    Mouse(WM_LBUTTONDOWN, Check("a"));
    EXPECT_EQ(Rows(), (Strings{"-xa", "  xb"}));
    ExpectConsistent(*list);
    EXPECT_EQ(Item("a")->GetChecked(), 2);
}

TEST_F(ComboStatesTest, ClicksInATreeWithCheckBoxes) {
    TestEnumeration shown({"g/a", "g/b", "g/c", "d"}, ENF_Tree | ENF_CheckBoxes);
    Show(shown, eDropDown, ",2,");
    EXPECT_EQ(Rows(), (Strings{"-g", "  a", "  xb", "  c", "d"}));
    Mouse(WM_LBUTTONDOWN, Check("g")); // one is checked: all become unchecked
    EXPECT_EQ(Rows(), (Strings{"-g", "  a", "  b", "  c", "d"}));
    Mouse(WM_LBUTTONDOWN, Check("g"));
    EXPECT_EQ(Rows(), (Strings{"-g", "  xa", "  xb", "  xc", "d"}));
    EXPECT_EQ(shown.calls, (Strings{"deselect 2", "select 1", "select 2", "select 3"}));
    EXPECT_EQ(TakeCodes(), (Codes{Changed, Changed}));
    ExpectConsistent(*list);
    Mouse(WM_LBUTTONDOWN, Label("g"));
    EXPECT_EQ(TakeCodes(), Codes{});
    Mouse(WM_LBUTTONDBLCLK, Label("g"));
    EXPECT_EQ(Rows(), (Strings{"+g", "d"}));
    EXPECT_EQ(TakeCodes(), Codes{});
    Mouse(WM_LBUTTONDBLCLK, Check("g"));
    Mouse(WM_LBUTTONDBLCLK, Label("d"));
    Mouse(WM_LBUTTONDBLCLK, InRow(8));
    EXPECT_EQ(TakeCodes(), (Codes{Finished, Finished, Finished}));
}

TEST_F(ComboStatesTest, LeftAndRightCloseAndOpen) {
    TestEnumeration shown({"g/a", "b"}, ENF_Tree);
    Show(shown);
    list->SetCurrentRow(0);
    Key(VK_RIGHT);
    EXPECT_EQ(Rows(), (Strings{"-g", "  a", "b"}));
    Key(VK_RIGHT);
    list->SetCurrentRow(2);
    Mouse(WM_LBUTTONDOWN, Button("g"));
    list->SetCurrentRow(2);
    list->SetCurrentRow(0);
    Key(VK_LEFT);
    Key(VK_LEFT);
    EXPECT_EQ(Rows(), (Strings{"+g", "b"}));
    EXPECT_EQ(Highlighted(), "g");
}

TEST_F(ComboStatesTest, TheCurrentRowKeepsItsItem) {
    TestEnumeration shown({"g/a", "g/b", "c"}, ENF_Tree);
    Show(shown);
    list->SetCurrentRow(1);
    list->Expand(Item("g"));
    EXPECT_EQ(Current(), "c");
    shown.entries.erase(shown.entries.begin());
    list->OnDestroyEnumValue(&shown, 1);
    EXPECT_EQ(Current(), "c");
    EXPECT_EQ(Highlighted(), "c");
    list->SetCurrentRow(1);
    list->Collapse(Item("g")); // takes the current row away
    EXPECT_EQ(list->GetCurrentRow(), -1);
    EXPECT_EQ(Highlighted(), "");
}

TEST_F(ComboStatesTest, LettersFindTheNextEntry) {
    using namespace std::chrono_literals;
    struct Case {
        const char* name;
        std::uint32_t flags;
        std::string typed;
        std::string current;
        Codes codes;
    };
    const Case cases[] = {
        {"the next one", 0, "s", "Sand", {Changed}},
        {"what follows belongs to it", 0, "st", "stone", {Changed, Changed}},
        {"a letter again goes on, and round", 0, "sss", "Sand", {Changed, Changed, Changed}},
        {"whatever the case, accents too", 0, "\xC4", "\xE4sche", {Changed}},
        {"a blank inside", 0, "new v", "new value", {Changed}},
        {"found nowhere", 0, "q", "gravel", {}},
        {"longer than the text", 0, "sandy", "Sand", {Changed}},
        {"as the arrows do it", ENF_CheckBoxes, "s", "Sand", {}},
        {"a blank is taken", ENF_CheckBoxes, " ", "gravel", {Changed}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        TestEnumeration shown({"gravel", "Sand", "stone", "\xE4sche", "new value"}, row.flags);
        Show(shown, eDropDown, ",1,");
        display.Advance(2s);
        TakeCodes();
        for (const char letter : row.typed)
            input::Key(list->m_hWnd, WM_KEYDOWN, letter == ' ' ? VK_SPACE : 0, std::string(1, letter));
        EXPECT_EQ(Current(), row.current);
        EXPECT_EQ(TakeCodes(), row.codes);
    }
    display.Advance(2s);
    Type('n'); // a new search
    EXPECT_EQ(Current(), "new value");
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
    EXPECT_EQ(input::CurrentKey(), nullptr);
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
    EXPECT_TRUE(display.ShownMenus().empty());
}

TEST_F(ComboStatesTest, AnOwnerMayEndTheBindingWhenARowIsSelected) {
    TestEnumeration shown({"a", "b"}, ENF_Tree | ENF_CheckBoxes);
    for (const int countdown : {1, 2, 3, 4}) {
        int left = countdown;
        Make(eDesignTree);
        frame.onNotify = [&](UINT code) {
            if (code == LVN_ITEMCHANGED && --left == 0)
                list->UnIntialize();
        };
        list->Initialize("value", shown.ValueOf(",1,"));
        Key(VK_DOWN);
        Mouse(WM_LBUTTONDOWN, {30, 10});
        Mouse(WM_LBUTTONDOWN, {30, 30});
        ExpectConsistent(*list);
        EXPECT_FALSE(list->IsInitialized());
        frame.onNotify = nullptr;
    }
}

TEST_F(ComboStatesTest, AnOwnerMayEndTheBindingAtAnyNotification) {
    for (const std::uint32_t flags : {0u, 1u, 512u, 513u}) {
        for (const EComboListMode mode : {eDropDown, eDesignTree}) {
            for (const int endsAt : {Changed, Finished}) {
                TestEnumeration shown({"a", "b"}, flags);
                frame.onCode = [&](int code) {
                    if (code == endsAt)
                        list->UnIntialize();
                };
                for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONDBLCLK}) {
                    Show(shown, mode, ",1,");
                    Mouse(message, {50, 30});
                    ExpectConsistent(*list);
                }
                for (const UINT key : {VK_SPACE, VK_DOWN}) {
                    Show(shown, mode, ",1,");
                    Key(key);
                    Type('b');
                    ExpectConsistent(*list);
                }
                frame.onCode = nullptr;
            }
        }
    }
}

} // namespace
} // namespace korvel

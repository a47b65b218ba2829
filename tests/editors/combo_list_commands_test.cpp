#include "combo_fixture.h"

namespace korvel {
namespace {

constexpr std::uint32_t AllFlags = ENF_Add | ENF_Delete | ENF_Rename;
constexpr std::uint32_t AllCommands =
    CComboList::eCommandAdd | CComboList::eCommandRename | CComboList::eCommandDelete;

class ComboCommandsTest : public ComboTest {
protected:
    /// Right-clicks and takes the entry with this command; 0 takes none.
    Strings Menu(CPoint point, unsigned command = 0) {
        display.AnswerNext(static_cast<int>(command));
        const std::size_t before = display.ShownMenus().size();
        Mouse(WM_RBUTTONDOWN, point);
        Mouse(WM_RBUTTONUP, point);
        if (display.ShownMenus().size() == before) {
            display.TrackMenu(nullptr, {}, {}); // takes the answer that was not needed
            return {};
        }
        Strings texts;
        for (const MenuEntry& entry : display.ShownMenus().back())
            texts.push_back(entry.text);
        return texts;
    }
    HWND Edit() const { return list->GetEditControl(); }
    void TypeLabel(const CString& text, UINT end = VK_RETURN) {
        ASSERT_NE(Edit(), nullptr);
        SetWindowTextA(Edit(), text);
        SendMessageA(Edit(), WM_KEYDOWN, end, 0);
    }
};

TEST_F(ComboCommandsTest, WhatTheMenuOffers) {
    struct Case {
        const char* name;
        EComboListMode mode;
        std::uint32_t flags;
        std::uint32_t commands;
        int row;
        Strings menu;
    };
    const Case cases[] = {
        {"dropped down: nothing", eDropDown, AllFlags, AllCommands, 0, {}},
        {"nothing enabled", eDesignFlat, AllFlags, 0, 0, {}},
        {"add without its flag", eDesignFlat, ENF_Delete, CComboList::eCommandAdd, 0, {}},
        {"flag without its command", eDesignFlat, ENF_Rename, CComboList::eCommandDelete, 0, {}},
        {"flat", eDesignFlat, AllFlags, AllCommands, 1, {"insert new value", "erase 'b'", "rename 'b'"}},
        {"beside the rows", eDesignFlat, AllFlags, AllCommands, 8, {"insert new value"}},
        {"tree, a group",
         eDesignTree,
         AllFlags | ENF_Tree,
         CComboList::eCommandAdd,
         0,
         {"new value", "insert group", "insert new value at 'g'", "insert new group at 'g'"}},
        {"tree, an entry: its group",
         eDesignTree,
         ENF_Add | ENF_Tree,
         CComboList::eCommandAdd,
         3,
         {"new value", "insert group", "insert new value at 'g/h'", "insert new group at 'g/h'"}},
        {"tree, beside the rows",
         eDesignTree,
         AllFlags | ENF_Tree,
         AllCommands,
         8,
         {"new value", "insert group"}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        const bool isTree = (row.flags & ENF_Tree) != 0;
        TestEnumeration shown(isTree ? Strings{"g/a", "g/h/c"} : Strings{"a", "b"}, row.flags);
        Show(shown, row.mode);
        if (isTree)
            list->ExpandParent(Item("g")->GetFirstChild()->GetNextSibling());
        list->EnableCommands(row.commands, true);
        EXPECT_EQ(Menu(InRow(row.row)), row.menu);
        EXPECT_TRUE(shown.calls.empty());
    }
}

TEST_F(ComboCommandsTest, CommandsAreSwitchedBitByBitAndOutliveTheBinding) {
    TestEnumeration shown({"a"}, AllFlags);
    Show(shown, eDesignFlat);
    list->EnableCommands(AllCommands, true);
    list->EnableCommands(CComboList::eCommandDelete | CComboList::eCommandAdd, false);
    list->Initialize("value", shown.ValueOf(""));
    EXPECT_EQ(Menu(InRow(0)), Strings{"rename 'a'"});
}

TEST_F(ComboCommandsTest, DataSheetOfATableGoesToTheOwner) {
    TestEnumeration shown({"a"}, ENF_Delete);
    shown.type = DT_Group;
    Show(shown, eDesignFlat);
    list->EnableCommands(AllCommands, true);
    EXPECT_EQ(Menu({10, 24 + 5}, ComboCommandDataSheet), (Strings{"erase 'a'", "", "Data sheet"}));
    EXPECT_EQ(frame.commands, std::vector<UINT>{ComboCommandDataSheet});
    EXPECT_EQ(Current(), "a");
}

TEST_F(ComboCommandsTest, WhatTheCommandsDo) {
    struct Case {
        const char* name;
        unsigned command;
        int row;
        Strings calls;
        Strings rows;
        std::string current;
    };
    const Case cases[] = {
        {"a value at the root",
         ComboCommandAddRootItem,
         8,
         {"add value@"},
         {"-g", "  a", "  -h", "    b", "c", "value"},
         "value"},
        {"a group at the root",
         ComboCommandAddRootGroup,
         8,
         {},
         {"-g", "  a", "  -h", "    b", "c", "value"},
         "value"},
        {"a value in a group",
         ComboCommandAddItem,
         2,
         {"add value@g/h"},
         {"-g", "  a", "  -h", "    b", "    value", "c"},
         "value"},
        {"a value beside an entry",
         ComboCommandAddItem,
         1,
         {"add value@g"},
         {"-g", "  a", "  -h", "    b", "  value", "c"},
         "value"},
        {"a group in a group",
         ComboCommandAddGroup,
         3,
         {},
         {"-g", "  a", "  -h", "    b", "    value", "c"},
         "value"},
        {"a group goes with all in it", ComboCommandDelete, 0, {"remove 2", "remove 1"}, {"c"}, ""},
        {"an entry", ComboCommandDelete, 3, {"remove 2"}, {"-g", "  a", "  h", "c"}, ""},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        TestEnumeration shown({"g/a", "g/h/b", "c"}, AllFlags | ENF_Tree);
        Show(shown, eDesignTree, ",2,");
        list->EnableCommands(AllCommands, true);
        list->SetCurrentRow(-1);
        Menu(InRow(row.row), row.command);
        EXPECT_EQ(shown.calls, row.calls);
        Strings rows = Rows();
        for (std::string& text : rows)
            std::erase(text, 'x');
        EXPECT_EQ(rows, row.rows);
        EXPECT_EQ(Current(), row.current);
        ExpectConsistent(*list);
    }
}

TEST_F(ComboCommandsTest, NewNamesAreFree) {
    TestEnumeration shown({"value", "g/value"}, ENF_Add | ENF_Tree);
    Show(shown, eDesignTree);
    list->SendMessageA(WM_COMMAND, ComboCommandAddRootItem);
    list->SetCurrentRow(1);
    list->SendMessageA(WM_COMMAND, ComboCommandAddItem);
    EXPECT_EQ(shown.calls, (Strings{"add value1@", "add value1@g"}));
}

TEST_F(ComboCommandsTest, AnEnumerationThatReportsWhatItAddsGetsOneRow) {
    TestEnumeration shown({"a"}, ENF_Add);
    Show(shown, eDesignFlat);
    shown.onCall = [&](const std::string& operation, long) {
        if (operation == "name" && shown.entries.size() == 2 && list->GetItemCount() == 1) {
            shown.onCall = nullptr;
            list->OnAddEnumValue(&shown, 2);
        }
    };
    list->GetModel().AddValue("b", "");
    ExpectConsistent(*list);
}

TEST_F(ComboCommandsTest, CommandsWithoutACurrentRowDoNothing) {
    TestEnumeration shown({"a"}, AllFlags);
    Show(shown, eDesignFlat);
    for (const UINT command : {15007, 15008, 15044, 15045})
        list->SendMessageA(WM_COMMAND, command);
    list->UnIntialize();
    list->SendMessageA(WM_COMMAND, ComboCommandAddRootItem);
    EXPECT_TRUE(shown.calls.empty());
    EXPECT_EQ(Edit(), nullptr);
}

TEST_F(ComboCommandsTest, LabelsThatAreEdited) {
    struct Case {
        const char* name;
        int row;
        CString typed;
        UINT end;
        Strings calls;
        Strings rows;
    };
    const Strings before = {"-g", "  a", "  xb", "c"};
    const Case cases[] = {
        {"an entry", 1, "new", VK_RETURN, {"rename g/new"}, {"-g", "  new", "  xb", "c"}},
        {"a group: every entry",
         0,
         "new",
         VK_RETURN,
         {"rename new/a", "rename new/b"},
         {"-new", "  a", "  xb", "c"}},
        {"given up", 1, "new", VK_ESCAPE, {}, before},
        {"nothing typed", 1, "", VK_RETURN, {}, before},
        {"a path is no label", 1, "x/y", VK_RETURN, {}, before},
        {"a separator that is text", 3, "x\\/y", VK_RETURN, {"rename x\\/y"}, {"-g", "  a", "  xb", "x\\/y"}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        TestEnumeration shown({"g/a", "g/b", "c"}, ENF_Rename | ENF_Tree);
        Show(shown, eDesignTree, ",2,");
        list->EnableCommands(AllCommands, true);
        EXPECT_EQ(Rows(), before);
        list->SetCurrentRow(row.row);
        list->SendMessageA(WM_COMMAND, ComboCommandRename);
        TypeLabel(row.typed, row.end);
        EXPECT_EQ(shown.calls, row.calls);
        EXPECT_EQ(Rows(), row.rows);
        EXPECT_EQ(list->GetItemText(row.row, 0), list->GetTreeItem(row.row)->GetLabel());
        ExpectConsistent(*list);
    }
}

TEST_F(ComboCommandsTest, AGroupOfWhichOneEntryRefusesIsSplit) {
    TestEnumeration shown({"g/a", "g/b", "g/c"}, ENF_Tree);
    Show(shown, eDesignTree, ",1,");
    shown.onCall = [&](const std::string& operation, long id) {
        shown.refuses = operation == "rename" ? id == 2 : shown.refuses;
    };
    EXPECT_FALSE(list->GetModel().RenameLabel(*Item("g"), "n"));
    EXPECT_EQ(Rows(), (Strings{"-g", "  b", "+n"}));
    EXPECT_EQ(Item("n")->GetChecked(), 1);
    ExpectConsistent(*list);
}

TEST_F(ComboCommandsTest, LabelsThatMustNotBeEdited) {
    TestEnumeration shown({"a"}, 0);
    Show(shown, eDesignFlat);
    list->EnableCommands(AllCommands, true);
    list->SetCurrentRow(0);
    list->SendMessageA(WM_COMMAND, ComboCommandRename); // the flag is clear
    EXPECT_EQ(Edit(), nullptr);
    shown.flags = ENF_Rename;
    list->EnableCommands(CComboList::eCommandRename, false);
    list->SendMessageA(WM_COMMAND, ComboCommandRename);
    EXPECT_EQ(Edit(), nullptr);
}

} // namespace
} // namespace korvel

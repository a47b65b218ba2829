#include "support/combo_fixture.h"

namespace korvel {
namespace {

constexpr std::uint32_t Add = CComboList::eCommandAdd, Rename = CComboList::eCommandRename,
                        Delete = CComboList::eCommandDelete, All = Add | Rename | Delete;
constexpr std::uint32_t AllFlags = ENF_Add | ENF_Delete | ENF_Rename;

class ComboCommandsTest : public ComboTest {
protected:
    // Right-clicks and takes the entry with this command; 0 takes none. The texts with a bar between.
    std::string Menu(CPoint point, unsigned command = 0) {
        display.AnswerNext(static_cast<int>(command));
        const std::size_t before = display.ShownMenus().size();
        Mouse(WM_RBUTTONDOWN, point);
        Mouse(WM_RBUTTONUP, point);
        if (display.ShownMenus().size() == before) {
            display.TrackMenu(nullptr, {}, {}); // takes the answer that was not needed
            return {};
        }
        std::string texts;
        for (const MenuEntry& entry : display.ShownMenus().back())
            texts += (texts.empty() ? "" : "|") + entry.text;
        return texts;
    }
    // Types over the label of the current row.
    void EditLabel(const CString& text, UINT end) {
        Command(ComboCommandRename);
        ASSERT_NE(list->GetEditControl(), nullptr);
        SetWindowTextA(list->GetEditControl(), text);
        SendMessageA(list->GetEditControl(), WM_KEYDOWN, end, 0);
    }
    LRESULT TellEndOfEdit(int row, const char* text) {
        NMLVDISPINFO end;
        end.hdr.hwndFrom = list->m_hWnd;
        end.hdr.code = LVN_ENDLABELEDIT;
        end.iItem = row;
        end.pszText = text;
        return SendMessageA(frame.m_hWnd, WM_NOTIFY, 106, reinterpret_cast<LPARAM>(&end));
    }
};

TEST_F(ComboCommandsTest, WhatTheMenuOffers) {
    struct Case {
        const char* name;
        EComboListMode mode;
        std::uint32_t flags, commands;
        int row;
        std::string menu;
    };
    const std::string intoTree = "new value|insert group";
    const auto at = [&](const std::string& path) {
        return intoTree + "|insert new value at '" + path + "'|insert new group at '" + path + "'";
    };
    const Case cases[] = {
        {"dropped down: nothing", eDropDown, AllFlags, All, 0, ""},
        {"nothing enabled", eDesignFlat, AllFlags, 0, 0, ""},
        {"add without its flag", eDesignFlat, ENF_Delete, Add, 0, ""},
        {"flag without its command", eDesignFlat, ENF_Rename, Delete, 0, ""},
        {"flat", eDesignFlat, AllFlags, All, 1, "insert new value|erase 'b'|rename 'b'"},
        {"beside the rows", eDesignFlat, AllFlags, All, 8, "insert new value"},
        {"tree, a group", eDesignTree, AllFlags | ENF_Tree, Add, 0, at("g")},
        {"an entry: its group", eDesignTree, ENF_Add | ENF_Tree, Add, 3, at("g/h")},
        {"an entry at the top: no path", eDesignTree, ENF_Add | ENF_Tree, Add, 4, at("")},
        {"tree, beside the rows", eDesignTree, AllFlags | ENF_Tree, All, 8, intoTree},
    };
    for (const Case& row : cases) {
        const bool isTree = (row.flags & ENF_Tree) != 0;
        TestEnumeration shown(isTree ? Strings{"g/a", "g/h/c", "d"} : Strings{"a", "b"}, row.flags);
        Show(shown, row.mode);
        if (isTree)
            list->ExpandParent(Item("g")->GetFirstChild()->GetNextSibling());
        list->EnableCommands(row.commands, true);
        EXPECT_EQ(Menu(InRow(row.row)), row.menu) << row.name;
        EXPECT_EQ(shown.calls, "") << row.name;
    }
}

TEST_F(ComboCommandsTest, DataSheetOfATableGoesToTheOwner) {
    TestEnumeration shown({"a"}, ENF_Delete);
    shown.type = DT_Group;
    Show(shown, eDesignFlat);
    list->EnableCommands(All, true);
    frame.heard.clear();
    EXPECT_EQ(Menu({10, 24 + 5}, ComboCommandDataSheet), "erase 'a'||Data sheet");
    EXPECT_EQ(Heard(), "3 15004");
    EXPECT_EQ(Current(), "a");
}

TEST_F(ComboCommandsTest, WhatTheCommandsDo) {
    struct Case {
        const char* name;
        unsigned command;
        int row;
        std::string calls, rows, current;
    };
    const std::string atTheEnd = "-g|  a|  -h|    b|c|value", inH = "-g|  a|  -h|    b|    value|c",
                      inG = "-g|  a|  -h|    b|  value|c";
    const Case cases[] = {
        {"a value at the root", ComboCommandAddRootItem, 8, "add value@", atTheEnd, "value"},
        {"a group at the root", ComboCommandAddRootGroup, 8, "", atTheEnd, "value"},
        {"a value in a group", ComboCommandAddItem, 2, "add value@g/h", inH, "value"},
        {"a value beside an entry", ComboCommandAddItem, 1, "add value@g", inG, "value"},
        {"a group in a group", ComboCommandAddGroup, 3, "", inH, "value"},
        {"a group goes with all in it", ComboCommandDelete, 0, "remove 1, remove 2", "c", "c"},
        {"an entry", ComboCommandDelete, 3, "remove 2", "-g|  a|  h|c", "c"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        TestEnumeration shown({"g/a", "g/h/b", "c"}, AllFlags | ENF_Tree);
        Show(shown, eDesignTree);
        list->ExpandParent(Item("g")->GetFirstChild()->GetNextSibling());
        list->EnableCommands(All, true);
        Menu(InRow(row.row), row.command);
        EXPECT_EQ(shown.calls, row.calls);
        EXPECT_EQ(Rows(), row.rows);
        EXPECT_EQ(Current(), row.current);
        ExpectConsistent(*list);
    }
}

TEST_F(ComboCommandsTest, AnEnumerationThatReportsWhatItAddsGetsOneRow) {
    struct Reporting : TestEnumeration {
        CComboList* list = nullptr;
        long AddValue(const std::string& name, const std::string& group) override {
            const long id = TestEnumeration::AddValue(name, group);
            list->OnAddEnumValue(this, id);
            return id;
        }
    } shown;
    shown.list = &Show(shown, eDesignFlat);
    Command(ComboCommandAddRootItem);
    EXPECT_EQ(Rows(), "value");
}

TEST_F(ComboCommandsTest, WithoutACurrentRowOrARightNothingHappens) {
    TestEnumeration shown({"a"}, AllFlags);
    Show(shown, eDesignFlat);
    for (const UINT command : {15007, 15008, 15044, 15045})
        Command(command);
    list->SetCurrentRow(0);
    Command(ComboCommandRename); // not enabled
    EXPECT_EQ(list->GetEditControl(), nullptr);
    list->EnableCommands(All, true);
    list->EnableCommands(Add, false);
    list->Initialize("value", shown.ValueOf("")); // what is enabled outlives the binding
    EXPECT_EQ(Menu(InRow(0)), "erase 'a'|rename 'a'");
    shown.flags = ENF_Add;
    Command(ComboCommandRename); // the flag is clear
    EXPECT_EQ(list->GetEditControl(), nullptr);
    list->UnIntialize();
    Command(ComboCommandAddRootItem);
    EXPECT_EQ(shown.calls, "");
}

TEST_F(ComboCommandsTest, LabelsThatAreEdited) {
    struct Case {
        const char* name;
        int row;
        CString typed;
        long refused; // the entry that keeps its name
        std::string calls, rows, current;
    };
    const std::string before = "-g|  a|  xb|-c|  d", renames = "rename k/a, rename k/b";
    const Case cases[] = {
        {"an entry", 1, "new", 0, "rename g/new", "-g|  new|  xb|-c|  d", "new"},
        {"a separator that is text", 1, "x\\/y", 0, "rename g/x\\/y", "-g|  x\\/y|  xb|-c|  d", "x\\/y"},
        {"an entry with others: alone", 3, "new", 0, "rename new", "-g|  a|  xb|-new|  d", "new"},
        {"a group: every entry", 0, "k", 0, renames, "-k|  a|  xb|-c|  d", "k"},
        {"nothing typed", 1, "", 0, "", before, "a"},
        {"a path moves the entry", 1, "x//y", 0, "rename g/x/y", "-g|  xb|  -x|    y|-c|  d", "y"},
        {"one with others too", 3, "x/y", 0, "rename x/y", "-g|  a|  xb|-c|  d|-x|  y", "y"},
        {"and the entries of a group", 0, "k/m", 0, "rename k/m/a, rename k/m/b", "-c|  d|-k|  +m", "m"},
        {"into the group itself", 0, "g/m", 0, "rename g/m/a, rename g/m/b", "-g|  +m|-c|  d", "m"},
        {"no part at all", 1, "//", 0, "", before, "a"},
        {"a backslash at the end of a group", 0, "k\\", 0, "", before, "g"},
        {"and of an entry", 1, "n\\", 0, "rename g/n\\", "-g|  n\\|  xb|-c|  d", "n\\"},
        {"refused", 1, "new", 1, "rename g/new", before, "a"},
        {"a group of which one refuses is split", 0, "k", 1, renames, "-g|  a|-c|  d|+k", "g"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        TestEnumeration shown({"g/a", "g/b", "c", "c/d"}, ENF_Rename | ENF_Tree);
        Show(shown, eDesignTree, ",2,");
        list->Expand(Item("c"));
        list->EnableCommands(All, true);
        list->SetCurrentRow(row.row);
        shown.onCall = [&](const std::string& operation, long id) {
            shown.refuses = operation == "rename" ? id == row.refused : shown.refuses;
        };
        EditLabel(row.typed, VK_ESCAPE);
        EXPECT_EQ(shown.calls, "");
        EditLabel(row.typed, VK_RETURN);
        EXPECT_EQ(shown.calls, row.calls);
        EXPECT_EQ(Rows(), row.rows);
        EXPECT_EQ(Current(), row.current); // a command that follows is about what was renamed
        ExpectConsistent(*list);
        const bool isTaken = !row.calls.empty() && row.refused == 0;
        EXPECT_EQ(TellEndOfEdit(row.row, row.typed.c_str()), isTaken);
        list->GetModel().Tree().SetLabel(*list->GetTreeItem(row.row), 0, "later");
        EXPECT_EQ(list->GetItemText(row.row, 0), "later"); // the list keeps no text of its own
    }
}

TEST_F(ComboCommandsTest, KeysDoWhatTheMenuAllows) {
    struct Case {
        const char* name;
        EComboListMode mode;
        std::uint32_t flags, commands;
        const char* key;
        bool edits;
        std::string calls;
    };
    const Case cases[] = {
        {"rename", eDesignFlat, AllFlags, All, "f2", true, ""},
        {"rename, not enabled", eDesignTree, AllFlags, Delete, "f2", false, ""},
        {"rename, without its flag", eDesignFlat, ENF_Delete, All, "f2", false, ""},
        {"delete", eDesignTree, AllFlags, All, "delete", false, "remove 2"},
        {"delete, not enabled", eDesignFlat, AllFlags, Rename, "delete", false, ""},
        {"delete, without its flag", eDesignFlat, ENF_Rename, All, "delete", false, ""},
        {"dropped down: neither", eDropDown, AllFlags, All, "delete", false, ""},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        TestEnumeration shown({"a", "b"}, row.flags);
        Show(shown, row.mode).EnableCommands(row.commands, true);
        Do(row.key); // no row is current
        EXPECT_EQ(list->GetEditControl(), nullptr);
        list->SetCurrentRow(1);
        Do(row.key);
        EXPECT_EQ(list->GetEditControl() != nullptr, row.edits);
        EXPECT_EQ(shown.calls, row.calls);
    }
}

TEST_F(ComboCommandsTest, AGroupWithoutEntriesTakesAPathToo) {
    TestEnumeration shown({"g/a"}, AllFlags | ENF_Tree);
    Show(shown, eDesignTree);
    Command(ComboCommandAddRootGroup);
    Command(ComboCommandAddGroup);
    EXPECT_EQ(Rows(), "+g|-value|  value");
    EXPECT_TRUE(ComboNames(list->GetModel()).RenameLabel(*list->GetTreeItem(1), "g/k"));
    list->ExpandParent(Item("g")->GetFirstChild()->GetNextSibling());
    EXPECT_EQ(Rows(), "-g|  a|  -k|    value");
    EXPECT_EQ(shown.calls, "");
    ExpectConsistent(*list);
}

} // namespace
} // namespace korvel

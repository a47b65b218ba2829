#include "support/combo_fixture.h"
#include "support/table.h"

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
        if (display.ShownMenus().size() == before)
            return display.TrackMenu(nullptr, {}, {}), ""; // takes the answer that was not needed
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
    // The tree of these names with the group h of g open.
    CComboList& ShowTree(TestEnumeration& shown) {
        Show(shown, eDesignTree).ExpandParent(Item("g")->GetFirstChild()->GetNextSibling());
        return *list;
    }
};

TEST_F(ComboCommandsTest, WhatMenuAndKeysOffer) {
    const std::string intoTree = "new value|insert group";
    const auto at = [&](const std::string& path) {
        return intoTree + "|insert new value at '" + path + "'|insert new group at '" + path + "'";
    };
    const Table<EComboListMode, std::uint32_t, std::uint32_t, int, std::string> cases = {
        {"dropped down: nothing", eDropDown, AllFlags, All, 0, ""},
        {"delete without its flag", eDesignFlat, ENF_Rename, All, 0, "rename 'a'"},
        {"rename without its flag", eDesignFlat, ENF_Delete, All, 0, "erase 'a'"},
        {"flat", eDesignFlat, AllFlags, All, 1, "insert new value|erase 'b'|rename 'b'"},
        {"beside the rows", eDesignFlat, AllFlags, All, 8, "insert new value"},
        {"tree, a group", eDesignTree, AllFlags | ENF_Tree, Add, 0, at("g")},
        {"an entry at the top: no path", eDesignTree, ENF_Add | ENF_Tree, Add, 4, at("")},
        {"tree, beside the rows", eDesignTree, AllFlags | ENF_Tree, All, 8, intoTree},
    };
    for (const auto& [name, mode, flags, commands, row, menu] : cases) {
        SCOPED_TRACE(name);
        const bool isTree = (flags & ENF_Tree) != 0;
        TestEnumeration shown(isTree ? Strings{"g/a", "g/h/c", "d"} : Strings{"a", "b"}, flags);
        (isTree ? ShowTree(shown) : Show(shown, mode)).EnableCommands(commands, true);
        EXPECT_EQ(Menu(InRow(row)), menu);
        list->SetCurrentRow(row);
        Do("f2");
        EXPECT_EQ(list->GetEditControl() != nullptr, menu.find("rename") != CString::npos);
        EXPECT_EQ(shown.calls, "");
        Do("delete");
        EXPECT_EQ(!shown.calls.empty(), menu.find("erase") != CString::npos);
    }
}

TEST_F(ComboCommandsTest, DataSheetOfATableGoesToTheOwner) {
    TestEnumeration shown({"a"}, ENF_Delete);
    shown.type = DT_Group;
    Show(shown, eDesignFlat).EnableCommands(All, true);
    EXPECT_EQ(Menu({10, 24 + 5}, ComboCommandDataSheet), "erase 'a'||Data sheet");
    EXPECT_EQ(Heard(), "3 15004");
    EXPECT_EQ(Current(), "a");
}

TEST_F(ComboCommandsTest, WhatTheCommandsDo) {
    const std::string atTheEnd = "-g|  a|  -h|    b|c|value", inH = "-g|  a|  -h|    b|    value|c",
                      inG = "-g|  a|  -h|    b|  value|c";
    const Table<unsigned, int, std::string, std::string, std::string> cases = {
        {"a value at the root", ComboCommandAddRootItem, 8, "add value@", atTheEnd, "value"},
        {"a value in a group", ComboCommandAddItem, 2, "add value@g/h", inH, "value"},
        {"a group in a group", ComboCommandAddGroup, 3, "", inH, "value"},
        {"a group goes with all in it", ComboCommandDelete, 0, "remove 1, remove 2", "c", "c"},
        {"an entry", ComboCommandDelete, 3, "remove 2", "-g|  a|  h|c", "c"},
    };
    for (const auto& [name, command, row, calls, rows, current] : cases) {
        SCOPED_TRACE(name);
        TestEnumeration shown({"g/a", "g/h/b", "c"}, AllFlags | ENF_Tree);
        ShowTree(shown).EnableCommands(All, true);
        Menu(InRow(row), command);
        EXPECT_EQ(shown.calls, calls);
        EXPECT_EQ(Rows(), rows);
        EXPECT_EQ(Current(), current);
        ExpectConsistent(*list);
    }
}

TEST_F(ComboCommandsTest, AnEnumerationThatReportsWhatItAddsGetsOneRow) {
    TestEnumeration shown;
    shown.onAdded = [&](long id) { list->OnAddEnumValue(&shown, id); };
    Show(shown, eDesignFlat);
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
    const std::string before = "-g|  a|  xb|-c|  d", renames = "rename k/a, rename k/b";
    // row, typed, the entry that keeps its name; calls, rows, current
    const Table<int, CString, long, std::string, std::string, std::string> cases = {
        {"an entry", 1, "new", 0, "rename g/new", "-g|  new|  xb|-c|  d", "new"},
        {"a separator that is text", 1, "x\\/y", 0, "rename g/x\\/y", "-g|  x\\/y|  xb|-c|  d", "x\\/y"},
        {"a group: every entry", 0, "k", 0, renames, "-k|  a|  xb|-c|  d", "k"},
        {"nothing typed", 1, "", 0, "", before, "a"},
        {"a path moves the entry", 1, "x//y", 0, "rename g/x/y", "-g|  xb|  -x|    y|-c|  d", "y"},
        {"and the entries of a group", 0, "k/m", 0, "rename k/m/a, rename k/m/b", "-c|  d|-k|  +m", "m"},
        {"into the group itself", 0, "g/m", 0, "rename g/m/a, rename g/m/b", "-g|  +m|-c|  d", "m"},
        {"and of an entry", 1, "n\\", 0, "rename g/n\\", "-g|  n\\|  xb|-c|  d", "n\\"},
        {"refused", 1, "new", 1, "rename g/new", before, "a"},
        {"a group of which one refuses is split", 0, "k", 1, renames, "-g|  a|-c|  d|+k", "g"},
    };
    for (const auto& [name, row, typed, refused, calls, rows, current] : cases) {
        SCOPED_TRACE(name);
        TestEnumeration shown({"g/a", "g/b", "c", "c/d"}, ENF_Rename | ENF_Tree);
        Show(shown, eDesignTree, ",2,");
        list->EnableCommands(All, true);
        list->Expand(Item("c"));
        list->SetCurrentRow(row);
        shown.onCall = [&, refused = refused](const std::string& operation, long id) {
            shown.refuses = operation == "rename" ? id == refused : shown.refuses;
        };
        EditLabel(typed, VK_ESCAPE);
        EXPECT_EQ(shown.calls, "");
        EditLabel(typed, VK_RETURN);
        EXPECT_EQ(shown.calls, calls);
        EXPECT_EQ(Rows(), rows);
        EXPECT_EQ(Current(), current); // a command that follows is about what was renamed
        ExpectConsistent(*list);
        list->GetModel().Tree().SetLabel(*list->GetTreeItem(row), 0, "later");
        EXPECT_EQ(list->GetItemText(row, 0), "later"); // the list keeps no text of its own
    }
}

TEST_F(ComboCommandsTest, AGroupWithoutEntriesTakesAPathToo) {
    TestEnumeration shown({"g/a"}, AllFlags | ENF_Tree);
    Show(shown, eDesignTree).EnableCommands(All, true);
    Command(ComboCommandAddRootGroup);
    Command(ComboCommandAddGroup);
    EXPECT_EQ(Rows(), "+g|-value|  value");
    list->SetCurrentRow(1);
    EditLabel("g/k", VK_RETURN);
    EXPECT_EQ(Rows(), "-g|  a|  +k");
    EXPECT_EQ(Current(), "k");
    list->Expand(Item("k"));
    EXPECT_EQ(Rows(), "-g|  a|  -k|    value");
    EXPECT_EQ(shown.calls, "");
    ExpectConsistent(*list);
}

} // namespace
} // namespace korvel

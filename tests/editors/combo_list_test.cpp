#include "korvel/values/member_dispatch_imp.h"
#include "support/combo_fixture.h"
#include "support/table.h"

namespace korvel {
namespace {

class ComboListTest : public ComboTest {};

TEST_F(ComboListTest, RowsAndSelectionAtTheStart) {
    const Strings deep = {"g/a", "g/h/b", "g/c", "k/d"};
    const Table<EComboListMode, std::uint32_t, Strings, std::string, std::string, std::string> cases = {
        {"a flat list splits nothing", eDropDown, 0, {"a/b", "/"}, ",1,", "xa/b|/", "a/b"},
        {"groups are closed", eDesignTree, ENF_Tree, {"g/a", "g/b", "c"}, "", "+g|c", ""},
        {"a separator after a backslash", eDropDown, ENF_Tree, {"a\\/b"}, "", "a\\/b", ""},
        {"no segment at all", eDropDown, ENF_Tree, {"", "///"}, "", "|///", ""},
        {"an entry that others are under", eDropDown, ENF_Tree, {"a", "a/b"}, "", "+a", ""},
        {"a group before the entry of its name", eDropDown, ENF_Tree, {"a/b", "a"}, "", "+a|a", ""},
        {"a name again elsewhere", eDropDown, ENF_Tree, {"g/x/a", "g/x/b", "x/c"}, ",3,", "+g|-x|  xc", "c"},
        {"the last match leads", eDropDown, ENF_Tree, deep, ",1,,2,", "-g|  xa|  -h|    xb|  c|+k", "b"},
    };
    for (const auto& [name, mode, flags, names, selection, rows, current] : cases) {
        SCOPED_TRACE(name);
        TestEnumeration shown(names, flags);
        Show(shown, mode, selection);
        EXPECT_EQ(Rows(), rows);
        EXPECT_EQ(Current(), current);
        EXPECT_NE(list->GetInputState(), nullptr);
        ExpectConsistent(*list);
    }
}

TEST_F(ComboListTest, TableHasAColumnForEachMember) {
    TMemberDispatchImp<int> pattern("pattern"), first("first"), second("second");
    for (const char* name : {"height", "width"})
        pattern.AddMember(name, true, TextValue(""));
    TestEnumeration shown;
    second.AddMember("width", true, TextValue("7"));
    shown.type = DT_Group;
    shown.entries = {{1, GroupValue(first)}, {2, GroupValue(second)}};
    Show(shown, eDesignFlat);
    EXPECT_EQ(list->GetColumnCount(), 1) << "without a template";
    const CVariantValue patternValue = GroupValue(pattern);
    shown.pattern = &patternValue;
    Show(shown, eDesignFlat);
    EXPECT_EQ(list->GetColumnCount(), 3);
    for (const auto& [column, text] : {std::pair(-1, ""), {0, "second"}, {1, ""}, {2, "7"}, {3, ""}})
        EXPECT_EQ(list->GetColumnText(*list->GetTreeItem(1), column), text) << column;
    EXPECT_EQ(list->GetColumnTitle(0), "Bezeichnung");
    EXPECT_EQ(list->GetColumnTitle(2), "width");
    EXPECT_EQ(list->GetColumnWidth(1), 66); // 200 / 3
    EXPECT_EQ(list->GetSinkTypes(), std::set<EDataTyps>{DT_String});

    // Objects compare equal whatever they are: here they must be the same.
    Mouse(WM_LBUTTONDOWN, {10, 24 + 30});
    EXPECT_EQ(shown.calls, "select 2");

    TestEnumeration flat({"a"});
    list->Initialize("value", flat.ValueOf("")); // the header goes again
    EXPECT_EQ(list->GetColumnCount(), 1);
    EXPECT_EQ(list->GetColumnWidth(0), 200);
    EXPECT_TRUE(list->GetStyle() & LVS_NOCOLUMNHEADER);
}

TEST_F(ComboListTest, AnotherBindingWritesToTheNewObject) {
    TestEnumeration shown({"a", "b"});
    TMemberDispatchImp<int> one("one"), two("two");
    one.AddMember("m", true, shown.ValueOf(",1,"));
    two.AddMember("n", true, shown.ValueOf(",2,"));
    Make(eDropDown);
    list->Initialize(&one, "m");
    EXPECT_EQ(Current(), "a");
    list->Initialize(&two, "n");
    EXPECT_EQ(Current(), "b");
    EXPECT_EQ(list->GetDisp(), &two);
    EXPECT_EQ(list->GetMemberName(), "n");

    list->Initialize(&one, "absent"); // nothing to show: the rows stay
    EXPECT_EQ(Rows(), "a|xb");
    EXPECT_EQ(list->GetMemberName(), "absent");
    list->Initialize(&two, list->GetMemberName()); // its own name
    list->UnIntialize();
    EXPECT_EQ(list->GetItemCount(), 0);
    EXPECT_EQ(list->GetDisp(), nullptr);
    EXPECT_THROW(list->Initialize(), Error); // the enumeration is forgotten
    EXPECT_THROW(list->Initialize("value", TextValue("plain")), Error);
}

TEST_F(ComboListTest, EntriesThatTheHostReports) {
    TestEnumeration shown({"g/a", "b"}, ENF_Tree), other({"x"});
    Show(shown, eDesignTree);
    shown.entries.push_back({9, TextValue("g/h/new")});
    list->OnAddEnumValue(&other, 9); // not this list's
    EXPECT_EQ(Rows(), "+g|b");
    list->GetEnumSink().OnAddEnumValue(&shown, 9);
    EXPECT_EQ(Rows(), "-g|  a|  -h|    new|b");
    EXPECT_EQ(Current(), "new");
    list->OnAddEnumValue(&shown, 77); // not known to the enumeration
    list->OnDestroyEnumValue(&shown, 77);
    list->OnRenameEnumValue(&shown, 77, {});
    list->OnDestroyEnumValue(&shown, 9);
    EXPECT_EQ(Rows(), "-g|  a|  h|b"); // an emptied group stays
    const std::function<void()> changes[] = {[&] { list->OnRenameEnumValue(&shown, 1, {}); },
                                             [&] { list->OnEventFormatChanged(); }};
    for (const auto& change : changes) {
        display.PaintWindow(list->m_hWnd);
        change();
        EXPECT_TRUE(display.IsInvalid(list->m_hWnd));
    }
    TestEnumeration parents({"a", "p", "p/c"}, ENF_Tree);
    Show(parents, eDesignTree);
    for (const long id : {2, 1})
        list->OnDestroyEnumValue(&parents, id);
    EXPECT_EQ(Rows(), "+p"); // a group from now on
}

// As high as the rows need, whole rows only, whatever opens and closes.
TEST_F(ComboListTest, DropsBelowItsField) {
    TestEnumeration shown({"g/a", "g/b", "c"}, ENF_Tree);
    for (int i = 0; i < 20; ++i)
        shown.entries.push_back({10 + i, TextValue("h/x")});
    const auto place = [&] { return list->GetWindowRect(); };
    Show(shown).DropBelow({100, 500, 300, 520});
    EXPECT_EQ(place(), (CRect{100, 520, 300, 520 + 3 * 20 + 2}));
    list->Expand(Item("g"));
    EXPECT_EQ(place().Height(), 5 * 20 + 2);
    list->OnDestroyEnumValue(&shown, 3);
    EXPECT_EQ(place().Height(), 4 * 20 + 2);
    EXPECT_EQ(list->GetColumnWidth(0), 198);

    shown.type = DT_Group; // a table, with a header
    shown.flags = 0;
    list->Initialize("value", shown.ValueOf(",29,"));
    EXPECT_EQ(place().Height(), 4 * 20 + 2); // as it was, until it drops
    list->DropBelow({100, 1000, 300, 1020});
    EXPECT_EQ(place(), (CRect{100, 1020, 300, 1020 + 24 + 3 * 20 + 2}));
    EXPECT_EQ(list->GetTopIndex(), list->GetItemCount() - 3);

    TestEnumeration flat({"a", "b", "c"});
    CComboList fresh(eDropDown);
    fresh.CreateDropDown(&frame, 107);
    fresh.Initialize("value", flat.ValueOf(",2,"));
    fresh.DropBelow({100, 500, 300, 520});
    EXPECT_EQ(fresh.GetWindowRect().Height(), 3 * 20 + 2) << "a list that was never placed before";
    EXPECT_EQ(fresh.GetTopIndex(), 0);
    fresh.DropBelow({100, 500, 300, 520}, 55);
    EXPECT_EQ(fresh.GetWindowRect().Height(), 3 * 20 + 2) << "never fewer than three";
}

TEST_F(ComboListTest, NamesOfAMegabyte) {
    std::string deep;
    while (deep.size() < 1'000'000)
        deep += "a/";
    TestEnumeration shown({std::string(1'000'000, 'x'), deep + "b", deep + "c"}, ENF_Tree | ENF_CheckBoxes);
    Show(shown, eDesignTree, ",2,");
    EXPECT_EQ(list->GetItemCount(), 500'003);
    EXPECT_EQ(list->GetPath(*Item("b")), deep + "b");
    EXPECT_EQ(list->GetRootItem().GetChecked(), 1);
    list->Collapse(list->GetTreeItem(1));
    EXPECT_EQ(list->GetItemCount(), 2);
    list->GetModel().DestroySubTree(*list->GetTreeItem(1));
    EXPECT_EQ(list->GetItemCount(), 1);
    EXPECT_EQ(list->GetRootItem().GetChecked(), 0);
}

TEST_F(ComboListTest, ManyEntriesAreAskedForOnceAndKeepTheirRows) {
    constexpr long Count = 10'000; // rows fill several blocks
    TestEnumeration shown({}, ENF_Tree | ENF_CheckBoxes);
    for (long id = 1; id <= Count; ++id)
        shown.entries.push_back({id, TextValue("group " + std::to_string(id % 100) + "/entry")});
    int names = 0;
    shown.onCall = [&](const std::string& operation, long) { names += operation == "name"; };
    Show(shown, eDesignTree);
    EXPECT_EQ(names, Count);
    for (int row = 99; row >= 0; --row)
        list->Expand(list->GetTreeItem(row));
    ComboChoice(list->GetModel()).SetCheck(const_cast<ComboTreeItem&>(list->GetRootItem()), true);
    EXPECT_EQ(list->GetRootItem().GetChecked(), Count);
    ExpectConsistent(*list);
    list->Collapse(list->GetTreeItem(505)); // group 6 of 101 rows each
    for (long id = 2; id <= Count; id += 2)
        list->OnDestroyEnumValue(&shown, id);
    ExpectConsistent(*list);
    shown.refuses = true; // and takes no entry away
    list->GetModel().DestroySubTree(*list->GetTreeItem(0));
    ExpectConsistent(*list);
    EXPECT_EQ(names, Count + 100);
}

} // namespace
} // namespace korvel

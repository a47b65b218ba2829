#include "combo_fixture.h"

#include <chrono>
#include <random>

namespace korvel {
namespace {

class ComboModelTest : public ComboTest {};

/// Whatever happens to a list and its enumeration, rows are the visible order and counts a recount.
TEST_F(ComboModelTest, RowsAndCountsAgreeWhateverHappens) {
    std::mt19937 random(7);
    const auto pick = [&](int count) {
        return static_cast<int>(random() % static_cast<unsigned>(std::max(count, 1)));
    };
    const auto name = [&] {
        std::string path;
        for (int depth = pick(4); depth >= 0; --depth)
            path += std::string(1, static_cast<char>('a' + pick(4))) + (depth > 0 ? "/" : "");
        return path;
    };
    for (int round = 0; round < 30; ++round) {
        TestEnumeration shown({}, ENF_Tree | ENF_CheckBoxes);
        std::string selection;
        for (long id = 1; id <= 60; ++id) {
            shown.entries.push_back({id, TextValue(name())});
            selection += pick(4) == 0 ? TestEnumeration::Key(id) : std::string();
        }
        Show(shown, eDesignTree, selection);
        long born = 60;
        for (int step = 0; step < 80; ++step) {
            CComboTreeItem* const item = list->GetTreeItem(pick(list->GetItemCount()));
            const long id =
                shown.entries.empty()
                    ? 0
                    : shown.entries[static_cast<std::size_t>(pick(static_cast<int>(shown.entries.size())))]
                          .id;
            switch (pick(8)) {
            case 0:
                list->Expand(item);
                break;
            case 1:
                list->Collapse(item);
                break;
            case 2:
                if (item)
                    list->GetModel().SetCheck(*item, item->GetChecked() == 0);
                break;
            case 3:
                shown.entries.push_back({++born, TextValue(name())});
                list->OnAddEnumValue(&shown, born);
                break;
            case 4:
                std::erase_if(shown.entries, [&](const auto& entry) { return entry.id == id; });
                list->OnDestroyEnumValue(&shown, id);
                break;
            case 5:
                if (auto* const entry = shown.Find(id)) {
                    entry->name = TextValue(name());
                    list->OnRenameEnumValue(&shown, id, {});
                }
                break;
            case 6:
                if (item)
                    list->GetModel().RenameLabel(*item, std::string(1, static_cast<char>('a' + pick(6))));
                break;
            default:
                if (item && pick(4) == 0)
                    list->GetModel().DestroySubTree(*item);
            }
            ExpectConsistent(*list);
            if (HasFatalFailure())
                FAIL() << "round " << round << ", step " << step;
        }
        EXPECT_EQ(list->GetRootItem().GetChecked() + list->GetRootItem().GetUnchecked(),
                  static_cast<int>(shown.entries.size()));
    }
}

TEST_F(ComboModelTest, LargeRangesOfRowsComeAndGo) {
    Strings names;
    for (int i = 0; i < 5000; ++i)
        names.push_back("g" + std::to_string(i % 7) + "/e" + std::to_string(i));
    TestEnumeration shown(names, ENF_Tree);
    Show(shown);
    for (const char* group : {"g3", "g0", "g6", "g5"})
        list->Expand(Item(group));
    ExpectConsistent(*list);
    list->Collapse(Item("g0"));
    for (long id = 4; id <= 5000; id += 7) // all of g3, one by one
        list->OnDestroyEnumValue(&shown, id);
    ExpectConsistent(*list);
    list->Collapse(Item("g5"));
    list->Expand(Item("g0"));
    ExpectConsistent(*list);
}

TEST_F(ComboModelTest, EntriesThatTheHostReports) {
    TestEnumeration shown({"g/a", "b"}, ENF_Tree), other({"x"});
    Show(shown, eDesignTree);
    shown.entries.push_back({9, TextValue("g/h/new")});
    list->OnAddEnumValue(&other, 9); // not this list's
    EXPECT_EQ(Rows(), (Strings{"+g", "b"}));
    list->GetEnumSink().OnAddEnumValue(&shown, 9);
    EXPECT_EQ(Rows(), (Strings{"-g", "  a", "  -h", "    new", "b"}));
    EXPECT_EQ(Highlighted(), "new");
    list->OnAddEnumValue(&shown, 77); // not known to the enumeration
    list->OnDestroyEnumValue(&shown, 77);
    list->OnRenameEnumValue(&shown, 77, {});
    list->OnDestroyEnumValue(&shown, 9);
    EXPECT_EQ(Rows(), (Strings{"-g", "  a", "  h", "b"})); // an emptied group stays
}

TEST_F(ComboModelTest, NamesThatTheHostChanges) {
    struct Case {
        const char* name;
        long id;
        std::string newName;
        Strings rows;
    };
    const Strings before = {"-g", "  -h", "    xa", "    b", "c"};
    const Case cases[] = {
        {"the last part", 1, "g/h/new", {"-g", "  -h", "    xnew", "    b", "c"}},
        {"labels above follow, for the others too", 1, "k/h/a", {"-k", "  -h", "    xa", "    b", "c"}},
        {"a shorter path moves the entry", 1, "a", {"-g", "  -h", "    b", "c", "xa"}},
        {"a longer one too", 3, "g/h/i/c", {"-g", "  -h", "    xa", "    b", "    +i"}},
        {"no part at all", 3, "/", {"-g", "  -h", "    xa", "    b", "/"}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        TestEnumeration shown({"g/h/a", "g/h/b", "c"}, ENF_Tree | ENF_CheckBoxes);
        Show(shown, eDesignTree, ",1,");
        EXPECT_EQ(Rows(), before);
        shown.Find(row.id)->name = TextValue(row.newName);
        list->OnRenameEnumValue(&shown, row.id, {});
        EXPECT_EQ(Rows(), row.rows);
        ExpectConsistent(*list);
    }
}

TEST_F(ComboModelTest, UniqueNames) {
    TestEnumeration shown({"new value", "new value1", "x/y"}, ENF_Tree);
    Show(shown, eDesignTree);
    EXPECT_EQ(list->CreateUniqueName("new value", list->GetRootItem()), "new value2");
    EXPECT_EQ(list->CreateUniqueName("x", list->GetRootItem()), "x1");
    EXPECT_EQ(list->CreateUniqueName("y", list->GetRootItem()), "y");
    Show(shown, eDesignFlat); // labels are whole paths: their first part counts
    EXPECT_EQ(list->CreateUniqueName("x", list->GetRootItem()), "x1");
}

TEST_F(ComboModelTest, FormatsThatChangeRewriteLabels) {
    TestEnumeration shown({"g/a"}, ENF_Tree);
    Show(shown, eDropDown, ",1,");
    list->GetModel().Tree().SetLabel(*Item("a"), 0, "out of date");
    list->GetAngleSink().OnChangedAngleDouble();
    EXPECT_EQ(Rows(), (Strings{"-g", "  xa"})); // groups keep theirs
}

// --- enumerations that are no good ---

TEST_F(ComboModelTest, AnEnumerationThatThrowsLeavesTheListEmpty) {
    for (const std::string operation : {"first", "next", "name", "is"}) {
        SCOPED_TRACE(operation);
        TestEnumeration shown({"g/a", "g/b"}, ENF_Tree);
        Make(eDropDown);
        shown.onCall = [&](const std::string& called, long id) {
            if (called == operation && id != 1)
                throw Error("no");
        };
        EXPECT_THROW(list->Initialize("value", shown.ValueOf(",1,")), Error);
        EXPECT_FALSE(list->IsInitialized());
        EXPECT_EQ(list->GetItemCount(), 0);
        EXPECT_EQ(list->GetColumnCount(), 0);
        shown.onCall = nullptr;
        list->Initialize("value", shown.ValueOf(",1,"));
        EXPECT_EQ(Rows(), (Strings{"-g", "  xa", "  b"}));
    }
}

TEST_F(ComboModelTest, AnEnumerationThatThrowsLaterLeavesRowsAndCounts) {
    const auto act = std::vector<std::function<void(CComboList&)>>{
        [](CComboList& l) { l.GetModel().SetCheck(*l.GetTreeItem(0), true); },
        [](CComboList& l) { l.GetModel().ToggleCheck(*l.GetTreeItem(1)); },
        [](CComboList& l) { l.GetModel().Apply(l.GetTreeItem(1)); },
        [](CComboList& l) { l.GetModel().RenameLabel(*l.GetTreeItem(0), "new"); },
        [](CComboList& l) { l.GetModel().DestroySubTree(*l.GetTreeItem(0)); },
        [](CComboList& l) { l.GetModel().AddValue("new", "g"); },
    };
    for (const std::string operation : {"select", "deselect", "name", "rename", "remove", "add", "next"}) {
        for (const auto& action : act) {
            TestEnumeration shown({"g/a", "g/b", "g/c"}, ENF_Tree | ENF_CheckBoxes);
            Show(shown, eDesignTree, ",1,");
            int calls = 0;
            shown.onCall = [&](const std::string& called, long) {
                if (called == operation && ++calls == 2)
                    throw Error("no");
            };
            try {
                action(*list);
            } catch (const Error&) {
            }
            ExpectConsistent(*list);
            for (int row = 0; row < list->GetItemCount(); ++row) { // checks show what is selected
                const CComboTreeItem& item = *list->GetTreeItem(row);
                const bool isSelected =
                    list->GetValue().Text.find(TestEnumeration::Key(item.GetId())) != std::string::npos;
                EXPECT_TRUE(!item.IsValue() || ComboTree::IsChecked(item) == isSelected) << operation;
            }
        }
    }
}

TEST_F(ComboModelTest, AnEnumerationMayChangeOrLeaveWhileItIsAsked) {
    struct Case {
        const char* name;
        std::function<void(TestEnumeration&, CComboList&)> change;
    };
    const Case changes[] = {
        {"an entry comes",
         [](TestEnumeration& shown, CComboList& shownList) {
             shown.entries.push_back({50, TextValue("g/z")});
             shownList.OnAddEnumValue(&shown, 50);
         }},
        {"an entry goes",
         [](TestEnumeration& shown, CComboList& shownList) {
             std::erase_if(shown.entries, [](const auto& entry) { return entry.id == 2; });
             shownList.OnDestroyEnumValue(&shown, 2);
         }},
        {"all go",
         [](TestEnumeration& shown, CComboList& shownList) {
             const auto entries = std::exchange(shown.entries, {});
             for (const auto& entry : entries)
                 shownList.OnDestroyEnumValue(&shown, entry.id);
         }},
        {"the binding ends", [](TestEnumeration&, CComboList& shownList) { shownList.UnIntialize(); }},
        {"another binding begins",
         [](TestEnumeration& shown, CComboList& shownList) {
             shownList.Initialize("other", shown.ValueOf(",2,"));
         }},
    };
    for (const Case& change : changes) {
        for (const std::string operation : {"name", "is", "next", "select", "rename", "remove", "add"}) {
            SCOPED_TRACE(std::string(change.name) + " at " + operation);
            TestEnumeration shown({"g/a", "g/b", "g/c"}, ENF_Tree | ENF_CheckBoxes);
            Make(eDesignTree);
            bool isArmed = true;
            shown.onCall = [&](const std::string& called, long) {
                if (called == operation && std::exchange(isArmed, false))
                    change.change(shown, *list);
            };
            list->Initialize("value", shown.ValueOf(",1,"));
            ExpectConsistent(*list);
            ComboModel& model = list->GetModel();
            const std::function<void()> actions[] = {
                [&] { model.SetCheck(*list->GetTreeItem(0), true); },
                [&] { model.Apply(list->GetTreeItem(0)); },
                [&] { model.RenameLabel(*list->GetTreeItem(0), "new"); },
                [&] { model.AddValue("new", "g"); },
                [&] { model.DestroySubTree(*list->GetTreeItem(0)); },
            };
            for (const auto& action : actions) {
                isArmed = true;
                if (list->GetItemCount() > 0)
                    action();
                ExpectConsistent(*list);
            }
        }
    }
}

TEST_F(ComboModelTest, AnEnumerationThatRefusesEverything) {
    TestEnumeration shown({"g/a", "g/b"}, ENF_Tree);
    Show(shown, eDesignTree, ",1,");
    shown.refuses = true;
    EXPECT_EQ(list->GetModel().AddValue("new", ""), nullptr);
    EXPECT_FALSE(list->GetModel().RenameLabel(*Item("a"), "new"));
    EXPECT_FALSE(list->GetModel().RenameLabel(*Item("g"), "new"));
    EXPECT_EQ(Rows(), (Strings{"-g", "  xa", "  b"}));
    shown.entries.clear(); // and does not know its entries any more
    list->GetModel().DestroySubTree(*Item("g"));
    EXPECT_EQ(Rows(), Strings{});
    EXPECT_EQ(list->GetRootItem().GetChecked(), 0);
}

TEST_F(ComboModelTest, ANumberThatComesTwice) {
    TestEnumeration shown({"g/a", "b", "c"}, ENF_Tree | ENF_CheckBoxes);
    shown.entries[1].id = 1;
    shown.entries[2].id = 1;
    Show(shown, eDesignTree, ",1,");
    EXPECT_EQ(list->GetItemCount(), 4); // each stands under the name that its number has
    list->OnDestroyEnumValue(&shown, 1);
    list->GetModel().DestroySubTree(*list->GetTreeItem(0));
    ExpectConsistent(*list);
}

TEST_F(ComboModelTest, NamesOfAMegabyte) {
    std::string deep;
    while (deep.size() < 1'000'000)
        deep += "a/";
    TestEnumeration shown({std::string(1'000'000, 'x'), deep + "b", deep + "c"}, ENF_Tree | ENF_CheckBoxes);
    Show(shown, eDesignTree, ",2,");
    EXPECT_EQ(list->GetItemCount(), 500'003);
    EXPECT_EQ(list->GetPath(*Item("b")), deep + "b");
    EXPECT_EQ(list->GetRootItem().GetChecked(), 1);
    list->GetModel().SetCheck(*list->GetTreeItem(1), false);
    EXPECT_EQ(list->GetRootItem().GetChecked(), 0);
    list->Collapse(list->GetTreeItem(1));
    EXPECT_EQ(list->GetItemCount(), 2);
    list->GetModel().DestroySubTree(*list->GetTreeItem(1));
    EXPECT_EQ(list->GetItemCount(), 1);
}

/// A hundred thousand entries: what is linear takes a fraction of a second, what is not would take minutes.
TEST_F(ComboModelTest, NoStepGrowsWithTheSquareOfTheEntries) {
    TestEnumeration shown({}, ENF_Tree | ENF_CheckBoxes);
    for (long id = 1; id <= 100'000; ++id)
        shown.entries.push_back({id, TextValue("group " + std::to_string(id % 1000) + "/entry")});
    struct Quick : TestEnumeration {
        bool GetName(long id, CVariantValue& name) override {
            name = entries[static_cast<std::size_t>(id) - 1].name;
            return true;
        }
        void Select(long, CVariantValue&) override {}
        void Deselect(long, CVariantValue&) override {}
        void RemoveValue(long) override {}
    } quick;
    quick.entries = shown.entries;
    quick.flags = shown.flags;
    const auto begin = std::chrono::steady_clock::now();
    Show(quick, eDesignTree);
    EXPECT_EQ(list->GetItemCount(), 1000);
    for (int row = 999; row >= 0; --row)
        list->Expand(list->GetTreeItem(row));
    EXPECT_EQ(list->GetItemCount(), 101'000);
    list->GetModel().SetCheck(const_cast<CComboTreeItem&>(list->GetRootItem()), true);
    EXPECT_EQ(list->GetRootItem().GetChecked(), 100'000);
    for (long id = 1; id <= 50'000; ++id)
        list->OnDestroyEnumValue(&quick, id * 2);
    list->GetModel().DestroySubTree(*list->GetTreeItem(0));
    for (int row = list->GetItemCount() - 1; row >= 0; --row)
        list->Collapse(list->GetTreeItem(row));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
}

} // namespace
} // namespace korvel

// Enumerations that throw, refuse, give a number twice, and change or leave while they are asked.

#include "support/combo_fixture.h"

#include <random>

namespace korvel {
namespace {

constexpr std::uint32_t Both = ENF_Tree | ENF_CheckBoxes;

class BadEnumerationTest : public ComboTest {
protected:
    void SetUp() override {
        ComboTest::SetUp();
        display.SetPicture("plan.png", Image{30, 20, std::vector<std::uint32_t>(600)});
        frame.onCode = [this](int) { Meddle(); };
        frame.onNotify = [this](UINT) { Meddle(); };
    }
    void TearDown() override {
        frame.onCode = nullptr;
        frame.onNotify = nullptr;
    }

    int Pick(std::size_t count) { return static_cast<int>(random() % std::max<std::size_t>(count, 1)); }
    std::string AnyName() {
        static const Strings odd = {"", "///", "\xC4\xFF/\x80", "a\\/b/c", std::string(3, '\0')};
        if (Pick(3) == 0)
            return odd[static_cast<std::size_t>(Pick(odd.size()))];
        std::string path;
        for (int depth = Pick(4); depth >= 0; --depth)
            path += std::string(1, static_cast<char>('a' + Pick(4))) + (depth > 0 ? "/" : "");
        return path;
    }
    // Some names are lists, whose text is asked for.
    CVariantValue AnyValue() { return Pick(8) == 0 ? inner.ValueOf(",1,") : TextValue(AnyName()); }
    long AnyId() { return shown.entries.empty() ? 0 : shown.entries[Pick(shown.entries.size())].id; }
    ComboTreeItem* AnyItem() { return list->GetTreeItem(Pick(list->GetItemCount())); }

    void MakeEnumeration() {
        static const std::uint32_t kinds[] = {0, ENF_CheckBoxes, ENF_Tree, Both, Both | 2};
        shown = TestEnumeration({}, kinds[Pick(5)] | ENF_Add | ENF_Delete | ENF_Rename);
        for (long id = 10 + Pick(15); id >= 10; --id)
            shown.entries.push_back({Pick(6) == 0 ? 3 : id, AnyValue()});
        shown.type = Pick(6) == 0 ? DT_Group : DT_String;
        shown.separator = Pick(10) == 0 ? "" : "/";
        shown.images = "plan.png";
        inner.entries = {{1, TextValue("x/y")}};
        inner.onCall = shown.onCall = [this](const std::string&, long) { Meddle(); };
    }

    // What the host, or the owner of the list, does when it has been asked and told often enough.
    void Meddle() {
        if (countdown < 0 || countdown-- > 0)
            return;
        const long id = AnyId();
        const std::function<void()> deeds[] = {
            [] { throw Error("no"); },
            [&] { list->UnIntialize(); },
            [&] { list->Initialize("other", shown.ValueOf(",11,")); },
            [&] { list->Initialize("other", shown.ValueOf(",10,")), throw Error("no"); },
            [&] { shown.refuses = !shown.refuses; },
            [&] { shown.entries.clear(); },
            [&] { list->Collapse(AnyItem()); },
            [&] { shown.Forget(id), list->OnDestroyEnumValue(&shown, id); },
            [&] {
                for (const auto& entry : std::exchange(shown.entries, {}))
                    list->OnDestroyEnumValue(&shown, entry.id);
            },
            [&] {
                shown.entries.push_back({50 + Pick(5), AnyValue()});
                list->OnAddEnumValue(&shown, shown.entries.back().id);
            },
            [&] {
                if (auto* const entry = shown.Find(id))
                    entry->name = AnyValue();
                list->OnRenameEnumValue(&shown, id, {});
            },
        };
        deeds[deed]();
    }

    void Act() {
        static const UINT keys[] = {VK_DOWN, VK_UP, VK_LEFT, VK_RIGHT, VK_SPACE, 'A'};
        static const UINT messages[] = {WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_MOUSEMOVE};
        static const UINT commands[] = {15005, 15006, 15007, 15008, 15044, 15045};
        ComboTreeItem* item = AnyItem();
        const std::function<void()> acts[] = {
            [&] { Key(keys[Pick(6)]); },
            [&] {
                Mouse(messages[Pick(3)], {Pick(200), Pick(110)});
            },
            [&] { Command(commands[Pick(6)]); },
            [&] { display.Advance(std::chrono::milliseconds(600)); }, // a picture comes or goes
            [&] { display.PaintWindow(list->m_hWnd); },
            [&] { list->OnEventFormatChanged(); },
            [&] { Pick(2) == 0 ? list->Expand(item) : list->Collapse(item); },
            [&] { list->Initialize("value", shown.ValueOf(",11,,3,,12,")); },
            [&] { item ? ComboChoice(list->GetModel()).SetCheck(*item, Pick(2) == 0) : void(); },
            [&] { item ? ComboChoice(list->GetModel()).ToggleCheck(*item) : void(); },
            [&] { item ? void(ComboNames(list->GetModel()).RenameLabel(*item, AnyName())) : void(); },
        };
        acts[Pick(std::size(acts))]();
    }

    std::mt19937 random{7};
    TestEnumeration shown;
    TestEnumeration inner;
    int countdown = -1; // calls until the host meddles; negative: it does not
    int deed = 0;
};

// Whatever the user and the host do, rows are the visible order and counts a recount.
TEST_F(BadEnumerationTest, RowsAndCountsAgreeWhateverHappens) {
    int thrown = 0;
    for (int round = 0; round < 1000; ++round) {
        MakeEnumeration();
        Make(static_cast<EComboListMode>(Pick(3)), 5).EnableCommands(7, true);
        for (int step = 0; step < 30; ++step) {
            countdown = Pick(3) > 0 ? Pick(12) : -1;
            deed = Pick(11);
            try {
                Act();
            } catch (const Error&) {
                ++thrown;
            }
            countdown = -1;
            ExpectConsistent(*list);
            EXPECT_EQ(list->GetColumnCount(), list->IsInitialized() ? 1 : 0);
            if (HasFailure())
                FAIL() << "round " << round << ", step " << step << ", deed " << deed;
        }
    }
    EXPECT_GT(thrown, 100);
}

// The host throws, ends the binding, begins another or does both, in each call that an act leads to.
TEST_F(BadEnumerationTest, TheBindingMayEndInAnyCall) {
    const auto on = [this](const char* verb, const std::string& label) {
        return [=, this] { Item(label) ? Do(verb + (" " + label)) : void(); };
    };
    const auto command = [this](UINT id) { return [=, this] { Command(id); }; };
    const std::function<void()> acts[] = {
        on("press check", "c"),
        on("press check", "g"),
        on("press button", "g"),
        on("double label", "g"),
        on("press label", "c"),
        on("double label", "c"),
        [this] { Do("down,space,up,right"); },
        command(ComboCommandAddRootItem),
        command(ComboCommandAddRootGroup),
        command(ComboCommandAddItem),
        command(ComboCommandAddGroup),
        command(ComboCommandDelete),
        [this] { Do("f2"); },
        [this] { Do("delete"); },
        [this] { ComboNames(list->GetModel()).RenameLabel(*list->GetTreeItem(0), "n/m"); },
        [this] { ComboNames(list->GetModel()).RenameLabel(*list->GetTreeItem(0), "n"); },
        [this] { ComboNames(list->GetModel()).RenameLabel(*list->GetTreeItem(1), "n"); },
        [this] { shown.entries[0].name = TextValue("p/q/r"), list->OnRenameEnumValue(&shown, 1, {}); },
        [this] { list->OnEventFormatChanged(); },
        [this] { list->Initialize("value", shown.ValueOf(",1,")); },
        [this] { Mouse(WM_RBUTTONDOWN, InRow(1)); },
        [this] { display.PaintWindow(list->m_hWnd); },
        [this] { Mouse(WM_MOUSEMOVE, InRow(1)), display.Advance(std::chrono::milliseconds(600)); },
    };
    for (const std::uint32_t kind :
         {std::uint32_t{0}, std::uint32_t{ENF_CheckBoxes}, std::uint32_t{ENF_Tree}, Both})
        for (std::size_t act = 0; act < std::size(acts); ++act)
            for (deed = 0; deed < 4; ++deed)
                for (int calls = 0;; ++calls) {
                    SCOPED_TRACE(testing::Message() << "kind " << kind << ", act " << act << ", deed " << deed
                                                    << ", behind " << calls << " calls");
                    shown = TestEnumeration({"g/a", "g/b", "c"}, kind | ENF_Add | ENF_Delete | ENF_Rename);
                    shown.images = "plan.png";
                    shown.onCall = [this](const std::string&, long) { Meddle(); };
                    Show(shown, eDesignTree, ",1,").EnableCommands(7, true);
                    list->SetCurrentRow(1);
                    countdown = calls;
                    try {
                        acts[act]();
                    } catch (const Error&) {
                    }
                    ExpectConsistent(*list);
                    ASSERT_FALSE(HasFailure());
                    if (std::exchange(countdown, -1) >= 0)
                        break; // it leads to no more
                }
}

TEST_F(BadEnumerationTest, AFailureWhileTheListIsBuiltLeavesItEmpty) {
    for (const std::string operation : {"type", "flags", "separator", "first", "next", "name", "is"}) {
        SCOPED_TRACE(operation);
        TestEnumeration failing({"g/a", "g/b"}, ENF_Tree);
        Make(eDropDown);
        failing.onCall = [&](const std::string& called, long id) {
            if (called == operation && id != 1)
                throw Error("no");
        };
        EXPECT_THROW(list->Initialize("value", failing.ValueOf(",1,")), Error);
        failing.onCall = nullptr;
        EXPECT_FALSE(list->IsInitialized());
        EXPECT_EQ(list->GetItemCount() + list->GetColumnCount(), 0);
        list->Initialize("value", failing.ValueOf(",1,"));
        EXPECT_EQ(Rows(), "-g|  xa|  b");
    }
}

TEST_F(BadEnumerationTest, ChecksShowWhatIsSelectedAlsoAfterAFailure) {
    const std::function<void(ComboModel&)> acts[] = {
        [&](ComboModel& model) { ComboChoice(model).SetCheck(*Item("g"), true); },
        [&](ComboModel& model) { ComboChoice(model).SetCheck(*Item("g"), false); },
        [&](ComboModel& model) { ComboChoice(model).SetCheck(*Item("b"), true); },
        [&](ComboModel& model) { ComboChoice(model).ToggleCheck(*Item("b")); },
    };
    for (const auto& act : acts) {
        for (int calls = 1; calls <= 2; ++calls) {
            TestEnumeration failing({"g/a", "g/b", "g/c"}, Both);
            Show(failing, eDesignTree, ",1,,3,");
            failing.onCall = [left = calls](const std::string& operation, long) mutable {
                if ((operation == "select" || operation == "deselect") && --left == 0)
                    throw Error("no");
            };
            try {
                act(list->GetModel());
            } catch (const Error&) {
            }
            for (const TestEnumeration::Entry& entry : failing.entries) {
                const bool isSelected =
                    list->GetValue().Text.find(TestEnumeration::Key(entry.id)) != CString::npos;
                EXPECT_EQ(ComboTree::IsChecked(*Item(entry.name.Text.substr(2))), isSelected);
            }
            ExpectConsistent(*list);
        }
    }
}

} // namespace
} // namespace korvel

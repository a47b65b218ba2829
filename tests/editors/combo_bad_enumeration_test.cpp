// Hosts that throw, end the binding or change their enumeration while they are asked, and owners of lists
// that do so while they are notified.

#include "support/combo_fixture.h"

namespace korvel {
namespace {

using Deeds = std::vector<std::function<void()>>;

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

    void ShowAnew(std::uint32_t flags, EDataTyps type) {
        shown = TestEnumeration({"g/a", "g/b", "c"}, flags | ENF_Add | ENF_Delete | ENF_Rename);
        shown.entries.push_back({4, inner.ValueOf(",1,")}); // its text is asked for
        shown.type = type;
        shown.images = "plan.png";
        shown.pattern = &pattern;
        inner.onCall = shown.onCall = [this](const std::string&, long) { Meddle(); };
        Show(shown, eDesignTree, ",1,").EnableCommands(7, true);
        list->SetCurrentRow(1);
    }
    // What the host or the owner does when it has been called often enough.
    void Meddle() {
        if (countdown >= 0 && countdown-- == 0)
            deeds[deed]();
    }
    void Forget(long id) { shown.Forget(id), list->OnDestroyEnumValue(&shown, id); }
    void Rename(long id, const char* name) {
        if (auto* const entry = shown.Find(id))
            entry->name = TextValue(name);
        list->OnRenameEnumValue(&shown, id, {});
    }
    void Add(long id, const char* name) {
        shown.entries.push_back({id, TextValue(name)});
        list->OnAddEnumValue(&shown, id);
    }
    void RenameRow(int row, const char* label) {
        ComboNames(list->GetModel()).RenameLabel(*list->GetTreeItem(row), label);
    }
    void ExpectChecksAsSelected() {
        const ComboTreeItem& root = list->GetRootItem();
        for (const ComboTreeItem* item = &root; item; item = item->GetNextUnder(root)) {
            const bool isSelected =
                list->GetValue().Text.find(TestEnumeration::Key(item->GetId())) != CString::npos;
            EXPECT_EQ(ComboTree::IsChecked(*item), item->IsValue() && isSelected) << item->GetLabel();
        }
    }

    TestEnumeration shown;
    TestEnumeration inner{{"x/y"}};
    const CVariantValue pattern = TextValue("no object");
    int countdown = -1; // calls until the host meddles; negative: it does not
    std::size_t deed = 0;
    static constexpr std::size_t Throwing = 0;
    const Deeds deeds = {
        [] { throw Error("no"); },
        [this] { list->UnIntialize(); },
        [this] { list->Initialize("other", shown.ValueOf(",2,")); },
        [this] { list->Initialize("other", shown.ValueOf(",1,")), throw Error("no"); },
        [this] { shown.refuses = true; },
        [this] { list->Collapse(list->GetTreeItem(0)); },
        [this] { Forget(1), Forget(2); },
        [this] { Add(3, "g/n"), Add(60, "///"); }, // a number twice
        [this] { Rename(1, "p/q/r"), Rename(3, "\xC4\xFF/a\\/b"); },
    };
};

// In each call that an act leads to. Whatever happens, rows are the visible order and counts a recount.
TEST_F(BadEnumerationTest, TheHostMayDoAnythingInAnyCall) {
    Deeds acts = {
        [this] { list->Initialize("value", shown.ValueOf(",1,,4,")); },
        [this] { Item("g") ? ComboChoice(list->GetModel()).SetCheck(*Item("g"), true) : void(); },
        [this] { list->SetCurrentRow(0), Do("f2"); },
        [this] { list->SetCurrentRow(0), Do("delete"); },
        [this] { RenameRow(0, "n/m"); },
        [this] { RenameRow(0, "n"); },
        [this] { RenameRow(1, "n/m"); },
        [this] { Rename(1, "p/q/r"); },
        [this] { Add(9, "g/k/n"); },
        [this] { list->OnEventFormatChanged(); },
        [this] { display.PaintWindow(list->m_hWnd); },
        [this] { Do("move row 1"), display.Advance(std::chrono::milliseconds(600)); },
    };
    for (const char* act :
         {"press check c", "press check g", "press button g", "double label g", "press label c",
          "double label c", "down, space, up, right, type c", "menu row 1", "command 15005", "command 15006",
          "command 15007", "command 15008", "command 15044"})
        acts.push_back([=, this] { Do(act); });
    const std::pair<std::uint32_t, EDataTyps> kinds[] = {{0, DT_Group},
                                                         {ENF_CheckBoxes, DT_String},
                                                         {ENF_Tree, DT_String},
                                                         {ENF_CheckBoxes | ENF_Tree, DT_String}};
    for (const auto& [flags, type] : kinds)
        for (std::size_t act = 0; act < acts.size(); ++act)
            for (deed = 0; deed < deeds.size(); ++deed)
                for (int calls = 0;; ++calls) {
                    SCOPED_TRACE(testing::Message()
                                 << "flags " << flags << ", type " << type << ", act " << act << ", deed "
                                 << deed << ", after " << calls << " calls");
                    ShowAnew(flags, type);
                    countdown = calls;
                    bool isThrown = false;
                    try {
                        acts[act]();
                    } catch (const Error&) {
                        isThrown = true;
                    }
                    const bool hasMeddled = std::exchange(countdown, -1) < 0;
                    ExpectConsistent(*list);
                    EXPECT_EQ(list->GetColumnCount(), list->IsInitialized() ? 1 : 0);
                    if (act == 0 && deed == Throwing)
                        EXPECT_EQ(list->IsInitialized(), !isThrown); // nothing is left of it
                    if (deed == Throwing && (flags & ENF_CheckBoxes) != 0 && list->IsInitialized())
                        ExpectChecksAsSelected();
                    ASSERT_FALSE(HasFailure());
                    if (!hasMeddled)
                        break; // the act leads to no more calls
                }
}

} // namespace
} // namespace korvel

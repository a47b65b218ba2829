#include "korvel/editors/combo_columns.h"
#include "korvel/editors/combo_tree.h"
#include "korvel/values/member_dispatch_imp.h"
#include "support/test_enumeration.h"

#include <gtest/gtest.h>

namespace korvel::internal {
namespace {

std::optional<ComboColumns> Ask(TestEnumeration& shown) {
    ComboBinding binding(eDropDown);
    binding.SetValue(shown.ValueOf(""));
    binding.Open();
    shown.onCall = [&](const std::string& operation, long) {
        if (operation == shown.calls) // the one that ends the binding
            binding.Close();
    };
    return ComboColumns::Ask(binding);
}

TEST(ComboColumns, OfAListAndOfATable) {
    TMemberDispatchImp<int> pattern("pattern"), object("object");
    pattern.AddMember("height", true, TextValue(""));
    pattern.AddMember("width", true, TextValue(""));
    object.AddMember("width", true, TextValue("7"));
    const CVariantValue patternValue = GroupValue(pattern);
    TestEnumeration shown({"a"}, ENF_Tree);
    EXPECT_TRUE(Ask(shown)->HasTree());
    EXPECT_TRUE(Ask(shown)->Members().empty());
    shown.type = DT_Group;
    EXPECT_TRUE(Ask(shown)->Members().empty()); // without a template
    shown.pattern = &patternValue;
    const ComboColumns columns = *Ask(shown);
    EXPECT_EQ(columns.Members(), (std::vector<std::string>{"height", "width"}));
    EXPECT_EQ(columns.Types(), std::set<EDataTyps>{DT_String});

    ComboTree tree;
    const ComboTreeItem& item = tree.AddValue(tree.Root(), 1, GroupValue(object), "label");
    const std::pair<int, const char*> texts[] = {{-1, ""}, {0, "label"}, {1, ""}, {2, "7"}, {3, ""}};
    for (const auto& [column, text] : texts)
        EXPECT_EQ(columns.TextOf(item, column), text) << column;
    EXPECT_EQ(columns.TextOf(tree.AddValue(tree.Root(), 2, TextValue("x"), "x"), 2), "");

    for (const char* operation : {"flags", "type", "template"}) {
        shown.calls = operation;
        EXPECT_FALSE(Ask(shown)) << operation;
    }
}

} // namespace
} // namespace korvel::internal

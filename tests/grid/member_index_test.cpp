#include "korvel/grid/member_index.h"
#include "support/fakes.h"

#include <gtest/gtest.h>
#include <map>
#include <random>

namespace korvel::internal {
namespace {

// Against a plain map, with so few names and objects that they meet often.
TEST(MemberIndex, FindsWhatAPlainMapFindsThroughoutRandomOperations) {
    std::mt19937 random(3);
    HostObject objects[3];
    std::map<std::pair<IMemberDispatch*, std::string>, grid::NodePtr> plain;
    MemberIndex index;
    const auto someName = [&] { return "name " + std::to_string(random() % 200); };
    for (int step = 0; step < 20000; ++step) {
        IMemberDispatch* disp = &objects[random() % 3];
        const std::string name = someName();
        const auto known = plain.find({disp, name});
        const bool isKnown = known != plain.end();
        ASSERT_EQ(index.Find(disp, name).node, isKnown ? known->second.get() : nullptr) << step;
        if (const auto kind = random() % 4; kind < 2) {
            grid::NodePtr node(new grid::CTreeItem(new CItemInfo));
            node->info->text = name;
            ASSERT_EQ(index.AddRow(disp, name, node.get(), FormatService::Number), !isKnown) << step;
            if (!isKnown)
                plain[{disp, name}] = std::move(node);
        } else if (kind == 2) {
            index.SetService(disp, name, FormatService::Angle);
            ASSERT_EQ(index.CountOf(FormatService::Angle), isKnown) << step;
            ASSERT_EQ(index.Remove(disp, name), isKnown) << step;
            plain.erase({disp, name});
        } else if (const std::string newName = someName(); newName != name) {
            index.Rename(disp, name, newName, FormatService::Number);
            if (isKnown)
                plain[{disp, newName}] = std::move(known->second);
            plain.erase({disp, name});
        }
        ASSERT_EQ(index.CountOf(FormatService::Number), plain.size());
    }
    EXPECT_EQ(index.MembersOf(FormatService::Number).size(), plain.size());
    for (HostObject& object : objects)
        index.RemoveObject(&object);
    EXPECT_EQ(index.CountOf(FormatService::Number), 0u);
}

} // namespace
} // namespace korvel::internal

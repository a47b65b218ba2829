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
    std::map<std::pair<IMemberDispatch*, std::string>, std::unique_ptr<grid::CTreeItem>> plain;
    std::vector<std::unique_ptr<CItemInfo>> infos;
    MemberIndex index;
    for (int step = 0; step < 20000; ++step) {
        IMemberDispatch* disp = &objects[random() % 3];
        const std::string name = "name " + std::to_string(random() % 200);
        const auto known = plain.find({disp, name});
        const bool isKnown = known != plain.end();
        ASSERT_EQ(index.Find(disp, name).node, isKnown ? known->second.get() : nullptr) << step;
        const auto kind = random() % 5;
        if (kind < 2) {
            infos.push_back(std::make_unique<CItemInfo>());
            infos.back()->text = name;
            auto node = std::make_unique<grid::CTreeItem>(infos.back().get());
            ASSERT_EQ(index.AddRow(disp, name, node.get(), FormatService::Number), !isKnown) << step;
            if (!isKnown)
                plain[{disp, name}] = std::move(node);
        } else if (kind == 2) {
            index.SetService(disp, name, FormatService::Angle);
            ASSERT_EQ(index.CountOf(FormatService::Angle), isKnown) << step;
            ASSERT_EQ(index.Remove(disp, name), isKnown) << step;
            plain.erase({disp, name});
        } else if (kind == 3) {
            const std::string newName = "name " + std::to_string(random() % 200);
            index.Rename(disp, name, newName, FormatService::Number);
            if (isKnown && newName != name) {
                ASSERT_EQ(known->second->info->text, newName) << step;
                plain[{disp, newName}] = std::move(known->second);
                plain.erase({disp, name});
            }
        } else if (isKnown) {
            known->second->info->text = "touched"; // does not keep the row from being forgotten
            index.RemoveRow(disp, *known->second);
            plain.erase(known);
        }
        ASSERT_EQ(index.CountOf(FormatService::Number), plain.size());
    }
    EXPECT_GT(plain.size(), 100u);
    EXPECT_EQ(index.MembersOf(FormatService::Number).size(), plain.size());
    for (HostObject& object : objects)
        index.RemoveObject(&object);
    EXPECT_EQ(index.CountOf(FormatService::Number), 0u);
}

} // namespace
} // namespace korvel::internal

#include "fakes.h"
#include "grid/member_index.h"

#include <gtest/gtest.h>
#include <map>
#include <random>

namespace korvel {
namespace {

// Against a plain map, with so few names and objects that they meet often.
TEST(MemberIndex, AnswersAsAPlainMapThroughoutRandomOperations) {
    std::mt19937 random(3);
    HostObject objects[3];
    std::map<std::pair<IMemberDispatch*, std::string>, std::unique_ptr<grid::CTreeItem>> plain;
    std::vector<std::unique_ptr<CItemInfo>> infos;
    MemberIndex index;
    std::size_t numbers = 0;
    for (int step = 0; step < 20000; ++step) {
        IMemberDispatch* disp = &objects[random() % 3];
        const std::string name = "name " + std::to_string(random() % 200);
        const auto known = plain.find({disp, name});
        const bool isKnown = known != plain.end();
        const MemberIndex::Found found = index.Find(disp, name);
        ASSERT_EQ(isKnown ? known->second.get() : nullptr, found.node) << step;
        switch (random() % 4) {
        case 0:
        case 1: {
            infos.push_back(std::make_unique<CItemInfo>());
            infos.back()->text = name;
            auto node = std::make_unique<grid::CTreeItem>(infos.back().get());
            ASSERT_EQ(!isKnown, index.AddRow(disp, name, node.get(), EFormatService::Number)) << step;
            numbers += !isKnown;
            if (!isKnown)
                plain[{disp, name}] = std::move(node);
            break;
        }
        case 2:
            ASSERT_EQ(isKnown, index.Remove(disp, name)) << step;
            numbers -= isKnown;
            plain.erase({disp, name});
            break;
        default:
            if (!isKnown)
                break;
            known->second->info->text = "touched"; // does not keep the row from being forgotten
            index.RemoveRow(disp, *known->second);
            numbers -= 1;
            plain.erase(known);
            break;
        }
        ASSERT_EQ(numbers, index.CountOf(EFormatService::Number));
    }
    EXPECT_GT(plain.size(), 100u);
    EXPECT_EQ(plain.size(), index.MembersOf(EFormatService::Number).size());
    index.RemoveObject(&objects[0]);
    index.RemoveObject(&objects[1]);
    index.RemoveObject(&objects[2]);
    EXPECT_EQ(0u, index.CountOf(EFormatService::Number));
}

} // namespace
} // namespace korvel

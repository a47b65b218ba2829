#include "program/open_groups.h"
#include "program/settings_keys.h"
#include "support/scratch.h"

#include <gmock/gmock.h>

namespace korvel::inspector {
namespace {

using Groups = std::vector<OpenGroup>;

class OpenGroupsTest : public testing::Test {
protected:
    platform::ScratchStore m_store;
};

TEST_F(OpenGroupsTest, AreKeptForEachOfTheDocumentsThatWereLeftLast) {
    const Groups groups = {{0, "Alignments"}, {1, "Alignment 1 a\n"}, {0, " "}};
    KeepOpenGroups("a.xml", groups);
    KeepOpenGroups("b.xml", {{0, "b"}});
    EXPECT_EQ(KeptOpenGroups("./x/../a.xml"), groups);
    EXPECT_EQ(KeptOpenGroups("b.xml"), (Groups{{0, "b"}}));
    KeepOpenGroups("b.xml", {});
    EXPECT_EQ(KeptOpenGroups("b.xml"), Groups());
    for (std::size_t i = 1; i < MostKeptDocuments; ++i)
        KeepOpenGroups(std::to_string(i), {{0, "c"}});
    EXPECT_EQ(KeptOpenGroups("a.xml"), groups);
    KeepOpenGroups("one more", {{0, "c"}});
    EXPECT_EQ(KeptOpenGroups("a.xml"), Groups());
}

TEST_F(OpenGroupsTest, AreNotMoreThanThereIsRoomFor) {
    const std::string longest(MostKeptBytes / 2 - 5, 'x');
    KeepOpenGroups("a.xml", {{0, longest}, {1, longest}, {2, "z"}});
    EXPECT_EQ(KeptOpenGroups("a.xml"), (Groups{{0, longest}, {1, longest}, {2, "z"}}));
    KeepOpenGroups("a.xml", {{0, longest}, {1, longest + "xxxxx"}, {2, "z"}});
    EXPECT_EQ(KeptOpenGroups("a.xml"), (Groups{{0, longest}}));
}

TEST_F(OpenGroupsTest, DamagedOnesDoNoHarm) {
    const auto write = [](const std::string& bytes) {
        using platform::SettingsRoot;
        platform::CreateKey(SettingsRoot::User, RecentFilesKey);
        platform::WriteSetting(SettingsRoot::User, RecentFilesKey, "OpenGroups",
                               platform::SettingValue::Binary(bytes));
    };
    using namespace std::string_literals;
    write("/a\0"
          "0 x\0y\0-1 z\099999999999999999999 z\0"
          "1\0"
          "1 in x"s);
    EXPECT_EQ(KeptOpenGroups("/a"), (Groups{{0, "x"}, {1, "in x"}})) << "the end is missing";
    write(std::string(100, '\0'));
    EXPECT_EQ(KeptOpenGroups("/a"), Groups());
}

} // namespace
} // namespace korvel::inspector

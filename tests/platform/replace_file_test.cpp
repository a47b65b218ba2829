#include "platform/code_page.h"
#include "platform/error.h"
#include "platform/replace_file.h"
#include "scratch.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <unistd.h>

namespace korvel::platform {
namespace {

namespace fs = std::filesystem;

std::string ContentOf(const fs::path& path) {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

std::size_t EntriesOf(const fs::path& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST(ReplaceFile, KeepsThePermissionsAndFollowsALink) {
    const ScratchFolder folder;
    const fs::path file = folder.Path() / "file";
    const fs::path link = folder.Path() / "link";
    ReplaceFile(file, "old and longer");
    EXPECT_EQ(ContentOf(file), "old and longer");
    fs::permissions(file, fs::perms(0640));
    fs::create_symlink("file", link);
    ReplaceFile(link, "new");
    EXPECT_EQ(ContentOf(file), "new");
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
    EXPECT_EQ(EntriesOf(folder.Path()), 2U);
}

TEST(ReplaceFile, NamesFileAndReasonAndLeavesNothingBeside) {
    const ScratchFolder folder;
    fs::create_directory(folder.Path() / "folder");
    const std::pair<fs::path, const char*> cases[] = {
        {folder.Path() / "missing" / "Br\xC3\xBCgg", "No such file or directory"},
        {folder.Path() / "folder", "Is a directory"},
        {"/dev/null", "Invalid argument"},
        {folder.Path() / std::string(250, 'n'), "File name too long"},
        {"", "No such file or directory"},
    };
    for (const auto& [path, reason] : cases) {
        SCOPED_TRACE(path);
        try {
            ReplaceFile(path, "content");
            ADD_FAILURE() << "written";
        } catch (const Error& error) {
            EXPECT_EQ(ToUtf8(error.what()), path.string() + ": " + reason);
        }
    }
    EXPECT_EQ(EntriesOf(folder.Path()), 1U);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(ReplaceFile, LeavesTheOldFileWhenTheNewOneCannotBeWritten) {
    const ScratchFolder folder;
    const fs::path file = folder.Path() / "file";
    ReplaceFile(file, "old");
    // A folder of the name that is used beside the file, which even the machine's owner cannot open as a
    // file.
    fs::create_directory(file.string() + "." + std::to_string(::getpid()) + ".new");
    EXPECT_THROW(ReplaceFile(file, "new"), Error);
    EXPECT_EQ(ContentOf(file), "old");
}

} // namespace
} // namespace korvel::platform

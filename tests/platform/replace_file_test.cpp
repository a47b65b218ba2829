#include "korvel/platform/code_page.h"
#include "korvel/platform/file_error.h"
#include "korvel/platform/replace_file.h"
#include "support/scratch.h"

#include <csignal>
#include <cstring>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>

namespace {

// A file that another program makes as soon as one of this name is removed; empty: none.
std::string nextFileOfAnother;

} // namespace

// Replaces the system's for the whole program.
int unlink(const char* path) noexcept {
    const int result = static_cast<int>(::syscall(SYS_unlink, path));
    if (path == nextFileOfAnother) {
        nextFileOfAnother.clear();
        std::ofstream(path) << "another's";
    }
    return result;
}

namespace korvel::platform {
namespace {

namespace fs = std::filesystem;

std::size_t EntriesOf(const fs::path& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST(ReplaceFile, FollowsLinksAndKeepsPermissionsAndOwner) {
    const ScratchFolder folder;
    fs::create_directory(folder.Path() / "below");
    fs::create_symlink("below/second", folder.Path() / "link");
    fs::create_symlink("../file", folder.Path() / "below" / "second");
    const fs::path file = folder.Path() / "file";
    ReplaceFile(folder.Path() / "link", "old and longer");
    EXPECT_EQ(ContentOf(file), "old and longer") << "a link to a file that was not there";

    fs::permissions(file, fs::perms(0640));
    const bool mayGiveAway = ::chown(file.c_str(), 65534, 65534) == 0;
    ReplaceFile(folder.Path() / "link", "new");
    EXPECT_EQ(ContentOf(file), "new");
    EXPECT_TRUE(fs::is_symlink(folder.Path() / "link"));
    struct stat state {};
    ::stat(file.c_str(), &state);
    EXPECT_EQ(state.st_mode & 07777, 0640U);
    EXPECT_EQ(state.st_uid, mayGiveAway ? 65534 : ::geteuid());
    EXPECT_EQ(EntriesOf(folder.Path()), 3U);
}

TEST(ReplaceFile, TakesTheLongestNamesThatTheSystemTakes) {
    const ScratchFolder folder;
    std::string name(255, 'x');
    for (std::size_t i = 1; i < name.size(); i += 2)
        name.replace(i, 2, "\xC3\xBC");
    ReplaceFile(folder.Path() / name, "content");
    EXPECT_EQ(ContentOf(folder.Path() / name), "content");
}

std::string FailureOf(const fs::path& path, std::string_view content = "content") {
    try {
        ReplaceFile(path, content);
    } catch (const FileError& error) {
        std::string text = path.string() + ": " + std::strerror(error.SystemReason());
        EXPECT_EQ(ToUtf8(error.what()), text);
        return text;
    }
    return "none";
}

TEST(ReplaceFile, NamesFileAndReasonAndLeavesTheOldFileAndNothingBeside) {
    const ScratchFolder folder;
    const fs::path file = folder.Path() / "file";
    ReplaceFile(file, "old");
    rlimit former{};
    getrlimit(RLIMIT_FSIZE, &former);
    const rlimit fewBytes{100, former.rlim_max};
    const auto formerHandler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &fewBytes);
    const std::string cutOff = FailureOf(file, std::string(101, 'x'));
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, formerHandler);
    EXPECT_EQ(cutOff, file.string() + ": File too large");
    EXPECT_EQ(EntriesOf(folder.Path()), 1U);
    // A folder of the name that is used beside the file, which even the machine's owner cannot open as a
    // file.
    const fs::path beside = file.string() + "." + std::to_string(::getpid()) + ".new";
    fs::create_directory(beside);
    const fs::path loop = folder.Path() / "loop";
    fs::create_symlink(loop, loop);
    const std::pair<fs::path, const char*> cases[] = {
        {file, "File exists"},
        {beside, "Is a directory"},
        {folder.Path() / "missing" / "Br\xC3\xBCgg", "No such file or directory"},
        {MakeSocketFile(folder.Path() / "socket"), "Invalid argument"},
        {"", "No such file or directory"},
        {loop, "Too many levels of symbolic links"},
    };
    for (const auto& [path, reason] : cases)
        EXPECT_EQ(FailureOf(path), path.string() + ": " + reason);
    EXPECT_EQ(ContentOf(file), "old");
    EXPECT_TRUE(fs::is_socket(folder.Path() / "socket"));
    EXPECT_TRUE(fs::is_symlink(loop));
    fs::permissions(file, fs::perms(0444));
    fs::permissions(folder.Path(), fs::perms(0777));
    {
        const OrdinaryUser user;
        EXPECT_EQ(FailureOf(file), file.string() + ": Permission denied")
            << "though the folder would allow it";
    }
    EXPECT_EQ(ContentOf(file), "old");
}

TEST(ReplaceFile, RemovesNoFileThatItHasNotMade) {
    const ScratchFolder folder;
    const fs::path beside = folder.Path() / ("file." + std::to_string(::getpid()) + ".new");
    nextFileOfAnother = beside;
    EXPECT_EQ(FailureOf(folder.Path() / "file"), (folder.Path() / "file: File exists").string());
    EXPECT_EQ(ContentOf(beside), "another's");
    ReplaceFile(folder.Path() / "file", "new");
    EXPECT_FALSE(fs::exists(beside)) << "what a killed program has left";
}

} // namespace
} // namespace korvel::platform

#include "platform/error.h"
#include "platform/scratch.h"
#include "platform/settings_store.h"

#include <csignal>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace korvel::platform {
namespace {

constexpr auto root = SettingsRoot::User;
constexpr auto done = SettingsStatus::Done;
constexpr auto keyMissing = SettingsStatus::KeyMissing;
constexpr auto valueMissing = SettingsStatus::ValueMissing;
constexpr auto denied = SettingsStatus::AccessDenied;

const SettingValue untouched = SettingValue::Text("untouched");

class SettingsStoreTest : public testing::Test {
protected:
    static SettingValue Read(const char* path, const char* name, SettingsStatus expected = done) {
        SettingValue value = untouched;
        EXPECT_EQ(ReadSetting(root, path, name, value), expected) << path << " " << name;
        return value;
    }
    static std::string ErrorOf(const std::function<void()>& operation) {
        try {
            operation();
        } catch (const Error& error) {
            return error.what();
        }
        return "no error";
    }

    ScratchStore m_store;
};

TEST_F(SettingsStoreTest, TellsWhatIsMissingAndCreatesNothing) {
    EXPECT_EQ(Read("A\\B", "name", keyMissing), untouched);
    EXPECT_EQ(Read("", "name", valueMissing), untouched) << "the root always exists";
    EXPECT_EQ(CheckKey(root, "A", SettingsAccess::Read), keyMissing);
    EXPECT_EQ(CheckKey(root, "", SettingsAccess::Write), done);
    EXPECT_EQ(WriteSetting(root, "A", "name", untouched), keyMissing);
    EXPECT_TRUE(std::filesystem::is_empty(m_store.Path()));

    EXPECT_EQ(CreateKey(root, "A\\B\\C"), done);
    EXPECT_EQ(CheckKey(root, "A\\B", SettingsAccess::Write), done) << "the keys above it come with it";
    EXPECT_EQ(CheckKey(root, "B", SettingsAccess::Read), keyMissing);
    EXPECT_EQ(Read("A\\B", "name", valueMissing), untouched);
    EXPECT_EQ(WriteSetting(root, "A\\D", "name", untouched), keyMissing);
}

TEST_F(SettingsStoreTest, KeepsEveryTypeByteForByte) {
    std::string allBytes;
    for (int byte = 0; byte < 512; ++byte) {
        allBytes.push_back(static_cast<char>(byte));
    }
    CreateKey(root, "Key");
    for (const SettingValue& value :
         {SettingValue::Text(allBytes), SettingValue::Binary(allBytes), SettingValue::Text(""),
          SettingValue::Binary(""), SettingValue::Number(0), SettingValue::Number(0xFFFFFFFF)}) {
        EXPECT_EQ(WriteSetting(root, "Key", "value", value), done);
        EXPECT_EQ(Read("Key", "value"), value) << "each replaces the one before, whatever its type";
    }
    EXPECT_EQ(Read("Key", "value").AsNumber(), 0xFFFFFFFF);
    EXPECT_EQ(SettingValue::Binary("abcd").AsNumber(), std::nullopt);
    EXPECT_THROW(WriteSetting(root, "Key", "value", {SettingType::Number, "abc"}), Error);
}

TEST_F(SettingsStoreTest, LooksAtNeitherCaseNorSpareBackslashes) {
    CreateKey(root, "SOFTWARE\\\xC4nderung");
    WriteSetting(root, "software\\\xE4nderung\\",
                 "Gr\xF6\xDF"
                 "e",
                 SettingValue::Text("1"));
    EXPECT_EQ(Read("\\Software\\\\\xC4NDERUNG", "GR\xD6\xDF"
                                                "E"),
              SettingValue::Text("1"));
    EXPECT_EQ(WriteSetting(root, "", "", SettingValue::Text("at the root, without a name")), done);
    EXPECT_EQ(Read("\\", "").bytes, "at the root, without a name");
}

TEST_F(SettingsStoreTest, RefusesWhatIsNoStoreAndLeavesItAlone) {
    struct Case {
        const char* border;
        std::function<void(const std::filesystem::path&)> make;
        const char* told;
    };
    const auto write = [](std::string text) {
        return [=](const std::filesystem::path& file) { std::ofstream(file) << text; };
    };
    const Case cases[] = {
        {"another kind of file", write(std::string(5000, 'x')), "not a database"},
        {"the beginning of a database, then nothing",
         write(std::string("SQLite format 3\0", 16) + std::string(5000, 'x')), "not a database"},
        {"a folder", [](const auto& file) { std::filesystem::create_directory(file); }, "unable to open"},
        {"another program's database",
         [](const auto& file) {
             sqlite3* database = nullptr;
             sqlite3_open(file.c_str(), &database);
             sqlite3_exec(database, "CREATE TABLE theirs(a)", nullptr, nullptr, nullptr);
             sqlite3_close(database);
         },
         "another program's database"},
    };
    for (const Case& row : cases) {
        const std::filesystem::path file = m_store.Path() / "other";
        row.make(file);
        SetStorePath(root, file);
        const bool isFile = std::filesystem::is_regular_file(file);
        const auto sizeBefore = isFile ? std::filesystem::file_size(file) : 0;
        SettingValue value = untouched;
        const std::string reading = ErrorOf([&] { ReadSetting(root, "A", "b", value); });
        const std::string creating = ErrorOf([&] { CreateKey(root, "A"); });
        for (const std::string& text : {reading, creating}) {
            EXPECT_NE(text.find(row.told), std::string::npos) << row.border << ": " << text;
            EXPECT_NE(text.find(file.string()), std::string::npos) << row.border << ": " << text;
        }
        EXPECT_EQ(isFile ? std::filesystem::file_size(file) : 0, sizeBefore) << row.border;
        std::filesystem::remove_all(file);
    }
}

TEST_F(SettingsStoreTest, TakesAnEmptyFileForAnEmptyStore) {
    std::filesystem::create_directory(m_store.File().parent_path());
    std::ofstream(m_store.File()).close();
    EXPECT_EQ(Read("A", "name", keyMissing), untouched);
    EXPECT_EQ(CreateKey(root, "A"), done);
}

/// A user to whom rights apply, while this object lives: they do not for root.
class OrdinaryUser {
public:
    OrdinaryUser() : m_user(geteuid()) {
        if (m_user == 0 && seteuid(65534) != 0) {
            throw std::runtime_error("the tests cannot give up their rights");
        }
    }
    ~OrdinaryUser() { [[maybe_unused]] const int answer = seteuid(m_user); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    uid_t m_user;
};

TEST_F(SettingsStoreTest, TellsWhichRightIsMissing) {
    CreateKey(root, "A");
    WriteSetting(root, "A", "name", SettingValue::Text("kept"));
    const std::filesystem::path folder = m_store.File().parent_path();
    chmod(m_store.Path().c_str(), 0755);
    chmod(m_store.File().c_str(), 0444);
    chmod(folder.c_str(), 0555);
    {
        const OrdinaryUser user;
        EXPECT_EQ(Read("A", "name").bytes, "kept") << "reading is allowed";
        EXPECT_EQ(CheckKey(root, "A", SettingsAccess::Read), done);
        EXPECT_EQ(CheckKey(root, "A", SettingsAccess::Write), denied);
        EXPECT_EQ(CheckKey(root, "B", SettingsAccess::Write), keyMissing);
        EXPECT_EQ(WriteSetting(root, "A", "name", untouched), denied);
        EXPECT_EQ(CreateKey(root, "A\\B"), denied);
        SetStorePath(root, folder / "new" / "settings.sqlite");
        EXPECT_EQ(CheckKey(root, "", SettingsAccess::Write), denied);
        EXPECT_EQ(CreateKey(root, "A"), denied);
        SetStorePath(root, m_store.File());
    }
    chmod(m_store.File().c_str(), 0000);
    {
        const OrdinaryUser user;
        EXPECT_EQ(Read("A", "name", denied), untouched);
    }
    chmod(folder.c_str(), 0755);
    chmod(m_store.File().c_str(), 0644);
    EXPECT_EQ(Read("A", "name").bytes, "kept");
}

void WriteMany(int writer) {
    for (int i = 0; i < 20; ++i) {
        CreateKey(root, "Shared\\" + std::to_string(writer));
        WriteSetting(root, "Shared", std::to_string(writer) + "." + std::to_string(i),
                     SettingValue::Number(7));
    }
}

TEST_F(SettingsStoreTest, LosesNothingToAnotherProcessOrThread) {
    const pid_t other = fork();
    if (other == 0) {
        WriteMany(0);
        _exit(0);
    }
    std::thread thread(WriteMany, 1);
    WriteMany(2);
    thread.join();
    int status = -1;
    waitpid(other, &status, 0);
    EXPECT_EQ(status, 0);
    for (int writer = 0; writer < 3; ++writer) {
        for (int i = 0; i < 20; ++i) {
            const std::string name = std::to_string(writer) + "." + std::to_string(i);
            EXPECT_EQ(Read("Shared", name.c_str()).AsNumber(), 7u);
        }
    }
}

TEST_F(SettingsStoreTest, OutlivesAKilledWriter) {
    CreateKey(root, "A");
    const std::string oldText(100000, 'o');
    const std::string newText(100000, 'n');
    WriteSetting(root, "A", "name", SettingValue::Text(oldText));
    for (int round = 0; round < 15; ++round) {
        const pid_t writer = fork();
        if (writer == 0) {
            for (;;) {
                WriteSetting(root, "A", "name", SettingValue::Text(newText));
                WriteSetting(root, "A", "name", SettingValue::Text(oldText));
            }
        }
        usleep(static_cast<useconds_t>(3000 + 1700 * round));
        kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);
        const std::string text = Read("A", "name").bytes;
        EXPECT_TRUE(text == oldText || text == newText);
        EXPECT_EQ(WriteSetting(root, "A", "name", SettingValue::Text(oldText)), done);
    }
}

} // namespace
} // namespace korvel::platform

#include "korvel/platform/error.h"
#include "korvel/platform/set_aside.h"
#include "korvel/platform/settings_store.h"
#include "korvel/platform/store_database.h"
#include "korvel/platform/store_problem.h"
#include "korvel/platform/store_statement.h"
#include "support/scratch.h"

#include <chrono>
#include <csignal>
#include <gmock/gmock.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>

namespace korvel::platform {
namespace {

using enum SettingsStatus;

constexpr auto Root = SettingsRoot::User;
const SettingValue Untouched = SettingValue::Text("untouched");

class SettingsStoreTest : public testing::Test {
protected:
    static SettingValue Read(const std::string& path, const std::string& name,
                             SettingsStatus expected = Done) {
        SettingValue value = Untouched;
        EXPECT_EQ(ReadSetting(Root, path, name, value), expected) << path << " " << name;
        return value;
    }

    ScratchStore m_store;
};

TEST_F(SettingsStoreTest, SaysWhatIsMissingAndCreatesNothing) {
    EXPECT_EQ(Read("A\\B", "name", KeyMissing), Untouched);
    EXPECT_EQ(Read("", "name", ValueMissing), Untouched) << "the root always exists";
    EXPECT_EQ(CheckKey(Root, "A", SettingsAccess::Read), KeyMissing);
    EXPECT_EQ(CheckKey(Root, "", SettingsAccess::Write), Done);
    EXPECT_EQ(WriteSetting(Root, "A", "name", Untouched), KeyMissing);
    EXPECT_TRUE(std::filesystem::is_empty(m_store.Path()));

    EXPECT_EQ(CreateKey(Root, "A\\B\\C"), Done);
    EXPECT_EQ(CheckKey(Root, "A\\B", SettingsAccess::Write), Done) << "the keys above it come with it";
    EXPECT_EQ(CheckKey(Root, "B", SettingsAccess::Read), KeyMissing);
    EXPECT_EQ(Read("A\\B", "name", ValueMissing), Untouched);
    EXPECT_EQ(WriteSetting(Root, "A\\D", "name", Untouched), KeyMissing);
}

TEST_F(SettingsStoreTest, KeepsEveryTypeByteForByte) {
    std::string allBytes;
    for (int byte = 0; byte < 512; ++byte)
        allBytes.push_back(static_cast<char>(byte));
    CreateKey(Root, "Key");
    for (const SettingValue& value :
         {SettingValue::Text(allBytes), SettingValue::Binary(allBytes), SettingValue::Text(""),
          SettingValue::Binary(""), SettingValue::Number(0), SettingValue::Number(0xFFFFFFFF)}) {
        EXPECT_EQ(WriteSetting(Root, "Key", "value", value), Done);
        EXPECT_EQ(Read("Key", "value"), value) << "each replaces the one before, whatever its type";
    }
    EXPECT_EQ(Read("Key", "value").AsNumber(), 0xFFFFFFFF);
    EXPECT_EQ(SettingValue::Binary("abcd").AsNumber(), std::nullopt);
    EXPECT_THROW(WriteSetting(Root, "Key", "value", {SettingType::Number, "abc"}), Error);
}

TEST_F(SettingsStoreTest, LooksAtNeitherCaseNorSpareBackslashes) {
    CreateKey(Root, "SOFTWARE\\\xC4nderung");
    WriteSetting(Root, "software\\\xE4nderung\\", "Gr\xF6\xDFte", SettingValue::Text("1"));
    EXPECT_EQ(Read("\\Software\\\\\xC4NDERUNG", "GR\xD6\xDFTE"), SettingValue::Text("1"));
    EXPECT_EQ(WriteSetting(Root, "", "", SettingValue::Text("at the root, without a name")), Done);
    EXPECT_EQ(Read("\\", "").bytes, "at the root, without a name");
}

TEST_F(SettingsStoreTest, RefusesWhatIsNoStoreAndLeavesItAlone) {
    const std::filesystem::path file = m_store.Path() / "other";
    SetStorePath(Root, file);
    const auto expectRefusal = [&](const std::string& reason) {
        SettingValue value = Untouched;
        const auto refuses = testing::ThrowsMessage<Error>(
            testing::AllOf(testing::HasSubstr(reason), testing::HasSubstr(file.string())));
        const auto sizeBefore = is_directory(file) ? 0 : file_size(file);
        EXPECT_THAT([&] { ReadSetting(Root, "A", "b", value); }, refuses);
        EXPECT_THAT([] { CreateKey(Root, "A"); }, refuses);
        EXPECT_EQ(is_directory(file) ? 0 : file_size(file), sizeBefore);
        remove(file);
    };
    for (const std::string& begin :
         {std::string("another kind of file"), std::string("SQLite format 3\0", 16)}) {
        std::ofstream(file) << begin << std::string(5000, 'x');
        expectRefusal("not a database");
    }
    create_directory(file);
    expectRefusal("unable to open");
    const std::pair<const char*, const char*> databases[] = {
        {"CREATE TABLE theirs(a)", "another program's database"},
        {"PRAGMA application_id = 1265594998; CREATE TABLE keys(a)", "its tables are missing"}};
    for (const auto& [statements, reason] : databases) {
        sqlite3* database = nullptr;
        sqlite3_open(file.c_str(), &database);
        sqlite3_exec(database, statements, nullptr, nullptr, nullptr);
        sqlite3_close(database);
        expectRefusal(reason);
    }

    std::ofstream(file).close();
    EXPECT_EQ(Read("A", "name", KeyMissing), Untouched) << "an empty file is an empty store";
    EXPECT_EQ(CreateKey(Root, "A"), Done);
}

TEST_F(SettingsStoreTest, WaitsOnceForALockedStore) {
    CreateKey(Root, "A");
    sqlite3* other = nullptr;
    sqlite3_open(m_store.File().c_str(), &other);
    sqlite3_exec(other, "PRAGMA journal_mode=delete; BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
    const auto wait = [] {
        const auto begin = std::chrono::steady_clock::now();
        SettingValue value;
        EXPECT_THROW(ReadSetting(Root, "A", "name", value), Error);
        return std::chrono::steady_clock::now() - begin;
    };
    const auto first = wait();
    EXPECT_LT(wait(), first / 2) << "it has been waited for";
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_THROW(CreateKey(Root, "B"), Error);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20))
        << "a window would be frozen";
    sqlite3_close(other);
    EXPECT_EQ(Read("A", "name", ValueMissing), Untouched);
}

TEST_F(SettingsStoreTest, SaysWhichRightIsMissing) {
    CreateKey(Root, "A");
    WriteSetting(Root, "A", "name", SettingValue::Text("kept"));
    const std::filesystem::path folder = m_store.File().parent_path();
    chmod(m_store.Path().c_str(), 0755);
    chmod(m_store.File().c_str(), 0444);
    chmod(folder.c_str(), 0555);
    {
        const OrdinaryUser user;
        EXPECT_EQ(Read("A", "name").bytes, "kept") << "reading is allowed";
        EXPECT_EQ(CheckKey(Root, "A", SettingsAccess::Read), Done);
        EXPECT_EQ(CheckKey(Root, "A", SettingsAccess::Write), AccessDenied);
        EXPECT_EQ(CheckKey(Root, "B", SettingsAccess::Write), KeyMissing);
        EXPECT_EQ(WriteSetting(Root, "A", "name", Untouched), AccessDenied);
        EXPECT_EQ(CreateKey(Root, "A\\B"), AccessDenied);
        SetStorePath(Root, folder / "new" / "settings.sqlite");
        EXPECT_EQ(CheckKey(Root, "", SettingsAccess::Write), AccessDenied);
        EXPECT_EQ(CreateKey(Root, "A"), AccessDenied);
        SetStorePath(Root, m_store.File());
    }
    chmod(m_store.File().c_str(), 0000);
    {
        const OrdinaryUser user;
        EXPECT_EQ(Read("A", "name", AccessDenied), Untouched);
    }
    chmod(folder.c_str(), 0755);
    chmod(m_store.File().c_str(), 0644);
    EXPECT_EQ(Read("A", "name").bytes, "kept");
}

internal::StoreDatabase OtherProgram(const std::filesystem::path& file) {
    return *internal::StoreDatabase::OpenExisting(file, internal::StoreUse::Writing);
}

std::string JournalMode(const std::filesystem::path& file) {
    internal::StoreDatabase store = OtherProgram(file);
    internal::StoreStatement mode(store, "PRAGMA journal_mode");
    mode.Step();
    return mode.ColumnBytes(0);
}

TEST_F(SettingsStoreTest, ReadersWaitForNoWriter) {
    CreateKey(Root, "A");
    WriteSetting(Root, "A", "name", SettingValue::Text("old"));
    EXPECT_EQ(JournalMode(m_store.File()), "wal");
    internal::StoreDatabase writer = OtherProgram(m_store.File());
    writer.BeginWriting();
    internal::StoreStatement(writer, "UPDATE settings SET value = 'new'").Step();
    EXPECT_EQ(Read("A", "name").bytes, "old");
    std::vector<std::optional<SettingValue>> values;
    const std::string_view names[] = {"name", "other"};
    EXPECT_EQ(ReadSettings(Root, "A", names, values), Done);
    EXPECT_THAT(values, testing::ElementsAre(SettingValue::Text("old"), std::nullopt));
    writer.Commit();
    EXPECT_EQ(Read("A", "name").bytes, "new");
}

TEST_F(SettingsStoreTest, NeedsNoLogWhereNoneCanBeShared) {
    std::filesystem::path memory = m_store.File();
    create_directories(memory += "-shm"); // as on a file system that shares no memory
    EXPECT_EQ(CreateKey(Root, "A"), Done);
    EXPECT_EQ(WriteSetting(Root, "A", "name", SettingValue::Text("kept")), Done);
    EXPECT_EQ(Read("A", "name").bytes, "kept");
    EXPECT_EQ(JournalMode(m_store.File()), "delete");

    const std::filesystem::path elsewhere = m_store.Path() / "elsewhere";
    const std::filesystem::path copy = m_store.Path() / "copy";
    SetStorePath(Root, elsewhere);
    CreateKey(Root, "A");
    WriteSetting(Root, "A", "name", SettingValue::Text("with a log"));
    copy_file(elsewhere, copy);
    MakeSocketFile(m_store.Path() / "copy-shm");
    SetStorePath(Root, copy);
    EXPECT_EQ(Read("A", "name").bytes, "with a log");
    EXPECT_EQ(WriteSetting(Root, "A", "name", Untouched), Done);
}

TEST_F(SettingsStoreTest, UsersReadTheMachinesWithoutTheRightToWriteThere) {
    CreateKey(SettingsRoot::Machine, "A");
    WriteSetting(SettingsRoot::Machine, "A", "name", SettingValue::Text("kept"));
    EXPECT_EQ(JournalMode(StorePath(SettingsRoot::Machine)), "delete");
    chmod(m_store.Path().c_str(), 0555);
    {
        const OrdinaryUser user;
        SettingValue value;
        EXPECT_EQ(ReadSetting(SettingsRoot::Machine, "A", "name", value), Done);
        EXPECT_EQ(value.bytes, "kept");
        EXPECT_EQ(WriteSetting(SettingsRoot::Machine, "A", "name", Untouched), AccessDenied);
    }
    std::ofstream(StorePath(SettingsRoot::Machine) += "-journal") << "of a writer that was killed";
    {
        const OrdinaryUser user;
        SettingValue value;
        EXPECT_EQ(ReadSetting(SettingsRoot::Machine, "A", "name", value), AccessDenied)
            << "what the file holds was never committed";
    }
    chmod(m_store.Path().c_str(), 0755);
}

TEST_F(SettingsStoreTest, IsSetAsideWithAllThatBelongsToItOnceItIsDamaged) {
    CreateKey(Root, "A");
    const std::filesystem::path file = m_store.File();
    const auto beside = [&](const char* suffix) { return std::filesystem::path(file) += suffix; };
    EXPECT_THROW(SetStoreAside(Root), Error) << "another program has begun a new one";
    EXPECT_EQ(CheckKey(Root, "A", SettingsAccess::Read), Done);

    std::ofstream(file) << std::string(5000, 'x');
    std::ofstream(beside("-shm")) << "memory";
    create_symlink("nothing", beside(".damaged"));
    std::ofstream(beside(".2.damaged-wal")) << "of last time";
    EXPECT_EQ(SetStoreAside(Root), beside(".3.damaged"));
    EXPECT_EQ(ContentOf(beside(".3.damaged-shm")), "memory") << "a new store would take it for its own";
    EXPECT_EQ(ContentOf(beside(".2.damaged-wal")), "of last time");
    EXPECT_EQ(CheckKey(Root, "A", SettingsAccess::Read), KeyMissing);

    std::ofstream(beside("-wal")) << "log";
    EXPECT_THROW(SetFileAside(file, {"-wal"}), Error) << "there is none";
    EXPECT_EQ(ContentOf(beside("-wal")), "log") << "nothing has changed";
}

void WriteMany(int writer) {
    for (int i = 0; i < 20; ++i) {
        CreateKey(Root, "Shared\\" + std::to_string(writer));
        WriteSetting(Root, "Shared", std::to_string(writer * 100 + i), SettingValue::Number(7));
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
    for (int i = 0; i < 60; ++i)
        EXPECT_EQ(Read("Shared", std::to_string(i / 20 * 100 + i % 20)).AsNumber(), 7u);
}

TEST_F(SettingsStoreTest, OutlivesAWriterThatDiesAnywhere) {
    CreateKey(Root, "A");
    const SettingValue oldText = SettingValue::Text(std::string(100000, 'o'));
    const SettingValue newText = SettingValue::Text(std::string(100000, 'n'));
    int deaths = 0;
    for (rlim_t bytes = 4000; bytes < 300000; bytes += 20000) {
        EXPECT_EQ(WriteSetting(Root, "A", "name", oldText), Done);
        const pid_t writer = fork();
        if (writer == 0) {
            std::signal(SIGXFSZ, _exit); // comes with the first byte after the limit
            const rlimit limit{bytes, bytes};
            setrlimit(RLIMIT_FSIZE, &limit);
            _exit(WriteSetting(Root, "A", "name", newText) == Done ? 0 : 1);
        }
        int status = -1;
        waitpid(writer, &status, 0);
        deaths += status != 0;
        EXPECT_EQ(Read("A", "name"), status == 0 ? newText : oldText) << bytes;
    }
    EXPECT_GT(deaths, 5);
    EXPECT_LT(deaths, 15);
}

} // namespace
} // namespace korvel::platform

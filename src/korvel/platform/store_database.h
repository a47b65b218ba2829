#pragma once

#include "korvel/platform/error.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;

namespace korvel::internal {

/// Thrown where the user lacks the right to what was tried.
struct StoreAccessDenied {};

/// Thrown for a file that is no settings store, or no longer one.
class StoreDamaged : public Error {
public:
    using Error::Error;
};

/// Thrown where the system cannot read the file, or cannot share the memory that its log needs.
class StoreUnreachable : public Error {
public:
    using Error::Error;
};

/// Thrown for a value that some other program has written and that is no setting.
class WrongStoreValue : public Error {
public:
    WrongStoreValue(const std::filesystem::path& file, std::string_view valueName);

    const std::string& ValueName() const { return m_valueName; }

private:
    std::string m_valueName;
};

/// The text of an Error about the store in a file.
std::string StoreFailure(const std::filesystem::path& file, std::string_view problem);

/// How a store keeps what is not yet in its file: in a log beside it, so that readers wait for no writer, or
/// in a journal, so that readers need no right to write anything.
enum class StoreJournal { Log, Rollback };

/// What a store is opened for: a reading waits a second for others, and not at all for ten seconds after one
/// that waited in vain; a writing waits three.
enum class StoreUse { Reading, Writing };

/// An open store. What was not committed when it is destroyed has not happened, and the same holds for a
/// process that dies. Every failure is thrown: StoreAccessDenied, or an Error with the name of the file.
class StoreDatabase {
public:
    /// Nothing when there is no such file, or an empty one.
    static std::optional<StoreDatabase> OpenExisting(const std::filesystem::path& file, StoreUse use);

    /// For writing: creates the file and the folders above it where they are missing.
    static StoreDatabase OpenOrCreate(const std::filesystem::path& file);

    /// Whether reading all of the file shows that it is damaged. False for none, and without the right to
    /// read it.
    static bool IsDamaged(const std::filesystem::path& file);

    /// Keeps the log or the journal from now on, where the folder's file system and the other users of the
    /// file allow it; they all follow.
    void KeepJournal(StoreJournal journal);

    /// What is read from now on is as it was at one moment.
    void BeginReading();
    void BeginWriting();
    void Commit();

    /// Throws unless the result of a call of SQLite is a success.
    void Check(int result) const;
    const std::filesystem::path& File() const { return m_file; }
    sqlite3* Handle() const { return m_handle.get(); }

private:
    enum class Access { Existing, Create, Unchanging };

    StoreDatabase(const std::filesystem::path& file, Access access, StoreUse use);
    void Open(Access access);
    void WaitForOthers();
    void LeaveLog();
    void Execute(const char* sql);
    std::string Failure(std::string_view problem) const { return StoreFailure(m_file, problem); }
    std::string JournalMode();
    bool IsStore();
    bool HasTables();
    void CreateTables();

    struct Close {
        void operator()(sqlite3* handle) const;
    };
    std::filesystem::path m_file;
    StoreUse m_use;
    std::unique_ptr<sqlite3, Close> m_handle;
};

} // namespace korvel::internal

#include "korvel/platform/store_database.h"

#include "korvel/platform/code_page.h"
#include "korvel/platform/store_statement.h"

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <map>
#include <mutex>
#include <sqlite3.h>
#include <system_error>
#include <unistd.h>

namespace korvel::internal {
namespace {

// How often a reading and a writing look whether others have finished, and the time between two looks.
// Looking often finds the moment between two writes of a program that writes without pause.
constexpr int LooksOfReading = 200;
constexpr int LooksOfWriting = 600;
constexpr int MillisecondsBetweenLooks = 5;

// Kept in the file's header, so that no other program's database is taken for a store: "Korv".
constexpr std::int64_t ApplicationId = 0x4B6F7276;

// A value's type is the one that SQLite keeps with each value, so a text can be read and set with any of its
// tools.
constexpr const char* TableDefinitions =
    "CREATE TABLE keys(path TEXT PRIMARY KEY) WITHOUT ROWID;"
    "CREATE TABLE settings(path TEXT, name TEXT, value, PRIMARY KEY(path, name))"
    " WITHOUT ROWID;"
    "PRAGMA application_id = 1265594998;";
static_assert(ApplicationId == 1265594998);

// One statement, so that a store that another program makes at this moment is seen whole or not at all.
constexpr const char* QueryOfTables =
    "SELECT application_id, (SELECT count(*) FROM sqlite_master),"
    " (SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name IN ('keys', 'settings'))"
    " FROM pragma_application_id";

bool IsMissingRight(int systemError) {
    return systemError == EACCES || systemError == EPERM || systemError == EROFS;
}

bool Exists(const std::filesystem::path& file) {
    std::error_code error;
    const bool exists = std::filesystem::exists(file, error);
    if (IsMissingRight(error.value()))
        throw StoreAccessDenied();
    return exists;
}

template <int MostLooks>
int LookAgain(void*, int looks) {
    if (looks >= MostLooks)
        return 0;
    usleep(MillisecondsBetweenLooks * 1000);
    return 1;
}

// The stores for which a reading has waited in vain: the readings that follow do not wait, or a program that
// reads many settings would wait for each of them.
class BusyStores {
public:
    bool WasBusy(const std::filesystem::path& file) {
        const std::lock_guard lock(m_mutex);
        const auto found = m_since.find(file);
        return found != m_since.end() && Clock::now() - found->second < NoWaiting;
    }
    void NoteBusy(const std::filesystem::path& file) {
        const std::lock_guard lock(m_mutex);
        const Clock::time_point now = Clock::now();
        const auto [busy, isNew] = m_since.try_emplace(file, now);
        if (!isNew && now - busy->second >= NoWaiting) // this reading has waited
            busy->second = now;
    }

private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::seconds NoWaiting{10};

    std::mutex m_mutex;
    std::map<std::filesystem::path, Clock::time_point> m_since;
};

BusyStores& TheBusyStores() {
    static BusyStores stores;
    return stores;
}

// The name by which SQLite opens a file as it is, without log, journal or lock.
std::string UnchangingName(const std::filesystem::path& file) {
    std::string name = "file:";
    for (const char byte : std::filesystem::absolute(file).string())
        if (byte == '%' || byte == '?' || byte == '#')
            name += byte == '%' ? "%25" : byte == '?' ? "%3f" : "%23";
        else
            name += byte;
    return name + "?immutable=1";
}

} // namespace

std::string StoreFailure(const std::filesystem::path& file, std::string_view problem) {
    return "The settings store " + platform::FromUtf8(file.string()).text +
           " cannot be used: " + std::string(problem);
}

WrongStoreValue::WrongStoreValue(const std::filesystem::path& file, std::string_view valueName)
    : Error(StoreFailure(file, "the value '" + std::string(valueName) +
                                   "' is neither text nor binary nor a whole number")),
      m_valueName(valueName) {}

std::optional<StoreDatabase> StoreDatabase::OpenExisting(const std::filesystem::path& file, StoreUse use) {
    if (file.empty() || !Exists(file))
        return std::nullopt;
    try {
        StoreDatabase database(file, Access::Existing, use);
        return database.IsStore() ? std::optional(std::move(database)) : std::nullopt;
    } catch (const StoreAccessDenied&) {
        // A log needs a file beside the store while it is read. Without the right to make one the store is
        // read as it is, unless a log holds what is not in it yet or a journal what is to be put back into
        // it.
        for (const char* companion : {"-wal", "-journal"})
            if (Exists(std::filesystem::path(file) += companion))
                throw;
    }
    StoreDatabase database(file, Access::Unchanging, use);
    return database.HasTables() ? std::optional(std::move(database)) : std::nullopt;
}

StoreDatabase StoreDatabase::OpenOrCreate(const std::filesystem::path& file) {
    if (file.empty())
        throw StoreAccessDenied();
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    if (IsMissingRight(error.value()))
        throw StoreAccessDenied();
    StoreDatabase database(file, Access::Create, StoreUse::Writing);
    if (!database.IsStore())
        database.CreateTables();
    return database;
}

bool StoreDatabase::IsDamaged(const std::filesystem::path& file) {
    try {
        std::optional<StoreDatabase> store = OpenExisting(file, StoreUse::Reading);
        if (!store)
            return false;
        StoreStatement check(*store, "PRAGMA integrity_check(1)");
        return !check.Step() || check.ColumnBytes(0) != "ok";
    } catch (const StoreDamaged&) {
        return true;
    } catch (const StoreAccessDenied&) {
        return false;
    }
}

StoreDatabase::StoreDatabase(const std::filesystem::path& file, Access access, StoreUse use)
    : m_file(file), m_use(use) {
    Open(access);
}

// Reading, too, opens for writing where the user may: it puts right what a killed writer has left.
void StoreDatabase::Open(Access access) {
    const bool isUnchanging = access == Access::Unchanging;
    const int flags = isUnchanging ? SQLITE_OPEN_READONLY | SQLITE_OPEN_URI : SQLITE_OPEN_READWRITE;
    const int create = access == Access::Create ? SQLITE_OPEN_CREATE : 0;
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2((isUnchanging ? UnchangingName(m_file) : m_file.string()).c_str(),
                                       &handle, flags | create, nullptr);
    m_handle.reset(handle);
    Check(result);
    WaitForOthers();
}

void StoreDatabase::KeepJournal(StoreJournal journal) {
    const std::string wanted = journal == StoreJournal::Log ? "wal" : "delete";
    if (JournalMode() == wanted)
        return;
    // Whoever uses the file at this moment keeps it from changing; the next writer tries again.
    sqlite3_busy_handler(m_handle.get(), nullptr, nullptr);
    sqlite3_exec(m_handle.get(), ("PRAGMA journal_mode=" + wanted).c_str(), nullptr, nullptr, nullptr);
    const int result = sqlite3_exec(m_handle.get(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    if (result == SQLITE_OK)
        Execute("ROLLBACK");
    else if (journal == StoreJournal::Log && (result & 0xFF) != SQLITE_BUSY)
        LeaveLog();
    WaitForOthers();
}

// Only a connection that has the file for itself reads it without the memory that a log shares.
void StoreDatabase::LeaveLog() {
    m_handle.reset();
    Open(Access::Existing);
    Execute("PRAGMA locking_mode=exclusive; PRAGMA journal_mode=delete;"
            "PRAGMA locking_mode=normal; SELECT 1 FROM sqlite_master");
}

void StoreDatabase::WaitForOthers() {
    const auto look = m_use == StoreUse::Writing        ? LookAgain<LooksOfWriting>
                      : TheBusyStores().WasBusy(m_file) ? nullptr
                                                        : LookAgain<LooksOfReading>;
    Check(sqlite3_busy_handler(m_handle.get(), look, nullptr));
}

std::string StoreDatabase::JournalMode() {
    StoreStatement mode(*this, "PRAGMA journal_mode");
    return mode.Step() ? mode.ColumnBytes(0) : "";
}

void StoreDatabase::Close::operator()(sqlite3* handle) const {
    sqlite3_close(handle);
}

void StoreDatabase::BeginReading() {
    Execute("BEGIN");
}

void StoreDatabase::BeginWriting() {
    Execute("BEGIN IMMEDIATE");
}

void StoreDatabase::Commit() {
    Execute("COMMIT");
}

void StoreDatabase::Execute(const char* sql) {
    Check(sqlite3_exec(m_handle.get(), sql, nullptr, nullptr, nullptr));
}

// A store that was kept with a log may have come to a folder where the memory that a log needs cannot be
// shared.
bool StoreDatabase::IsStore() {
    try {
        return HasTables();
    } catch (const StoreUnreachable&) {
        LeaveLog();
        return HasTables();
    }
}

bool StoreDatabase::HasTables() {
    StoreStatement query(*this, QueryOfTables);
    query.Step();
    const bool isMarked = query.ColumnNumber(0) == ApplicationId;
    const std::int64_t objects = query.ColumnNumber(1);
    const std::int64_t tables = query.ColumnNumber(2);
    if (isMarked && tables < 2)
        throw StoreDamaged(Failure("its tables are missing"));
    if (!isMarked && objects > 0)
        throw StoreDamaged(Failure("it is another program's database"));
    return isMarked;
}

void StoreDatabase::CreateTables() {
    BeginWriting();
    if (!HasTables()) // another program may have been faster
        Execute(TableDefinitions);
    Commit();
}

void StoreDatabase::Check(int result) const {
    switch (result & 0xFF) { // the extended codes only add detail
    case SQLITE_OK:
        return;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        throw StoreAccessDenied();
    case SQLITE_CANTOPEN:
        if (m_handle && IsMissingRight(sqlite3_system_errno(m_handle.get())))
            throw StoreAccessDenied();
        [[fallthrough]];
    case SQLITE_IOERR:
        throw StoreUnreachable(Failure(sqlite3_errstr(result)));
    case SQLITE_BUSY:
        if (m_use == StoreUse::Reading)
            TheBusyStores().NoteBusy(m_file);
        throw Error(Failure(sqlite3_errstr(result)));
    case SQLITE_FULL: // to read, too, needs room beside the file, unless it is opened as unchanging
        if (m_use == StoreUse::Reading)
            throw StoreAccessDenied();
        throw Error(Failure(sqlite3_errstr(result)));
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        throw StoreDamaged(Failure(sqlite3_errstr(result)));
    default:
        throw Error(Failure(sqlite3_errstr(result)));
    }
}

} // namespace korvel::internal

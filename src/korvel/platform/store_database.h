#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace korvel::internal {

/// Thrown where the user lacks the right to what was tried.
struct StoreAccessDenied {};

class StoreDatabase;

/// One SQL statement. Parameters are numbered from 1, columns from 0.
class StoreStatement {
public:
    StoreStatement(StoreDatabase& database, const char* sql);

    StoreStatement& BindText(int parameter, std::string_view utf8);
    StoreStatement& BindBinary(int parameter, std::string_view bytes);
    StoreStatement& BindNumber(int parameter, std::int64_t number);

    /// True when there is a row to look at.
    bool Step();

    enum class Kind { Text, Binary, Number, Other };
    Kind ColumnKind(int column) const;
    std::string ColumnBytes(int column) const;
    std::int64_t ColumnNumber(int column) const;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };
    StoreDatabase& m_database;
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

/// An open store. What was not committed when it is destroyed has not happened, and the same holds for a
/// process that dies. Every failure is thrown: StoreAccessDenied, else Error with the name of the file.
class StoreDatabase {
public:
    /// Nothing when there is no such file, or none that ever was written to.
    static std::optional<StoreDatabase> OpenExisting(const std::filesystem::path& file);

    /// Creates the file and the folders above it where they are missing.
    static StoreDatabase OpenOrCreate(const std::filesystem::path& file);

    void Begin();
    void Commit();

    /// Throws unless the result of a call of SQLite is a success.
    void Check(int answer) const;
    sqlite3* Handle() const { return m_handle.get(); }

private:
    enum class IfMissing { Fail, Create };

    StoreDatabase(const std::filesystem::path& file, IfMissing ifMissing);
    void Execute(const char* sql);
    bool HasTables();
    void CreateTables();
    [[noreturn]] void Throw(std::string_view problem) const;

    struct Close {
        void operator()(sqlite3* handle) const;
    };
    std::filesystem::path m_file;
    std::unique_ptr<sqlite3, Close> m_handle;
};

} // namespace korvel::internal

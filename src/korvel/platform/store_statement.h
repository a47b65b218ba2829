#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3_stmt;

namespace korvel::internal {

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

} // namespace korvel::internal

#include "korvel/platform/store_statement.h"

#include "korvel/platform/store_database.h"

#include <sqlite3.h>

namespace korvel::internal {

StoreStatement::StoreStatement(StoreDatabase& database, const char* sql) : m_database(database) {
    sqlite3_stmt* statement = nullptr;
    m_database.Check(sqlite3_prepare_v2(database.Handle(), sql, -1, &statement, nullptr));
    m_statement.reset(statement);
}

void StoreStatement::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

StoreStatement& StoreStatement::BindText(int parameter, std::string_view utf8) {
    m_database.Check(sqlite3_bind_text64(m_statement.get(), parameter, utf8.data(), utf8.size(),
                                         SQLITE_TRANSIENT, SQLITE_UTF8));
    return *this;
}

StoreStatement& StoreStatement::BindBinary(int parameter, std::string_view bytes) {
    const char* data = bytes.empty() ? "" : bytes.data(); // a null pointer would bind NULL
    m_database.Check(sqlite3_bind_blob64(m_statement.get(), parameter, data, bytes.size(), SQLITE_TRANSIENT));
    return *this;
}

StoreStatement& StoreStatement::BindNumber(int parameter, std::int64_t number) {
    m_database.Check(sqlite3_bind_int64(m_statement.get(), parameter, number));
    return *this;
}

bool StoreStatement::Step() {
    const int result = sqlite3_step(m_statement.get());
    if (result != SQLITE_ROW)
        m_database.Check(result == SQLITE_DONE ? SQLITE_OK : result);
    return result == SQLITE_ROW;
}

StoreStatement::Kind StoreStatement::ColumnKind(int column) const {
    switch (sqlite3_column_type(m_statement.get(), column)) {
    case SQLITE_TEXT:
        return Kind::Text;
    case SQLITE_BLOB:
        return Kind::Binary;
    case SQLITE_INTEGER:
        return Kind::Number;
    default:
        return Kind::Other;
    }
}

std::string StoreStatement::ColumnBytes(int column) const {
    const void* bytes = sqlite3_column_blob(m_statement.get(), column);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column));
    return bytes == nullptr ? std::string() : std::string(static_cast<const char*>(bytes), size);
}

std::int64_t StoreStatement::ColumnNumber(int column) const {
    return sqlite3_column_int64(m_statement.get(), column);
}

} // namespace korvel::internal

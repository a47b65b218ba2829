#include "korvel/grid/column_record.h"

#include "korvel/documents/xml_element.h"
#include "korvel/documents/xml_node.h"
#include "korvel/layout/binary_memory_stream.h"

#include <charconv>

namespace korvel::internal {

namespace {

constexpr int WidestColumn = 32767;
constexpr std::size_t BytesOfColumn = 8;
constexpr const char* ColumnElement = "Column";
constexpr const char* Position = "POS";
constexpr const char* Width = "WIDTH";

std::optional<int> ReadNumber(const XmlElement& element, const char* attribute) {
    const auto found = element.attributes.find(attribute);
    if (found == element.attributes.end())
        return std::nullopt;
    const std::string& text = found->second;
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

} // namespace

std::vector<SColumnInfo> UsableColumns(const std::vector<SColumnInfo>& columns, std::size_t count) {
    std::vector<SColumnInfo> usable;
    std::vector<bool> isFound(count);
    for (const SColumnInfo& info : columns) {
        const auto column = static_cast<std::size_t>(info.column); // beyond all for a negative one
        if (column < count && !isFound[column] && info.width >= 0 && info.width <= WidestColumn) {
            isFound[column] = true;
            usable.push_back(info);
        }
    }
    return usable;
}

void WriteColumns(const std::vector<SColumnInfo>& columns, const CXmlNodeBase& state) {
    for (const SColumnInfo& info : columns) {
        CXmlNode column(state, ColumnElement);
        column.GetAttributes().Set(Position, info.column);
        column.GetAttributes().Set(Width, info.width);
        column.WriteOpeningTag();
    }
}

std::vector<SColumnInfo> ReadColumns(const XmlElement& state) {
    std::vector<SColumnInfo> columns;
    for (const XmlElement& child : state.children) {
        const auto column = child.name == ColumnElement ? ReadNumber(child, Position) : std::nullopt;
        const auto width = column ? ReadNumber(child, Width) : std::nullopt;
        if (width)
            columns.push_back({*column, *width});
    }
    return columns;
}

std::string PackColumns(const std::vector<SColumnInfo>& columns) {
    CBinaryMemoryStream stream;
    for (const SColumnInfo& info : columns) {
        stream.Write(info.column);
        stream.Write(info.width);
    }
    return std::string(stream.Bytes());
}

std::optional<std::vector<SColumnInfo>> UnpackColumns(std::string_view record) {
    if (record.size() % BytesOfColumn != 0)
        return std::nullopt;
    CBinaryMemoryStream stream(record);
    std::vector<SColumnInfo> columns(record.size() / BytesOfColumn);
    for (SColumnInfo& info : columns) {
        stream.Read(info.column);
        stream.Read(info.width);
    }
    return columns;
}

} // namespace korvel::internal

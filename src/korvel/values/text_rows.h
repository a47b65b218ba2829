#pragma once

#include <span>

namespace korvel::internal {

/// A text in each language that has one; Hungarian has none.
struct TextRow {
    int id;
    const char* english;
    const char* german;
};

/// All rows, each at the index of its id.
std::span<const TextRow> TextRows();

} // namespace korvel::internal

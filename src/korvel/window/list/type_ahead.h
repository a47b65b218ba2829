#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace korvel::internal {

/// The letters that a user types to find a row. What follows within a second belongs to the same search; one
/// letter again and again goes on to the next row that begins with it.
///
///     TypeAhead typed;
///     typed.Type("s", 0ms);      // {"s", from the next row on}
///     typed.Type("A", 300ms);    // {"sa", from this row on}
///     typed.Type("b", 2s);       // {"b", from the next row on}
class TypeAhead {
public:
    struct Search {
        std::string beginning; // in small letters; empty: nothing to search for
        bool beginsAtNext = true;
    };

    /// Takes a whole character. Control characters, and a blank that begins a search, give an empty search.
    Search Type(const std::string& character, std::chrono::milliseconds now);
    /// Compares characters, whatever the case of letters.
    static bool BeginsWith(std::string_view text, const std::string& beginning);

private:
    std::string m_typed;
    std::chrono::milliseconds m_last{};
};

} // namespace korvel::internal

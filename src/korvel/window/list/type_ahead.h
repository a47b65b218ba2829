#pragma once

#include <algorithm>
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
    /// The row that a search finds among `count`, from `current` on (-1: none is) and round; -1 when there is
    /// none. Compares characters, whatever the case of letters. `textOf(row)` may be asked for any of them.
    template <class TextOf>
    static int Find(int count, int current, const Search& search, TextOf textOf) {
        const int first = std::max(0, current + (search.beginsAtNext ? 1 : 0));
        for (int step = 0; step < count && !search.beginning.empty(); ++step)
            if (const int row = (first + step) % count; BeginsWith(textOf(row), search.beginning))
                return row;
        return -1;
    }

private:
    static bool BeginsWith(std::string_view text, const std::string& beginning);

    std::string m_typed;
    std::chrono::milliseconds m_last{};
};

} // namespace korvel::internal

#include "korvel/platform/date_pattern.h"

#include <algorithm>
#include <array>

namespace korvel::internal {
namespace {

// One row a kind of field. Source of the letters: Unicode Technical Standard 35, part 4, date field symbols.
struct Field {
    std::string_view letters;
    char picture;
    std::size_t shortest;
    std::size_t longest;
};

constexpr std::array<Field, 9> Fields{{{"Ece", 'd', 3, 4},
                                       {"d", 'd', 1, 2},
                                       {"ML", 'M', 1, 4},
                                       {"yur", 'y', 4, 4},
                                       {"Hk", 'H', 1, 2},
                                       {"hK", 'h', 1, 2},
                                       {"m", 'm', 1, 2},
                                       {"s", 's', 1, 2},
                                       {"abB", 't', 2, 2}}};

bool IsLetter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

} // namespace

std::string PictureOfPattern(std::string_view pattern) {
    std::string picture;
    bool quoted = false;
    for (std::size_t i = 0; i < pattern.size();) {
        const char letter = pattern[i];
        const std::size_t run = std::min(pattern.find_first_not_of(letter, i), pattern.size()) - i;
        if (quoted || !IsLetter(letter)) {
            quoted = quoted != (letter == '\'');
            picture.push_back(letter);
            ++i;
            continue;
        }
        i += run;
        const auto* field = std::find_if(Fields.begin(), Fields.end(), [&](const Field& row) {
            return row.letters.find(letter) != std::string_view::npos;
        });
        if (field != Fields.end())
            picture.append(std::clamp(run, field->shortest, field->longest), field->picture);
        else if (i < pattern.size() && pattern[i] == ' ')
            ++i;
    }
    return picture;
}

} // namespace korvel::internal

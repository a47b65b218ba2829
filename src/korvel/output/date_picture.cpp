#include "korvel/output/date_picture.h"

#include <algorithm>
#include <array>
#include <span>

namespace korvel::internal {

namespace {

// What a run of one letter becomes, by its length from 1 to 4; longer runs become nothing.
struct PictureRun {
    char letter;
    std::array<const char*, 4> formats;
};

constexpr PictureRun DateRuns[] = {
    {'d', {"%#d", "%d", "%a", "%A"}},
    {'m', {"%#m", "%m", "%b", "%B"}},
    {'y', {"%y", "%y", "", "%Y"}},
};

constexpr PictureRun TimeRuns[] = {
    {'H', {"%#H", "%H", "", ""}}, {'h', {"%#I", "%I", "", ""}}, {'m', {"%#M", "%M", "", ""}},
    {'s', {"%#S", "%S", "", ""}}, {'t', {"%p", "%p", "", ""}},  {'x', {"%p", "%p", "", ""}},
};

// ASCII alone: a letter of the code page is text.
char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

char DateLetter(char c) {
    return Lower(c);
}
char TimeLetter(char c) {
    return c == 'H' ? c : Lower(c);
}

enum class Quotes { Text, Quote };

std::string Convert(std::string_view picture, std::span<const PictureRun> runs, char (*letterOf)(char),
                    Quotes quotes) {
    std::string format;
    for (std::size_t at = 0; at < picture.size();) {
        const char letter = letterOf(picture[at]);
        if (quotes == Quotes::Quote && letter == '\'') {
            const std::size_t end = std::min(picture.find('\'', at + 1), picture.size());
            format += picture.substr(at + 1, end - at - 1);
            at = end + 1;
            continue;
        }
        const auto run =
            std::find_if(runs.begin(), runs.end(), [&](const PictureRun& r) { return r.letter == letter; });
        if (run == runs.end()) {
            format += picture[at++];
            continue;
        }
        std::size_t length = 0;
        for (; at < picture.size() && letterOf(picture[at]) == letter; ++at)
            ++length;
        if (length <= run->formats.size())
            format += run->formats[length - 1];
    }
    return format;
}

} // namespace

std::string DatePictureToFormat(std::string_view picture) {
    return Convert(picture, DateRuns, DateLetter, Quotes::Text);
}

std::string TimePictureToFormat(std::string_view picture) {
    return Convert(picture, TimeRuns, TimeLetter, Quotes::Quote);
}

} // namespace korvel::internal

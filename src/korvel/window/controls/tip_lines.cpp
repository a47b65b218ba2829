#include "korvel/window/controls/tip_lines.h"

#include "korvel/window/core/display.h"

#include <algorithm>
#include <string_view>

namespace korvel::internal {
namespace {

// The part of `text` before `separator`, which goes too.
std::string_view TakeUntil(std::string_view& text, char separator) {
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return taken;
}

void AddWrapped(std::string_view paragraph, int width, std::vector<CString>& lines) {
    lines.emplace_back();
    const int blank = Display().TextWidth(" ");
    int filled = 0;
    while (!paragraph.empty()) {
        const CString word(TakeUntil(paragraph, ' '));
        const int wordWidth = Display().TextWidth(word);
        if (lines.back().empty()) {
            filled = wordWidth;
            lines.back() = word;
        } else if (filled + blank + wordWidth <= width) {
            filled += blank + wordWidth;
            lines.back() += ' ' + word;
        } else {
            filled = wordWidth;
            lines.push_back(word);
        }
    }
}

} // namespace

std::vector<CString> TipLines(const CString& text, int width) {
    if (width < 0)
        return {text};
    std::vector<CString> lines;
    std::string_view rest = text;
    do {
        std::string_view paragraph = TakeUntil(rest, '\n');
        if (paragraph.ends_with('\r'))
            paragraph.remove_suffix(1);
        AddWrapped(paragraph, width, lines);
    } while (!rest.empty());
    return lines;
}

} // namespace korvel::internal

#include "editors/path_name.h"

namespace korvel {

std::list<std::string> SplitPathName(std::string_view path, char separator) {
    std::list<std::string> segments;
    std::string segment;
    for (const char character : path) {
        const bool separates = character == separator && (segment.empty() || segment.back() != '\\');
        if (!separates) {
            segment += character;
        } else if (!segment.empty()) {
            segments.push_back(std::move(segment));
            segment.clear();
        }
    }
    if (!segment.empty()) {
        segments.push_back(std::move(segment));
    }
    return segments;
}

std::string UniqueName(const std::string& base, const std::function<bool(const std::string&)>& isTaken) {
    std::string candidate = base;
    for (int counter = 1; isTaken(candidate); ++counter) {
        candidate = base + std::to_string(counter);
    }
    return candidate;
}

} // namespace korvel

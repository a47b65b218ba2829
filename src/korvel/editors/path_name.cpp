#include "korvel/editors/path_name.h"

namespace korvel::internal {

std::string_view TakeSegment(std::string_view& path, char separator) {
    while (!path.empty() && path.front() == separator)
        path.remove_prefix(1);
    std::size_t end = 0;
    while (end < path.size() && (path[end] != separator || path[end - 1] == '\\'))
        ++end;
    const std::string_view segment = path.substr(0, end);
    path.remove_prefix(end);
    return segment;
}

std::list<std::string> SplitPathName(std::string_view path, char separator) {
    std::list<std::string> segments;
    for (auto segment = TakeSegment(path, separator); !segment.empty();
         segment = TakeSegment(path, separator))
        segments.emplace_back(segment);
    return segments;
}

std::string UniqueName(const std::string& base, const std::function<bool(const std::string&)>& isTaken) {
    std::string candidate = base;
    for (int counter = 1; isTaken(candidate); ++counter)
        candidate = base + std::to_string(counter);
    return candidate;
}

} // namespace korvel::internal

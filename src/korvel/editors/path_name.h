#pragma once

#include <functional>
#include <list>
#include <string>
#include <string_view>

namespace korvel::internal {

/// The segments of a path-shaped name.
///
///     SplitPathName("a/b//c", '/');   // "a", "b", "c"
///     SplitPathName("a\\/b", '/');    // "a\\/b": a separator after a backslash is text
///
/// Leading and repeated separators make no empty segments; an empty path has none.
std::list<std::string> SplitPathName(std::string_view path, char separator);

/// Takes the first segment off a path; empty when there is none.
std::string_view TakeSegment(std::string_view& path, char separator);

/// `base`, or `base` with the first number from 1 up with which it is not taken.
std::string UniqueName(const std::string& base, const std::function<bool(const std::string&)>& isTaken);

} // namespace korvel::internal

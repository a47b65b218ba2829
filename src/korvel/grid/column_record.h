#pragma once

#include "korvel/grid/grid_layout.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {
class CXmlNodeBase;
struct XmlElement;
} // namespace korvel

/// The widths of columns as they are kept outside of a grid.
namespace korvel::internal {

/// Those of the first `count` columns, of each the first one with a width from 0 to 32,767.
std::vector<SColumnInfo> UsableColumns(const std::vector<SColumnInfo>& columns, std::size_t count);

/// In an element, which must be open, as elements of its own:
///
///     <Column POS="0" WIDTH="120">
///     </Column>
void WriteColumns(const std::vector<SColumnInfo>& columns, const CXmlNodeBase& state);
/// What is no number is left out.
std::vector<SColumnInfo> ReadColumns(const XmlElement& state);

/// Eight bytes for each: its number and its width, the lowest byte first.
std::string PackColumns(const std::vector<SColumnInfo>& columns);
/// Nothing where the last one is cut off.
std::optional<std::vector<SColumnInfo>> UnpackColumns(std::string_view record);

} // namespace korvel::internal

#pragma once

#include "korvel/window/base/image_list.h"

#include <optional>

namespace korvel::internal {

/// The picture in a file of a format that Qt reads (PNG, JPEG, BMP), made smaller where it does not fit into
/// `room`. Nothing for a file that is missing or broken.
std::optional<Image> ReadPicture(const CString& path, CSize room);

} // namespace korvel::internal

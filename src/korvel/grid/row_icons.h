#pragma once

#include "korvel/window/base/image_list.h"

namespace korvel::internal {

/// The places in RowIcons.
enum RowIcon : int { RowIconPlain = 0, RowIconGroup = 1, RowIconMember = 2 };

/// The icons of tree grids that have no image list of their own: 16 x 16 pixels, made for this library, in
/// mid tones that stand out on light and on dark ground.
const CImageList& RowIcons();

} // namespace korvel::internal

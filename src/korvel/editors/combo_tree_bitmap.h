#pragma once

#include "korvel/window/base/image_list.h"

namespace korvel::internal {

/// The cells of bitmap 15002: what is drawn before the label of an item in a tree.
enum class ComboTreeCell { ClosedGroup, OpenGroup, Entry };

const Image& ComboTreeBitmap(ComboTreeCell cell);

} // namespace korvel::internal

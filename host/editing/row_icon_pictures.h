#pragma once

#include "korvel/window/base/image_list.h"

namespace korvel::inspector {

/// The pictures of the rows' icons, 16 by 16, at the places that RowIcon names. They were drawn for this
/// program, in few colors: one for each field, as red for alignments and green for the ground. Groups are
/// drawn with filled shapes, values mostly with gray lines.
const CImageList& RowIconPictures();

} // namespace korvel::inspector

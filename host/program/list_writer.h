#pragma once

#include "korvel/values/member_dispatch.h"

#include <functional>
#include <ostream>

namespace korvel::inspector {

/// Writes all members below an object in UTF-8, one a line: two blanks a level, name, tab, and the value as
/// the user would read it, flags as true or false. Ends of line and tabs inside a text become blanks.
///
///     Units	Units
///       Metric	Metric
///         linearUnit	meter
///
/// Objects may do anything: one that holds itself is not entered again, and a member that vanishes between
/// two calls has an empty value. `onWritten` (may be empty) is called with each object below `root` once all
/// below it is written: the list asks it for nothing any more.
void WriteList(IMemberDispatch& root, std::ostream& out,
               const std::function<void(IMemberDispatch&)>& onWritten = {});

} // namespace korvel::inspector

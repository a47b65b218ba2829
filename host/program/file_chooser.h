#pragma once

#include "korvel/values/file_value.h"

namespace korvel::inspector {

/// What the file names of a document travel with: the user may choose a file, or type a path into its cell.
IFileValue& FileChooser();

} // namespace korvel::inspector

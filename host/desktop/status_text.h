#pragma once

#include "editing/grid_pane.h"

#include <QString>

namespace korvel::inspector {

/// What the status line says of a document: how many rows it has, and what the user should know beside it.
///
///     StatusText(document, pane.Count())   // "3 objects, 5 members"
QString StatusText(OpenDocument& document, const GridPane::Counts& counts);

} // namespace korvel::inspector

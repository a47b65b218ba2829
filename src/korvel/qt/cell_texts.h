#pragma once

#include "korvel/window/base/list_view.h"

#include <QString>

namespace korvel::internal {

class AskedList;

/// The text of a cell or title; empty for no such cell.
QString TextAt(const AskedList& list, view::CellPlace place);

/// What a screen reader says after the text of a cell: of the first one what the rest of its row shows, and how
/// deep it lies in a tree; of another one the name of its row. Of a title, nothing. Qt 6.4 passes on neither
/// the values of cells nor their depth, so that they are said here.
QString DescriptionOf(const AskedList& list, const view::CellView& cell);

} // namespace korvel::internal

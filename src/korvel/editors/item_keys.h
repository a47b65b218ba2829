#pragma once

#include "korvel/editors/item_cell.h"
#include "korvel/window/core/window.h"

namespace korvel::internal {

/// What a key means on an item window with the focus.
enum class ItemKey { None, Edit, Leave, Type };

ItemKey ItemKeyOf(const MSG& message, ItemEditor editor);

/// What a key means while the list is dropped, as in a grid. Return and Escape act when they go down: letting
/// go the Return that has opened the list must not close it.
enum class ItemListKey { PassOn, Ignore, Take, Cancel, Leave };

ItemListKey ItemListKeyOf(const MSG& message);

} // namespace korvel::internal

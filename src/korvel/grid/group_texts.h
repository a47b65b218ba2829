#pragma once

#include "korvel/grid/item_info.h"
#include "korvel/grid/row_layout.h"
#include "korvel/values/member_dispatch.h"
#include "korvel/window/base/loss_watch.h"

namespace korvel::internal {

/// Whether the presentation of an object shows texts in the cells of its row.
bool ShowsTexts(const IMemberDispatch& disp);

/// Fills the cells of an object's row where its presentation shows texts. Stops when `rows` were lost.
void ShowTexts(const IMemberDispatch& disp, const RowLayout& layout, const LossWatch& rows, CItemInfo& info);

} // namespace korvel::internal

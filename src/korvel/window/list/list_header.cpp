#include "korvel/window/list/list_header.h"

#include "korvel/window/core/window.h"
#include "korvel/window/list/list_geometry.h"

#include <algorithm>

namespace korvel::internal {

void CreateHeader(ListState& list) {
    list.header = CreateWindowExA(0, "SysHeader32", "", WS_CHILD, {}, list.Handle(), 0);
}

void PlaceHeader(ListState& list, int clientWidth) {
    const int width = std::max(list.columns.TotalWidth(), list.scrollX + clientWidth);
    const CRect place{-list.scrollX, 0, -list.scrollX + width, HeaderHeight(list)};
    if (place == list.headerPlace)
        return;
    list.headerPlace = place;
    MoveWindow(list.header, place);
    ShowWindow(list.header, place.Height() > 0 ? SW_SHOWNA : SW_HIDE);
}

} // namespace korvel::internal

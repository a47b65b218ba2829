#include "korvel/qt/asked_list.h"

#include "korvel/window/display/window_view.h"

namespace korvel::internal {

view::ListView AskedList::List() const {
    view::ListView list;
    Ask([&] { list = view::List(m_window); });
    return list;
}

std::optional<view::CellView> AskedList::Cell(view::CellPlace place) const {
    std::optional<view::CellView> cell;
    Ask([&] { cell = view::Cell(m_window, place); });
    return cell;
}

} // namespace korvel::internal

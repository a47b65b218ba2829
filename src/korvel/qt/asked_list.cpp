#include "korvel/qt/asked_list.h"

#include "korvel/window/display/window_view.h"

#include <QScopedValueRollback>

namespace korvel::internal {

void AskedList::Ask(const std::function<void()>& question) const {
    const QScopedValueRollback open(m_openQuestions, m_openQuestions + 1);
    m_ask(question);
}

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

#pragma once

#include "korvel/window/list/list_state.h"

#include <optional>
#include <type_traits>

/// Calls on the state of a list whose handle a CListCtrl holds, on the list's own thread.
namespace korvel::internal {

template <class Call>
using ResultOnList = std::invoke_result_t<Call, ListState&>;

/// Runs `call(ListState&)` on the list's thread; not for a window that is gone or no list.
template <class Call>
requires std::is_void_v<ResultOnList<Call>>
void OnList(HWND window, Call call) {
    OnOwner(
        window,
        [&](WindowRecord& record) {
            if (auto* list = dynamic_cast<ListState*>(record.control.get()))
                call(*list);
        });
}

/// The same with a result: `otherwise` for a window that is gone or no list.
template <class Call, class Result = ResultOnList<Call>>
requires(!std::is_void_v<Result>) Result OnList(HWND window, Call call, Result otherwise = Result()) {
    const auto answer = OnOwner(window, [&](WindowRecord& record) -> std::optional<Result> {
        auto* list = dynamic_cast<ListState*>(record.control.get());
        return list ? std::optional<Result>(call(*list)) : std::nullopt;
    });
    return answer ? *answer : otherwise;
}

/// The same for one row; `otherwise` also where there is no such row.
template <class Call, class Result = ResultOnList<Call>>
Result OnRow(HWND window, int row, Call call, Result otherwise = Result()) {
    return OnList(
        window, [&](ListState& list) { return list.rows.Has(row) ? call(list) : otherwise; }, otherwise);
}

/// False, and no call, unless all rows from `first` to before `last` exist and there is one.
template <class Call>
bool OnRows(HWND window, int first, int last, Call call) {
    return OnList(
        window,
        [&](ListState& list) {
            if (first < 0 || first >= last || last > list.rows.Size())
                return false;
            call(list);
            return true;
        });
}

template <class Call, class Result = ResultOnList<Call>>
Result OnColumn(HWND window, int column, Call call) {
    return OnList(
        window, [&](ListState& list) { return list.columns.Has(column) ? call(list) : Result(); });
}

} // namespace korvel::internal

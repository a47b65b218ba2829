#include "korvel/events/event_rows.h"

#include "korvel/platform/first_failure.h"
#include "korvel/window/list/list_rows.h"
#include "korvel/window/list/on_list.h"

#include <unordered_set>

namespace korvel::internal {

namespace {

// What the rows that a list remembers by number show. The data differ from row to row.
struct Remembered {
    explicit Remembered(const ListState& list)
        : focus(DataOf(list, list.focusRow)), mark(DataOf(list, list.markRow)),
          top(list.topRow > 0 ? DataOf(list, list.topRow) : 0) {
        for (int row = -1; (row = list.rows.FindSelected(row + 1)) != NoRow;)
            selected.insert(list.rows.At(row).data);
    }

    static LPARAM DataOf(const ListState& list, int row) {
        return list.rows.Has(row) ? list.rows.At(row).data : 0;
    }

    // The list repairs a top row that is too low when redraw is on again.
    void PutBack(ListState& list) const {
        list.focusRow = list.markRow = NoRow;
        list.topRow = 0;
        for (int row = 0; row < list.rows.Size(); ++row) {
            const LPARAM shown = list.rows.At(row).data;
            if (!selected.empty() && selected.contains(shown))
                list.rows.Select(row, true);
            if (shown == focus)
                list.focusRow = row;
            if (shown == mark)
                list.markRow = row;
            if (shown == top)
                list.topRow = row;
        }
    }

    std::unordered_set<LPARAM> selected;
    LPARAM focus;
    LPARAM mark;
    LPARAM top; // 0: the list is not scrolled, and new rows are seen
};

} // namespace

void ReplaceRows(CListCtrl& control, const std::vector<LPARAM>& data,
                 const std::function<int(LPARAM data)>& imageOf) {
    OnList(
        control.m_hWnd,
        [&](ListState& list) {
            const Remembered remembered(list);
            const int former = list.rows.Size();
            const auto count = static_cast<int>(data.size());
            InsertRowsQuietly(
                list, 0, count,
                [&](RowRecord& row, int index) {
                    row.data = data[static_cast<std::size_t>(index)];
                    row.image = imageOf(row.data);
                });
            FirstFailure failure;
            failure.Try([&] { DeleteRowsQuietly(list, count, count + former); });
            remembered.PutBack(list);
            failure.Rethrow();
        });
}

} // namespace korvel::internal

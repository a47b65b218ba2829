#include "korvel/window/list/model_rows.h"

#include "korvel/window/list/list_rows.h"
#include "korvel/window/list/on_list.h"

#include <algorithm>

namespace korvel::internal {

int InsertModelRows(HWND window, int row, const LPARAM* data, int count, int indent) {
    const auto make = [=](RowRecord& record, int index) {
        record.data = data[index];
        record.SetIndent(indent);
    };
    return OnList(
        window, [&](ListState& list) { return InsertRowsQuietly(list, row, std::max(count, 0), make); },
        NoRow);
}

bool DeleteModelRows(HWND window, int first, int last) {
    return OnRows(
        window, first, last, [&](ListState& list) { DeleteRowsQuietly(list, first, last); });
}

} // namespace korvel::internal

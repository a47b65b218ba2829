#include "korvel/events/event_export.h"

#include "korvel/events/event_columns.h"
#include "korvel/events/grid_events.h"
#include "korvel/platform/code_page.h"
#include "korvel/platform/one_line.h"
#include "korvel/platform/replace_file.h"

#include <utility>

namespace korvel {

using namespace internal;

namespace {

constexpr int NoRow = -1;

void AppendMessage(CString& text, const CEventMessage& message) {
    bool isFirst = true;
    for (const EventColumn& column : EventColumns) {
        if (!std::exchange(isFirst, false))
            text += '\t';
        platform::AppendTableCell(text, EventCellText(message, column));
    }
}

int NextRow(const CGridEvents& list, EventRows rows, int row) {
    if (rows == EventRows::Selected)
        return list.GetNextItem(row, LVNI_SELECTED);
    return row + 1 < list.GetItemCount() ? row + 1 : NoRow;
}

} // namespace

CString EventsAsText(const CGridEvents& list, EventRows rows) {
    CString text;
    bool isFirst = true;
    for (int row = NoRow; (row = NextRow(list, rows, row)) != NoRow;) {
        const CEventMessage* message = list.MessageAt(row);
        if (!message)
            continue;
        if (!std::exchange(isFirst, false))
            text += '\n';
        AppendMessage(text, *message);
    }
    return text;
}

std::optional<ClipboardAnswer> CopyEvents(const CGridEvents& list, EventRows rows) {
    const CString text = EventsAsText(list, rows);
    return text.empty() ? std::nullopt : std::optional(Display().SetClipboardText(text));
}

void SaveEvents(const CGridEvents& list, const std::filesystem::path& path) {
    CString text = EventsAsText(list, EventRows::Shown);
    if (!text.empty())
        text += '\n';
    platform::ReplaceFile(path, platform::ToUtf8(text));
}

} // namespace korvel

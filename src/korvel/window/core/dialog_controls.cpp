#include "korvel/window/core/dialog_controls.h"

#include "korvel/window/core/window.h"
#include "korvel/window/core/window_record.h"
#include "korvel/window/core/window_tree.h"

#include <algorithm>

namespace korvel {

using namespace internal;

namespace {

struct DialogControl {
    HWND window;
    bool isTabStop;
};

void CollectControls(const WindowRecord& record, bool reachable, std::vector<DialogControl>& controls) {
    for (const HWND child : record.children) {
        const RecordRef childRecord = Find(child);
        if (!childRecord)
            continue;
        const bool reaches = reachable && childRecord->IsShown() && childRecord->IsSwitchedOn();
        controls.push_back({child, reaches && (childRecord->style & WS_TABSTOP) != 0});
        if (childRecord->exStyle & WS_EX_CONTROLPARENT)
            CollectControls(*childRecord, reaches, controls);
    }
}

// What an arrow key may go to: labels and frames have nothing to do with it.
bool TakesGroupFocus(HWND window) {
    const RecordRef record = Find(window);
    return record && record->IsShown() && record->IsSwitchedOn() && !(DialogCodeOf(window) & DLGC_STATIC);
}

bool BeginsGroup(HWND window) {
    const RecordRef record = Find(window);
    return record && (record->style & WS_GROUP);
}

enum class AtEnd { Stop, GoRound };

HWND FindTabStop(const WindowRecord& parent, HWND from, bool previous, AtEnd atEnd) {
    std::vector<DialogControl> controls;
    CollectControls(parent, true, controls);
    const int count = static_cast<int>(controls.size());
    int place = count - 1;
    // The innermost control around `from`: its inside is no part of the round.
    while (place >= 0 && !IsWithin(controls[place].window, from))
        --place;
    if (place < 0 && previous)
        place = count;
    for (int step = 0; step < count; ++step) {
        place += previous ? -1 : 1;
        if (atEnd == AtEnd::Stop && (place < 0 || place >= count))
            return nullptr;
        place = (place + count) % count;
        if (controls[place].isTabStop)
            return controls[place].window;
    }
    return nullptr;
}

} // namespace

HWND GetNextDlgTabItem(HWND parent, HWND from, bool previous) {
    return OnOwner(
        parent, [&](WindowRecord& record) { return FindTabStop(record, from, previous, AtEnd::GoRound); });
}

HWND GetNextDlgGroupItem(HWND parent, HWND from, bool previous) {
    return OnOwner(
        parent,
        [&](WindowRecord& record) -> HWND {
            const RecordRef control = Find(from);
            const RecordRef around = control && IsWithin(record.handle, control->parent)
                                         ? Find(control->parent)
                                         : RecordRef(&record);
            if (around->children.empty())
                return nullptr;
            const bool isInside = control && around->handle == control->parent;
            const HWND start = isInside ? from : around->children.front();
            const std::vector<HWND> group = GroupAround(*around, start);
            const std::size_t step = previous ? group.size() - 1 : 1;
            auto place = static_cast<std::size_t>(std::ranges::find(group, start) - group.begin());
            for (std::size_t passed = 0; passed < group.size(); ++passed) {
                place = (place + step) % group.size();
                if (TakesGroupFocus(group[place]))
                    return group[place];
            }
            return from;
        });
}

LRESULT internal::DialogCodeOf(HWND control) {
    return SendMessageA(control, WM_GETDLGCODE, 0, 0);
}

std::vector<HWND> internal::GroupAround(const WindowRecord& parent, HWND child) {
    const auto& children = parent.children;
    const auto self = std::ranges::find(children, child);
    if (self == children.end())
        return {};
    auto first = self;
    while (first != children.begin() && !BeginsGroup(*first))
        --first;
    return {first, std::find_if(self + 1, children.end(), BeginsGroup)};
}

HWND internal::NextTabStop(HWND parent, HWND from, bool previous) {
    return OnOwner(
        parent, [&](WindowRecord& record) { return FindTabStop(record, from, previous, AtEnd::Stop); });
}

} // namespace korvel

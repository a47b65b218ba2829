#include "korvel/window/core/window_tree.h"

#include "korvel/window/core/window.h"
#include "korvel/window/core/window_changes.h"
#include "korvel/window/core/window_record.h"

#include <algorithm>

namespace korvel {

using namespace internal;

namespace {

// Through parents and owners: what dies with `above` in the end.
bool DependsOn(HWND above, HWND window) {
    RecordRef level = Find(window);
    while (level && level->handle != above)
        level = Find(level->ParentOrOwner());
    return level != nullptr;
}

// Owners and owned windows are top-level ones: a parent takes the place of an owner.
void Adopt(WindowRecord& record, HWND parent) {
    if (const RecordRef former = Find(record.parent))
        std::erase(former->children, record.handle);
    if (const RecordRef owner = Find(record.owner); owner && parent) {
        std::erase(owner->owned, record.handle);
        record.owner = nullptr;
    }
    record.parent = parent;
    record.style = parent ? record.style | WS_CHILD : record.style & ~WS_CHILD;
    if (const RecordRef next = Find(parent))
        next->children.push_back(record.handle);
    TellDisplay(record, Aspect::Style | Aspect::Rectangle);
}

} // namespace

HWND GetParent(HWND window) {
    return OnOwner(
        window, [](WindowRecord& record) { return record.ParentOrOwner(); });
}

HWND GetOwner(HWND window) {
    return OnOwner(
        window, [](WindowRecord& record) { return record.owner; });
}

HWND GetTopLevelParent(HWND window) {
    return OnOwner(
        window,
        [](WindowRecord& record) {
            HWND top = record.handle;
            for (RecordRef level = Find(top); level; level = Find(level->ParentOrOwner()))
                top = level->handle;
            return top;
        });
}

HWND SetParent(HWND window, HWND parent) {
    return OnOwner(
        window,
        [&](WindowRecord& record) -> HWND {
            const RecordRef next = Find(parent);
            if (parent && (!next || next->destroying || DependsOn(window, parent)))
                return nullptr;
            const HWND former = record.parent;
            Adopt(record, parent);
            return former;
        });
}

bool IsChild(HWND parent, HWND window) {
    return OnOwner(
        window, [&](WindowRecord& record) { return record.handle != parent && IsWithin(parent, window); });
}

HWND GetDlgItem(HWND parent, int id) {
    return OnOwner(
        parent,
        [&](WindowRecord& record) -> HWND {
            const auto found = std::find_if(
                record.children.begin(), record.children.end(),
                [&](HWND child) {
                    const RecordRef childRecord = Find(child);
                    return childRecord && childRecord->id == id;
                });
            return found == record.children.end() ? nullptr : *found;
        });
}

int GetDlgCtrlID(HWND window) {
    return OnOwner(
        window, [](WindowRecord& record) { return record.id; });
}

HWND GetFirstChild(HWND window) {
    return OnOwner(
        window,
        [](WindowRecord& record) -> HWND {
            return record.children.empty() ? nullptr : record.children.front();
        });
}

HWND GetNextSibling(HWND window) {
    return OnOwner(
        window,
        [&](WindowRecord& record) -> HWND {
            const RecordRef parent = Find(record.parent);
            if (!parent)
                return nullptr;
            auto position = std::find(parent->children.begin(), parent->children.end(), window);
            return position == parent->children.end() || ++position == parent->children.end() ? nullptr
                                                                                              : *position;
        });
}

HWND GetWindow(HWND window, UINT command) {
    return command == GW_CHILD      ? GetFirstChild(window)
           : command == GW_HWNDNEXT ? GetNextSibling(window)
           : command == GW_OWNER    ? GetOwner(window)
                                    : nullptr;
}

namespace internal {

HWND RootOf(HWND window) {
    for (RecordRef record = Find(window); record; record = Find(record->parent))
        window = record->handle;
    return window;
}

bool IsWithin(HWND ancestor, HWND window) {
    RecordRef level = Find(window);
    while (level && level->handle != ancestor)
        level = Find(level->parent);
    return level != nullptr;
}

} // namespace internal
} // namespace korvel

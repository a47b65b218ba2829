#include "korvel/platform/first_failure.h"
#include "korvel/window/core/capture.h"
#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/focus.h"
#include "korvel/window/core/forget_window.h"
#include "korvel/window/core/own_windows.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_table.h"

#include <algorithm>

namespace korvel {

using namespace internal;

namespace {

void CollectOwned(const WindowRecord& record, std::vector<HWND>& owned) {
    owned.insert(owned.end(), record.owned.begin(), record.owned.end());
    for (const HWND child : record.children)
        if (const RecordRef childRecord = Find(child))
            CollectOwned(*childRecord, owned);
}

// A window dies visibly for its focus and its capture only: what an open edit does when it loses the focus
// does not depend on how its window goes away.
void Withdraw(WindowRecord& record) {
    TakeFocusAway(record, record.parent, FocusCause::Hidden);
    TakeCaptureAway(record);
    if (record.parent)
        ShowWindow(record.handle, SW_HIDE);
}

void Announce(WindowRecord& record, FirstFailure& failure) {
    record.destroying = record.announced = true;
    failure.Try([&] { SendMessageA(record.handle, WM_DESTROY, 0, 0); });
    const std::vector<HWND> children = record.children;
    for (const HWND child : children)
        if (const RecordRef childRecord = Find(child); childRecord && !childRecord->announced)
            Announce(*childRecord, failure);
}

void Unlink(const WindowRecord& record) {
    if (const RecordRef parent = Find(record.parent))
        std::erase(parent->children, record.handle);
    if (const RecordRef owner = Find(record.owner))
        std::erase(owner->owned, record.handle);
    for (const HWND owned : record.owned)
        if (const RecordRef ownedRecord = Find(owned))
            ownedRecord->owner = nullptr;
}

void End(const RecordRef& record, FirstFailure& failure) {
    while (!record->children.empty()) {
        const HWND child = record->children.front();
        if (const RecordRef childRecord = Find(child))
            End(childRecord, failure);
        std::erase(record->children, child);
    }
    failure.Try([&] { SendMessageA(record->handle, WM_NCDESTROY, 0, 0); });
    if (!Find(record->handle))
        return; // a handler of its own ended it meanwhile
    ForgetWindow(*record);
    Unlink(*record);
    if (IsOnDisplay(*record))
        Display().Destroyed(record->handle);
    RemoveOwnWindow(record->handle);
}

bool Destroy(WindowRecord& record) {
    if (record.destroying)
        return false;
    record.destroying = true;
    const RecordRef keep = Find(record.handle);
    FirstFailure failure;
    failure.Try([&] { Withdraw(record); });
    std::vector<HWND> owned;
    CollectOwned(record, owned);
    for (const HWND window : owned)
        failure.Try([&] { DestroyWindow(window); });
    if (IsWindow(record.handle) && !record.announced)
        Announce(record, failure);
    if (IsWindow(record.handle))
        End(keep, failure);
    failure.Rethrow();
    return true;
}

} // namespace

bool DestroyWindow(HWND window) {
    return OnOwner(window, Destroy);
}

bool IsWindow(HWND window) {
    return Find(window) || WindowTable::Instance().OwnerOf(window);
}

} // namespace korvel

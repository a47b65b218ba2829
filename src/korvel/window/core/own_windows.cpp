#include "korvel/window/core/own_windows.h"

#include "korvel/window/core/forget_window.h"
#include "korvel/window/core/thread_queue.h"

#include <algorithm>
#include <utility>

namespace korvel::internal {
namespace {

struct Records {
    std::vector<RecordRef> bySlot;
    std::uint64_t created = 0;
};

constinit thread_local Records* t_records = nullptr;

// Their objects are detached, no message is sent.
void EndOwnWindows() {
    for (const RecordRef& record : OwnWindows()) {
        ForgetWindow(*record);
        RemoveOwnWindow(record->handle);
    }
    t_ownRecords = nullptr;
    delete std::exchange(t_records, nullptr);
}

} // namespace

constinit thread_local const std::vector<RecordRef>* t_ownRecords = nullptr;

RecordRef AddOwnWindow() {
    const auto& queue = ThreadQueue::Current();
    if (!t_records) {
        queue->SetLastAction(EndOwnWindows);
        t_records = new Records;
        t_ownRecords = &t_records->bySlot;
    }
    const HWND window = WindowTable::Instance().Add(queue);
    const std::size_t slot = WindowTable::SlotOf(window);
    auto& bySlot = t_records->bySlot;
    bySlot.resize(std::max(bySlot.size(), slot + 1));
    bySlot[slot] = new WindowRecord(window, queue, ++t_records->created);
    return bySlot[slot];
}

std::vector<RecordRef> OwnWindows() {
    std::vector<RecordRef> records;
    if (t_records)
        std::copy_if(
            t_records->bySlot.begin(), t_records->bySlot.end(), std::back_inserter(records),
            [](const RecordRef& record) { return record != nullptr; });
    std::sort(records.begin(), records.end(), [](const RecordRef& left, const RecordRef& right) {
        return left->creationNumber < right->creationNumber;
    });
    return records;
}

void RemoveOwnWindow(HWND window) {
    const RecordRef record = Find(window);
    if (!record)
        return;
    t_records->bySlot[WindowTable::SlotOf(window)] = nullptr;
    WindowTable::Instance().Remove(window);
}

} // namespace korvel::internal

#pragma once

#include "window/window_record.h"

#include <cstdint>
#include <mutex>
#include <vector>

namespace korvel::internal {

/// All windows of the process by handle. A handle is the number of a slot and the slot's generation, so
/// that a handle whose slot serves another window is recognised.
class WindowTable {
public:
    static WindowTable& Instance();

    /// A record for a new window of the calling thread.
    RecordRef Add();
    RecordRef Find(HWND window);
    /// Ends the handle and releases whoever waits for the window.
    void Remove(HWND window);
    /// The windows of one thread, parents before their children.
    std::vector<RecordRef> OfThread(const ThreadQueue& queue);
    /// Forgets the windows of a thread that ends: their objects are detached, no message is sent.
    void EndThread(const ThreadQueue& queue);

private:
    struct Slot {
        std::uint32_t generation = 1;
        std::uint64_t order = 0; // counts creations
        RecordRef record;
    };

    RecordRef Take(HWND window);

    std::mutex m_mutex;
    std::vector<Slot> m_slots;
    std::vector<std::uint32_t> m_free;
    std::uint64_t m_created = 0;
};

} // namespace korvel::internal

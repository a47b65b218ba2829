#include "korvel/window/core/window_record.h"

#include "korvel/window/core/thread_queue.h"

namespace korvel::internal {

void CallOnOwner(HWND window, const std::function<void(WindowRecord&)>& call) {
    const auto owner = WindowTable::Instance().OwnerOf(window);
    if (!owner)
        return;
    owner->Send(window, [&] {
        if (const RecordRef record = Find(window)) // it may have ended between the look-up and the call
            call(*record);
    });
}

} // namespace korvel::internal

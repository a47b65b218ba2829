#pragma once

#include "korvel/qt/announcer.h"
#include "korvel/qt/focus_tracker.h"
#include "korvel/qt/frame_pace.h"
#include "korvel/qt/mouse.h"
#include "korvel/qt/peer_table.h"

namespace korvel::internal {

/// What the peers of one display share.
struct PeerContext {
    PeerTable peers;
    FocusTracker focus{peers};
    Announcer announcer;
    Mouse mouse;
    FramePace pace;
    bool isPainting = false;
};

} // namespace korvel::internal

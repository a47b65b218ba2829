#pragma once

#include "korvel/qt/focus_tracker.h"
#include "korvel/qt/mouse.h"
#include "korvel/qt/peer_table.h"

namespace korvel::qt {

/// What the peers of one display share.
struct Desktop {
    PeerTable peers;
    FocusTracker focus{peers};
    Mouse mouse;
    bool isPainting = false;
};

} // namespace korvel::qt

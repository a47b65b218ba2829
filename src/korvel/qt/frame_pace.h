#pragma once

#include "korvel/window/base/types.h"

#include <QElapsedTimer>
#include <QTimer>
#include <set>

namespace korvel::internal {

class PeerTable;

/// Lets the peers of one display follow what a worker may change faster than anybody sees it: all of them at
/// once, and no more often than a screen shows a picture.
///
///     pace.Ask(bar);    // ten thousand times a second
///     ...
///     peer.Follow();    // some sixty times, when the event loop is next idle
class FramePace {
public:
    explicit FramePace(const PeerTable& peers);
    void Ask(HWND window);

private:
    void FollowAll();

    const PeerTable& m_peers;
    std::set<HWND> m_asked;
    QTimer m_next;
    QElapsedTimer m_last; // since the peers have followed
};

} // namespace korvel::internal

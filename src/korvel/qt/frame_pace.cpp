#include "korvel/qt/frame_pace.h"

#include "korvel/qt/peer.h"
#include "korvel/qt/peer_table.h"

#include <algorithm>
#include <utility>

namespace korvel::internal {

namespace {

constexpr qint64 Frame = 16; // milliseconds, on a screen with 60 pictures a second

} // namespace

FramePace::FramePace(const PeerTable& peers) : m_peers(peers) {
    m_next.setSingleShot(true);
    m_next.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_next, &QTimer::timeout, [this] { FollowAll(); });
}

void FramePace::Ask(HWND window) {
    m_asked.insert(window);
    if (m_next.isActive())
        return;
    const qint64 wait = m_last.isValid() ? std::clamp<qint64>(Frame - m_last.elapsed(), 0, Frame) : 0;
    m_next.start(static_cast<int>(wait));
}

void FramePace::FollowAll() {
    m_last.start();
    for (const HWND window : std::exchange(m_asked, {}))
        if (Peer* peer = m_peers.Find(window))
            peer->Follow();
}

} // namespace korvel::internal

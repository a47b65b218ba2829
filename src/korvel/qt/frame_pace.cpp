#include "korvel/qt/frame_pace.h"

#include <algorithm>
#include <utility>

namespace korvel::internal {

namespace {

constexpr qint64 Frame = 16; // milliseconds, on a screen with 60 pictures a second

} // namespace

FramePace::FramePace() {
    m_next.setSingleShot(true);
    m_next.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_next, &QTimer::timeout, [this] { m_last.start(); });
}

void FramePace::AtNextFrame(const QObject& who, std::function<void()> act) {
    QObject::connect(&m_next, &QTimer::timeout, &who, std::move(act), Qt::SingleShotConnection);
    if (m_next.isActive())
        return;
    const qint64 wait = m_last.isValid() ? std::clamp<qint64>(Frame - m_last.elapsed(), 0, Frame) : 0;
    m_next.start(static_cast<int>(wait));
}

} // namespace korvel::internal

#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <functional>

namespace korvel::internal {

/// The pace at which a screen shows pictures, for what a worker may change faster than anybody sees it.
///
///     pace.AtNextFrame(*this, [this] { Follow(); });   // once, from the event loop
///
/// Whatever was asked for one frame is done in one go.
class FramePace {
public:
    FramePace();
    /// Dropped when `who` is gone by then. On the thread of the display.
    void AtNextFrame(const QObject& who, std::function<void()> act);

private:
    QTimer m_next;
    QElapsedTimer m_last; // since the last frame
};

} // namespace korvel::internal

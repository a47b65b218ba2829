#pragma once

#include "korvel/qt/peer_context.h"
#include "korvel/qt/qt_display.h"

#include <QElapsedTimer>
#include <QTimer>
#include <atomic>

namespace korvel::internal {

class EmbedFrame;

} // namespace korvel::internal

namespace korvel::qt {

struct QtDisplay::Parts {
    Parts();
    void WakeUp();
    /// The top-level widget that owns a box of this window; null for none.
    QWidget* TopOf(HWND window) const;

    internal::PeerContext context;
    internal::EmbedFrame* siteToShow = nullptr; // whose site window is being created
    QTimer alarm;
    QElapsedTimer clock;
    QObject receiver;                // of wake-up calls; pending ones are dropped with it
    std::atomic<bool> awake = false; // a wake-up call is pending
};

} // namespace korvel::qt

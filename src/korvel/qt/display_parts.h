#pragma once

#include "korvel/qt/desktop.h"
#include "korvel/qt/qt_display.h"

#include <QElapsedTimer>
#include <QTimer>
#include <atomic>

namespace korvel::qt {

class EmbedFrame;

struct QtDisplay::Parts {
    Parts();
    void WakeUp();
    /// The top-level widget that a box of this window stands before; null for none.
    QWidget* TopOf(HWND window) const;

    Desktop desktop;
    EmbedFrame* siteToShow = nullptr; // whose site is being made
    QTimer alarm;
    QElapsedTimer clock;
    QObject receiver;                // of wake-up calls; those that are on the way end with it
    std::atomic<bool> awake = false; // a wake-up call is on the way
};

} // namespace korvel::qt

#pragma once

#include "korvel/window/base/types.h"

#include <QPoint>
#include <QPointer>
#include <QWidget>
#include <optional>

class QEvent;

namespace korvel::internal {

/// Carries mouse events to the windows. Qt sends everything between a press and its release to the widget
/// that was pressed; the window model passes it on to the window that captured the mouse.
class Mouse {
public:
    Mouse() = default;
    ~Mouse();
    Mouse(const Mouse&) = delete;
    Mouse& operator=(const Mouse&) = delete;

    struct Target {
        HWND window;
        QWidget& content;       // whose coordinates are those of the client area
        bool showsWindowCursor; // false for a native control, which has a cursor of its own
    };

    /// True when the window consumed the event. Only for the mouse events of Qt.
    bool Deliver(const Target& target, const QEvent& event);
    /// Reports a press on what belongs to a window outside its client area; ignores other events.
    void ReportPressOutside(const Target& target, const QEvent& event);
    /// Where the pointer is; during an event, where the event happened.
    QPoint Position() const;
    /// Sets the pointer over the window to which a mouse event is being delivered; IDC_WAIT everywhere, until
    /// the next call.
    void SetCursor(int cursor);

private:
    void ShowWaiting(bool waiting);
    bool Send(const Target& target, UINT message, UINT flags, QPoint screen, int wheel);

    std::optional<QPoint> m_position;
    bool m_isWaiting = false;
    QPointer<QWidget> m_under;
};

} // namespace korvel::internal

#pragma once

#include "korvel/window/base/types.h"

#include <QPoint>
#include <QPointer>
#include <QWidget>
#include <optional>

class QEvent;

namespace korvel::qt {

class Peer;

/// Carries mouse events to the windows. Qt sends everything between a press and its release to the widget
/// that was pressed; memory passes it on to the window that captured the mouse.
class Mouse {
public:
    /// Answers true when the window consumed the event. Only for the mouse events of Qt.
    bool Deliver(Peer& peer, const QEvent& event);
    /// Tells a window of a press that met what belongs to it outside its client area; other events are
    /// passed over.
    void ReportPressOutside(Peer& peer, const QEvent& event);
    /// Where the pointer is; during an event, where the event happened.
    QPoint Position() const;
    /// The form of the pointer over the window that is being told of the mouse.
    void SetCursor(int cursor);

private:
    bool Send(Peer& peer, UINT message, UINT flags, QPoint screen, int wheel);

    std::optional<QPoint> m_position;
    QPointer<QWidget> m_under;
};

} // namespace korvel::qt

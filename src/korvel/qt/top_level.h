#pragma once

#include "korvel/window/core/display.h"

#include <QWidget>

namespace korvel::internal {

struct PeerContext;
class Peer;

/// What a window of the desktop has beyond a child window: title, size limits, activation, modality. A
/// pop-up tool window takes neither activation nor focus: it is no popup of Qt, which would take the keys
/// away from the window that it serves.
class TopLevel {
public:
    TopLevel(PeerContext& context, Peer& peer);

    static Qt::WindowFlags FlagsOf(HWND window);
    /// To be called before the widget follows.
    void Apply(Aspects aspects);
    /// An event of the outer widget. True: the widget does not see it.
    bool OnEvent(QEvent& event);
    /// The widget is about to be hidden: its owner becomes active where it was.
    void PassActivationOn();
    /// Shows it in front of its owner, which takes no input until this window is hidden.
    void ShowModal();

private:
    void PrepareToAppear();
    void ReportPlace();
    void FollowLimits();
    void FollowTopmost();
    bool IsClosed() const;

    PeerContext& m_context;
    Peer& m_peer;
};

} // namespace korvel::internal

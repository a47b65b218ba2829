#pragma once

#include "korvel/qt/painted_peer.h"

class QScrollBar;

namespace korvel::internal {

/// A plain window: a painted surface, with a bar at each edge where the window has one.
class ScrolledPeer final : public PaintedPeer {
public:
    ScrolledPeer(PeerContext& context, HWND window, Widgets widgets)
        : PaintedPeer(context, window, widgets) {}

    void Apply(Aspects aspects) override;

protected:
    bool OnEvent(QWidget& widget, QEvent& event) override;
    void Arrange() override;

private:
    void ArrangeBar(int bar);
    QScrollBar& MakeBar(int bar);
    void ShowState(int bar);
    void Report(int bar, UINT code);

    QScrollBar* m_bars[2] = {nullptr, nullptr}; // SB_HORZ, SB_VERT; made when the window first shows one
    bool m_isShowing = false;
};

} // namespace korvel::internal

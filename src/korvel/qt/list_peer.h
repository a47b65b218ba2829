#pragma once

#include "korvel/qt/painted_peer.h"

class QScrollBar;

namespace korvel::internal {

class ListSurface;

/// A list: a painted surface with scroll bars where the rows or columns do not fit.
class ListPeer final : public PaintedPeer {
public:
    ListPeer(PeerContext& context, HWND window, Widgets widgets);

    void Apply(Aspects aspects) override;
    void FollowRows(int first, int removed, int inserted) override;

protected:
    bool OnEvent(QWidget& widget, QEvent& event) override;
    void Arrange() override;

private:
    ListPeer(PeerContext& context, HWND window, Widgets widgets, QScrollBar& across, QScrollBar& down);
    ListSurface& Surface() const;
    void ArrangeSoon();
    void ArrangeIfPending();
    void ShowPosition();
    void Report();

    QScrollBar& m_across;
    QScrollBar& m_down;
    bool m_isShowing = false;
    bool m_isArrangePending = false;
};

} // namespace korvel::internal

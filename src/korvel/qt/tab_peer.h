#pragma once

#include "korvel/qt/peer.h"

class QFrame;
class QTabBar;

namespace korvel::internal {

/// A tab control: the tabs, and a frame round the room for the pages, which are windows of their own.
class TabPeer final : public Peer {
public:
    TabPeer(PeerContext& context, HWND window, QWidget* parent);
    void Apply(Aspects aspects) override;

protected:
    bool OnEvent(QWidget& widget, QEvent& event) override;

private:
    TabPeer(PeerContext& context, HWND window, QTabBar& bar);
    void ShowTabs();
    void Report(int tab);

    QTabBar& m_bar;
    QFrame& m_pane;
    bool m_isShowing = false;
};

} // namespace korvel::internal

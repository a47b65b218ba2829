#pragma once

#include "korvel/qt/peer.h"

class QProgressBar;

namespace korvel::internal {

class ProgressPeer final : public Peer {
public:
    ProgressPeer(PeerContext& context, HWND window, QWidget* parent);
    void Apply(Aspects aspects) override;
    void Follow() override;

private:
    ProgressPeer(PeerContext& context, HWND window, QProgressBar& bar);

    QProgressBar& m_bar;
};

} // namespace korvel::internal

#pragma once

#include "korvel/qt/peer.h"

class QSlider;

namespace korvel::internal {

/// A slider. Keys are the window's; the mouse is the widget's.
class SliderPeer final : public Peer {
public:
    SliderPeer(PeerContext& context, HWND window, QWidget* parent);
    void Apply(Aspects aspects) override;

protected:
    bool OnEvent(QWidget& widget, QEvent& event) override;

private:
    SliderPeer(PeerContext& context, HWND window, QSlider& slider);
    void ReportStep(int action);
    void ReportValue();

    QSlider& m_slider;
    bool m_isShowing = false;
    bool m_isPaging = false; // by a press beside the thumb that is held
};

} // namespace korvel::internal

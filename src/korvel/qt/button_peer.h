#pragma once

#include "korvel/qt/peer.h"

class QAbstractButton;

namespace korvel::qt {

/// A push button, check box or radio button. What a click does to the check is decided in memory.
class ButtonPeer final : public Peer {
public:
    ButtonPeer(Desktop& desktop, HWND window, QWidget* parent);
    void Apply(Aspects aspects) override;

private:
    ButtonPeer(Desktop& desktop, HWND window, QAbstractButton& button);
    void OnClicked();

    QAbstractButton& m_button;
};

/// A text or a titled frame: shown, and never in the way of the mouse.
class LabelPeer final : public Peer {
public:
    LabelPeer(Desktop& desktop, HWND window, QWidget* parent);
    void Apply(Aspects aspects) override;

private:
    LabelPeer(Desktop& desktop, HWND window, QWidget& label);
};

} // namespace korvel::qt

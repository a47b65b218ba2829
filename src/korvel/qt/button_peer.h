#pragma once

#include "korvel/qt/peer.h"
#include "korvel/window/base/control_view.h"

class QAbstractButton;

namespace korvel::internal {

/// A push button, check box or radio button. What a click does to the check is decided by the window model.
class ButtonPeer final : public Peer {
public:
    ButtonPeer(PeerContext& context, HWND window, QWidget* parent);
    void Apply(Aspects aspects) override;

private:
    ButtonPeer(PeerContext& context, HWND window, QAbstractButton& button);
    void ShowState(const view::ButtonView& state);
    void OnClicked();

    QAbstractButton& m_button;
};

/// A text or a titled frame: shown, and transparent for the mouse.
class LabelPeer final : public Peer {
public:
    LabelPeer(PeerContext& context, HWND window, QWidget* parent);
    void Apply(Aspects aspects) override;
    void Follow() override;
    void SetBuddy(QWidget& field) override;

private:
    LabelPeer(PeerContext& context, HWND window, QWidget& label);
};

} // namespace korvel::internal

#pragma once

#include "korvel/qt/peer.h"

namespace korvel::internal {

class ChoiceModel;
class ComboBoxWidget;

/// A combo box that drops its list, which is Qt's own popup. A text field in it is a child with a peer of its
/// own. Keys are the window's, those of the open list too.
class ComboBoxPeer final : public Peer {
public:
    ComboBoxPeer(PeerContext& context, HWND window, QWidget* parent);
    void Apply(Aspects aspects) override;

protected:
    bool OnEvent(QWidget& widget, QEvent& event) override;

private:
    ComboBoxPeer(PeerContext& context, HWND window, ComboBoxWidget& box);
    void FollowList();
    void ReportClosing();
    void HandOn(QKeyEvent& event);
    int Marked() const;

    ComboBoxWidget& m_box;
    ChoiceModel& m_entries;
    bool m_isListShown = false; // as far as the window knows
};

} // namespace korvel::internal

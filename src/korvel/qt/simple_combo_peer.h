#pragma once

#include "korvel/qt/peer.h"

class QListView;

namespace korvel::internal {

class ChoiceModel;

/// A combo box whose list is always open, below the text field, a child with a peer of its own.
class SimpleComboPeer final : public Peer {
public:
    SimpleComboPeer(PeerContext& context, HWND window, QWidget* parent);
    void Apply(Aspects aspects) override;

private:
    SimpleComboPeer(PeerContext& context, HWND window, QListView& list);

    QListView& m_list;
    ChoiceModel& m_entries;
};

} // namespace korvel::internal

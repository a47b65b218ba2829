#include "korvel/qt/simple_combo_peer.h"

#include "korvel/qt/choice_model.h"
#include "korvel/window/core/input.h"
#include "korvel/window/display/window_view.h"

#include <QListView>
#include <algorithm>

namespace korvel::internal {

namespace {

class ListBelowField final : public QListView {
public:
    using QListView::QListView;
    void LeaveRoom(int height) { setViewportMargins(0, height, 0, 0); }
};

int FieldBottom(HWND window) {
    int bottom = 0;
    for (const HWND child : view::Children(window))
        bottom = std::max(bottom, view::Rectangle(child).bottom);
    return bottom;
}

} // namespace

SimpleComboPeer::SimpleComboPeer(PeerContext& context, HWND window, QWidget* parent)
    : SimpleComboPeer(context, window, *new ListBelowField(parent)) {}

SimpleComboPeer::SimpleComboPeer(PeerContext& context, HWND window, QListView& list)
    : Peer(context, window, list, list), m_list(list), m_entries(*new ChoiceModel(window, &list)) {
    m_list.setModel(&m_entries);
    m_list.setUniformItemSizes(true);
    Watch(*m_list.viewport());
    connect(&m_list, &QListView::clicked, this, [this](const QModelIndex& index) {
        const Busy busy(*this);
        input::Value(Window(), index.row());
    });
}

void SimpleComboPeer::Apply(Aspects aspects) {
    Peer::Apply(aspects);
    if (aspects & Aspect::Entries)
        m_entries.Reset();
    if (!(aspects & (Aspect::Entries | Aspect::State)))
        return;
    static_cast<ListBelowField&>(m_list).LeaveRoom(FieldBottom(Window()));
    m_list.setCurrentIndex(m_entries.index(view::Choice(Window()).current));
}

} // namespace korvel::internal

#include "korvel/qt/make_peer.h"

#include "korvel/qt/button_peer.h"
#include "korvel/qt/combo_box_peer.h"
#include "korvel/qt/date_peer.h"
#include "korvel/qt/line_edit_peer.h"
#include "korvel/qt/list_peer.h"
#include "korvel/qt/peer_context.h"
#include "korvel/qt/progress_peer.h"
#include "korvel/qt/scrolled_peer.h"
#include "korvel/qt/simple_combo_peer.h"
#include "korvel/qt/slider_peer.h"
#include "korvel/qt/tab_peer.h"
#include "korvel/qt/text_edit_peer.h"
#include "korvel/window/base/control_messages.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

namespace korvel::internal {

namespace {

Peer& MakePainted(PeerContext& context, HWND window, QWidget* parent) {
    const PaintedPeer::Widgets widgets = PaintedPeer::MakeWidgets(context, window, parent);
    if (view::KindOf(window) == view::Kind::List)
        return *new ListPeer(context, window, widgets);
    return *new ScrolledPeer(context, window, widgets);
}

Peer& MakeButton(PeerContext& context, HWND window, QWidget* parent) {
    switch (view::Style(window) & BS_TYPEMASK) {
    case BS_OWNERDRAW:
        return MakePainted(context, window, parent);
    case BS_GROUPBOX:
        return *new LabelPeer(context, window, parent);
    default:
        return *new ButtonPeer(context, window, parent);
    }
}

Peer& MakeComboBox(PeerContext& context, HWND window, QWidget* parent) {
    if ((view::Style(window) & CBS_TYPEMASK) <= CBS_SIMPLE)
        return *new SimpleComboPeer(context, window, parent);
    return *new ComboBoxPeer(context, window, parent);
}

Peer& MakeChild(PeerContext& context, HWND window, QWidget* parent) {
    switch (view::KindOf(window)) {
    case view::Kind::Edit:
        if (view::Style(window) & ES_MULTILINE)
            return *new TextEditPeer(context, window, parent);
        return *new LineEditPeer(context, window, parent);
    case view::Kind::Button:
        return MakeButton(context, window, parent);
    case view::Kind::Static:
        return *new LabelPeer(context, window, parent);
    case view::Kind::ComboBox:
        return MakeComboBox(context, window, parent);
    case view::Kind::Progress:
        return *new ProgressPeer(context, window, parent);
    case view::Kind::Date:
        return *new DatePeer(context, window, parent);
    case view::Kind::Slider:
        return *new SliderPeer(context, window, parent);
    case view::Kind::Tabs:
        return *new TabPeer(context, window, parent);
    default:
        return MakePainted(context, window, parent);
    }
}

} // namespace

void MakePeer(PeerContext& context, HWND window) {
    const bool child = (view::Style(window) & WS_CHILD) != 0;
    const Peer* around = context.peers.Find(child ? GetParent(window) : GetOwner(window));
    if (child && !around)
        return;
    QWidget* parent = around ? &around->Content() : nullptr;
    Peer& peer = child ? MakeChild(context, window, parent) : MakePainted(context, window, parent);
    peer.Apply(EveryAspect);
}

} // namespace korvel::internal

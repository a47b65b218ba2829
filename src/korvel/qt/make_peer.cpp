#include "korvel/qt/make_peer.h"

#include "korvel/qt/button_peer.h"
#include "korvel/qt/desktop.h"
#include "korvel/qt/edit_peer.h"
#include "korvel/qt/list_peer.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

namespace korvel::qt {

namespace {

Peer& MakePainted(Desktop& desktop, HWND window, QWidget* parent) {
    const PaintedPeer::Widgets widgets = PaintedPeer::MakeWidgets(window, parent);
    if (view::KindOf(window) == view::Kind::List)
        return *new ListPeer(desktop, window, widgets);
    return *new PaintedPeer(desktop, window, widgets);
}

Peer& MakeButton(Desktop& desktop, HWND window, QWidget* parent) {
    switch (view::Style(window) & BS_TYPEMASK) {
    case BS_OWNERDRAW:
        return MakePainted(desktop, window, parent);
    case BS_GROUPBOX:
        return *new LabelPeer(desktop, window, parent);
    default:
        return *new ButtonPeer(desktop, window, parent);
    }
}

Peer& MakeChild(Desktop& desktop, HWND window, QWidget* parent) {
    switch (view::KindOf(window)) {
    case view::Kind::Edit:
        if (view::Style(window) & ES_MULTILINE)
            return *new TextPeer(desktop, window, parent);
        return *new EditPeer(desktop, window, parent);
    case view::Kind::Button:
        return MakeButton(desktop, window, parent);
    case view::Kind::Static:
        return *new LabelPeer(desktop, window, parent);
    default:
        return MakePainted(desktop, window, parent);
    }
}

} // namespace

void MakePeer(Desktop& desktop, HWND window) {
    const bool child = (view::Style(window) & WS_CHILD) != 0;
    const Peer* around = desktop.peers.Find(child ? GetParent(window) : GetOwner(window));
    if (child && !around)
        return;
    QWidget* parent = around ? &around->Content() : nullptr;
    Peer& peer = child ? MakeChild(desktop, window, parent) : MakePainted(desktop, window, parent);
    peer.Apply(EveryAspect);
}

} // namespace korvel::qt

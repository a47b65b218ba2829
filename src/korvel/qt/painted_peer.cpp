#include "korvel/qt/painted_peer.h"

#include "korvel/qt/convert.h"
#include "korvel/qt/list_surface.h"
#include "korvel/qt/painter_surface.h"
#include "korvel/qt/peer_context.h"
#include "korvel/qt/window_surface.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QScopedValueRollback>

namespace korvel::internal {

namespace {

// A caption has the bit of a border too, and brings the desktop's frame instead.
bool HasBorder(HWND window) {
    return (view::Style(window) & WS_CAPTION) == WS_BORDER || (view::ExStyle(window) & WS_EX_CLIENTEDGE);
}

} // namespace

PaintedPeer::Widgets PaintedPeer::MakeWidgets(PeerContext& context, HWND window, QWidget* parent) {
    const bool child = (view::Style(window) & WS_CHILD) != 0;
    const bool border = HasBorder(window);
    const bool list = view::KindOf(window) == view::Kind::List;
    const Asker ask = [&peers = context.peers, window](const std::function<void()>& question) {
        if (Peer* peer = peers.Find(window)) {
            const Busy busy(*peer);
            question();
        }
    };
    auto* outer = new WindowSurface(parent, child ? Qt::WindowFlags() : TopLevel::FlagsOf(window),
                                    border || list ? nullptr : window, ask);
    if (border)
        outer->setFrameStyle(child ? QFrame::StyledPanel | QFrame::Sunken : QFrame::Box | QFrame::Plain);
    if (list)
        return {*outer, *new ListSurface(outer, window, context.peers, ask)};
    return {*outer, border ? *new WindowSurface(outer, {}, window, ask) : *outer};
}

PaintedPeer::PaintedPeer(PeerContext& context, HWND window, Widgets widgets)
    : Peer(context, window, widgets.outer, widgets.content) {
    if (!(view::Style(window) & WS_CHILD))
        m_topLevel.emplace(context, *this);
    if (&Outer() != &Content())
        Watch(Outer());
}

void PaintedPeer::Apply(Aspects aspects) {
    if (m_topLevel && (view::Style(Window()) & WS_CHILD))
        m_topLevel.reset();
    if (m_topLevel)
        m_topLevel->Apply(aspects);
    Peer::Apply(aspects);
    if (aspects & (Aspect::Rectangle | Aspect::Style))
        Arrange();
    if (aspects & (Aspect::Enabled | Aspect::Text))
        Content().update();
    if (aspects & Aspect::Text)
        NameFieldsAfterTitle();
    Context().announcer.Note();
}

void PaintedPeer::NameFieldsAfterTitle() {
    for (const HWND child : view::Children(Window()))
        if (Peer* field = Context().peers.Find(child))
            field->FollowLabel();
}

// Whatever a window says of itself in another way than before, it has painted anew.
void PaintedPeer::Invalidate(const CRect& rect) {
    Peer::Invalidate(rect);
    Context().announcer.Note();
}

void PaintedPeer::Disappear() {
    if (m_topLevel)
        m_topLevel->PassActivationOn();
    Peer::Disappear();
}

void PaintedPeer::ShowModal() {
    if (m_topLevel)
        m_topLevel->ShowModal();
}

void PaintedPeer::Arrange() {
    if (&Content() != &Outer())
        Content().setGeometry(ToQRect(view::ClientRectangle(Window())));
}

// Lists ask for characters to find rows by, which are keys for their parent as well.
bool PaintedPeer::TakesComposedText() const {
    return view::KindOf(Window()) == view::Kind::Painted &&
           (SendMessageA(Window(), WM_GETDLGCODE, 0, 0) & DLGC_WANTCHARS);
}

bool PaintedPeer::TypeComposedText(QInputMethodEvent& composed) {
    if (composed.commitString().isEmpty())
        return true;
    QKeyEvent key(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, composed.commitString());
    Peer::OnEvent(Content(), key);
    return true;
}

bool PaintedPeer::OnEvent(QWidget& widget, QEvent& event) {
    if (m_topLevel && &widget == &Outer() && m_topLevel->OnEvent(event))
        return true;
    if (&widget != &Content())
        return false;
    if (event.type() == QEvent::InputMethodQuery)
        widget.setAttribute(Qt::WA_InputMethodEnabled, TakesComposedText());
    if (event.type() == QEvent::InputMethod)
        return TypeComposedText(static_cast<QInputMethodEvent&>(event));
    if (event.type() != QEvent::Paint)
        return Peer::OnEvent(widget, event);
    const QRegion& exposed = static_cast<QPaintEvent&>(event).region();
    const QScopedValueRollback painting(Context().isPainting, true);
    QPainter painter(&widget);
    PainterSurface surface(painter, exposed);
    input::Paint(Window(), surface, FromQRect(exposed.boundingRect()));
    return true;
}

} // namespace korvel::internal

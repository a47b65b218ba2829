#include "korvel/qt/list_peer.h"

#include "korvel/qt/convert.h"
#include "korvel/qt/list_surface.h"
#include "korvel/qt/peer_context.h"
#include "korvel/window/core/input.h"
#include "korvel/window/display/window_view.h"

#include <QFrame>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

namespace korvel::internal {

namespace {

constexpr int SidewaysStep = 20; // pixels of one press on an arrow of the bar

void ShowRange(QScrollBar& bar, int position, int extent, int page) {
    bar.setRange(0, std::max(0, extent - page));
    bar.setPageStep(std::max(1, page));
    bar.setValue(position);
}

} // namespace

// The bars come first: adding them is an event of the outer widget, which must not be watched yet.
ListPeer::ListPeer(PeerContext& context, HWND window, Widgets widgets)
    : ListPeer(context, window, widgets, *new QScrollBar(Qt::Horizontal, &widgets.outer),
               *new QScrollBar(Qt::Vertical, &widgets.outer)) {}

ListPeer::ListPeer(PeerContext& context, HWND window, Widgets widgets, QScrollBar& across, QScrollBar& down)
    : PaintedPeer(context, window, widgets), m_across(across), m_down(down) {
    context.announcer.Add(Surface());
    m_across.setSingleStep(SidewaysStep);
    for (QScrollBar* bar : {&m_across, &m_down}) {
        bar->setFocusPolicy(Qt::NoFocus);
        bar->hide();
        Watch(*bar);
        connect(bar, &QScrollBar::valueChanged, this, [this] { Report(); });
    }
}

ListSurface& ListPeer::Surface() const {
    return static_cast<ListSurface&>(Content());
}

void ListPeer::Apply(Aspects aspects) {
    PaintedPeer::Apply(aspects);
    if (aspects & (Aspect::Scroll | Aspect::State))
        Arrange();
    else if (aspects & Aspect::Rows)
        ArrangeSoon();
}

void ListPeer::FollowRows(int first, int removed, int inserted) {
    Surface().FollowRows(first, removed, inserted);
    Context().announcer.Note();
}

void ListPeer::ArrangeSoon() {
    if (std::exchange(m_isArrangePending, true))
        return;
    QMetaObject::invokeMethod(
        this, [this] { ArrangeIfPending(); }, Qt::QueuedConnection);
}

void ListPeer::ArrangeIfPending() {
    if (m_isArrangePending && Window())
        Arrange();
}

// The bars take what the client area leaves.
void ListPeer::Arrange() {
    m_isArrangePending = false;
    PaintedPeer::Arrange();
    const QRect client = ToQRect(view::ClientRectangle(Window()));
    const int frame = static_cast<QFrame&>(Outer()).frameWidth();
    const QRect inside = Outer().rect().adjusted(frame, frame, -frame, -frame);
    const int right = client.x() + client.width();
    const int bottom = client.y() + client.height();
    const view::ScrollView scroll = view::Scroll(Window());
    m_down.setGeometry(right, client.y(), inside.right() + 1 - right, client.height());
    m_across.setGeometry(client.x(), bottom, client.width(), inside.bottom() + 1 - bottom);
    m_down.setVisible(scroll.rowCount > scroll.rowsPerPage && m_down.width() > 0);
    m_across.setVisible(scroll.contentWidth > scroll.pageWidth && m_across.height() > 0);
    ShowPosition();
}

void ListPeer::ShowPosition() {
    const QScopedValueRollback showing(m_isShowing, true);
    const view::ScrollView scroll = view::Scroll(Window());
    ShowRange(m_across, scroll.x, scroll.contentWidth, scroll.pageWidth);
    ShowRange(m_down, scroll.topRow, scroll.rowCount, scroll.rowsPerPage);
}

// A bar also signals what ShowPosition sets.
void ListPeer::Report() {
    if (m_isShowing || !Window())
        return;
    const Busy busy(*this);
    input::Scrolled(Window(), m_across.value(), m_down.value());
}

bool ListPeer::OnEvent(QWidget& widget, QEvent& event) {
    if (&widget == &m_across || &widget == &m_down) {
        ArrangeIfPending();
        Context().mouse.ReportPressOutside(MouseTarget(), event);
        return false;
    }
    if (event.type() == QEvent::FocusIn)
        Context().announcer.Note();
    if (event.type() == QEvent::Wheel && &widget == &Content()) {
        ArrangeIfPending();
        const QPoint delta = static_cast<QWheelEvent&>(event).angleDelta();
        m_across.setValue(m_across.value() - delta.x());
        if (delta.y() == 0)
            return true;
    }
    return PaintedPeer::OnEvent(widget, event);
}

} // namespace korvel::internal

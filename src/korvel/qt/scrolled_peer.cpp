#include "korvel/qt/scrolled_peer.h"

#include "korvel/qt/convert.h"
#include "korvel/qt/peer_context.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

#include <QEvent>
#include <QFrame>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>

namespace korvel::internal {

namespace {

constexpr int Bars[] = {SB_HORZ, SB_VERT};

struct ActionRow {
    QAbstractSlider::SliderAction action;
    UINT code;
};

constexpr ActionRow Actions[] = {
    {QAbstractSlider::SliderSingleStepSub, SB_LINEUP}, {QAbstractSlider::SliderSingleStepAdd, SB_LINEDOWN},
    {QAbstractSlider::SliderPageStepSub, SB_PAGEUP},   {QAbstractSlider::SliderPageStepAdd, SB_PAGEDOWN},
    {QAbstractSlider::SliderToMinimum, SB_TOP},        {QAbstractSlider::SliderToMaximum, SB_BOTTOM},
    {QAbstractSlider::SliderMove, SB_THUMBTRACK},
};

} // namespace

void ScrolledPeer::Apply(Aspects aspects) {
    PaintedPeer::Apply(aspects);
    if (aspects & Aspect::Scroll)
        Arrange();
}

// The bars take what the client area leaves inside the frame.
void ScrolledPeer::Arrange() {
    PaintedPeer::Arrange();
    for (const int bar : Bars)
        ArrangeBar(bar);
}

void ScrolledPeer::ArrangeBar(int bar) {
    const bool shown = view::ScrollBar(Window(), bar).shown;
    if (!m_bars[bar] && !shown)
        return;
    QScrollBar& widget = m_bars[bar] ? *m_bars[bar] : MakeBar(bar);
    const QRect client = ToQRect(view::ClientRectangle(Window()));
    const int frame = static_cast<QFrame&>(Outer()).frameWidth();
    const QRect inside = Outer().rect().adjusted(frame, frame, -frame, -frame);
    if (bar == SB_HORZ)
        widget.setGeometry(client.x(), client.bottom() + 1, client.width(),
                           inside.bottom() - client.bottom());
    else
        widget.setGeometry(client.right() + 1, client.y(), inside.right() - client.right(), client.height());
    widget.setVisible(shown);
    widget.raise(); // children may reach beyond the client area
    ShowState(bar);
}

QScrollBar& ScrolledPeer::MakeBar(int bar) {
    auto* widget = new QScrollBar(bar == SB_HORZ ? Qt::Horizontal : Qt::Vertical, &Outer());
    m_bars[bar] = widget;
    widget->setFocusPolicy(Qt::NoFocus);
    Watch(*widget);
    connect(widget, &QScrollBar::actionTriggered, this, [this, bar](int action) {
        for (const ActionRow& row : Actions)
            if (row.action == action)
                Report(bar, row.code);
    });
    connect(widget, &QScrollBar::sliderReleased, this, [this, bar] {
        Report(bar, SB_THUMBPOSITION);
        Report(bar, SB_ENDSCROLL);
    });
    return *widget;
}

void ScrolledPeer::ShowState(int bar) {
    const QScopedValueRollback showing(m_isShowing, true);
    const view::BarView view = view::ScrollBar(Window(), bar);
    QScrollBar& widget = *m_bars[bar];
    widget.setRange(view.minimum, view.maximum);
    widget.setPageStep(std::max(1, bar == SB_HORZ ? widget.width() : widget.height()));
    widget.setValue(view.position);
}

// The window decides where the bar goes; Qt would have it go where the user wants.
void ScrolledPeer::Report(int bar, UINT code) {
    if (m_isShowing || !Window())
        return;
    const Busy busy(*this);
    input::ScrollBarUsed(Window(), bar, code, m_bars[bar]->sliderPosition());
    if (Window())
        ShowState(bar);
}

bool ScrolledPeer::OnEvent(QWidget& widget, QEvent& event) {
    if (&widget == m_bars[SB_HORZ] || &widget == m_bars[SB_VERT]) {
        Context().mouse.ReportPressOutside(MouseTarget(), event);
        return false;
    }
    const bool handled = PaintedPeer::OnEvent(widget, event);
    if (Window() && &widget == &Outer()) {
        if (event.type() == QEvent::Resize)
            Arrange();
        else if (event.type() == QEvent::ChildAdded)
            for (QScrollBar* bar : m_bars)
                if (bar)
                    bar->raise();
    }
    return handled;
}

} // namespace korvel::internal

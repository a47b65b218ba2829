#include "korvel/qt/embed_frame.h"

#include "korvel/qt/convert.h"
#include "korvel/qt/display_parts.h"
#include "korvel/qt/peer_context.h"
#include "korvel/qt/qt_display.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/thread_queue.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

#include <QApplication>
#include <QFocusEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollArea>

namespace korvel::internal {

namespace {

// As the areas do themselves where the walk is theirs.
void ShowInScrollAreas(QWidget& widget) {
    for (QWidget* level = widget.parentWidget(); level; level = level->parentWidget())
        if (auto* area = qobject_cast<QScrollArea*>(level))
            area->ensureWidgetVisible(&widget);
}

constexpr UINT TopLevelStyles = WS_POPUP | WS_CAPTION | WS_THICKFRAME | WS_SYSMENU;

} // namespace

EmbedFrame::EmbedFrame(qt::QtDisplay& display, HWND window)
    : m_window(window), m_hint(ToQRect(view::Rectangle(window)).size()) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    {
        const QScopedValueRollback site(display.m_parts->siteToShow, this);
        m_site = CreateWindowExA(0, "KorvelFrame", "", WS_VISIBLE, {}, nullptr, 0);
    }
    setFocusPolicy(Qt::TabFocus);
    MoveInto(display, window);
    qApp->installEventFilter(this);
}

EmbedFrame::~EmbedFrame() {
    qApp->removeEventFilter(this);
    input::Destroy(m_site);
}

// Whatever a handler throws, the host gets its widget with the window in it.
void EmbedFrame::MoveInto(qt::QtDisplay& display, HWND window) {
    const auto style = static_cast<LPARAM>(view::Style(window) & ~TopLevelStyles);
    GuardedUntilRun([&] { SetParent(window, m_site); });
    GuardedUntilRun([&] { SetWindowLongPtrA(window, GWL_STYLE, style); });
    if (Peer* peer = display.m_parts->context.peers.Find(window))
        peer->Apply(EveryAspect);
    GuardedUntilRun([&] { ShowWindow(window, SW_SHOW); });
    GuardedUntilRun([&] { Place(); });
}

void EmbedFrame::resizeEvent(QResizeEvent*) {
    Place();
}

void EmbedFrame::Place() {
    input::Placed(m_site, FromQRect(QRect(mapToGlobal(QPoint(0, 0)), size())));
    if (!IsWindow(m_window))
        return;
    for (QObject* child : children())
        if (auto* widget = qobject_cast<QWidget*>(child); widget && !widget->isWindow())
            widget->setGeometry(rect());
    input::Placed(m_window, FromQRect(rect()));
}

// Filters the whole application, because the widget may move to another top-level window of the host.
bool EmbedFrame::eventFilter(QObject* object, QEvent* event) {
    const auto* widget = qobject_cast<const QWidget*>(object);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::NonClientAreaMouseButtonPress:
        // Not spontaneous: a press that a child did not want, offered to its parents.
        if (m_sitePeer && event->spontaneous() && widget && widget->window() == window() && widget != this &&
            !isAncestorOf(widget))
            m_sitePeer->ReportPress(*event);
        break;
    case QEvent::Move:
        if (widget && isVisible() && (widget == this || widget->isAncestorOf(this)))
            Place();
        break;
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
        if (object == window())
            input::Activated(m_site, event->type() == QEvent::WindowActivate);
        break;
    default:
        break;
    }
    return false;
}

void EmbedFrame::focusInEvent(QFocusEvent* event) {
    m_focusReason = event->reason();
}

bool EmbedFrame::focusNextPrevChild(bool next) {
    const auto takesTab = [&](const QWidget& widget) {
        return (widget.focusPolicy() & Qt::TabFocus) && !widget.focusProxy() && widget.isEnabled() &&
               widget.isVisibleTo(window());
    };
    const auto following = [next](const QWidget& widget) {
        return next ? widget.nextInFocusChain() : widget.previousInFocusChain();
    };
    for (QWidget* widget = following(*this); widget != this; widget = following(*widget)) {
        if (isAncestorOf(widget) || !takesTab(*widget))
            continue;
        widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        ShowInScrollAreas(*widget);
        return true;
    }
    return false;
}

void EmbedFrame::PassFocusOn(PeerContext& context) {
    const bool isBack = m_focusReason == Qt::BacktabFocusReason;
    const bool isByTab = isBack || m_focusReason == Qt::TabFocusReason;
    if (const HWND stop = isByTab ? GetNextDlgTabItem(m_window, nullptr, isBack) : nullptr) {
        GuardedUntilRun([&] { SendMessageA(m_window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(stop), 1); });
        if (IsChild(m_window, GetFocus()))
            return context.focus.Show(GetFocus());
    }
    context.focus.Show(m_window);
    input::FocusMoved(m_window);
}

SitePeer::SitePeer(PeerContext& context, HWND window, EmbedFrame& frame)
    : Peer(context, window, frame, frame), m_frame(frame) {
    m_frame.m_sitePeer = this;
}

void SitePeer::ReportPress(const QEvent& event) {
    Context().mouse.ReportPressOutside(MouseTarget(), event);
}

void SitePeer::TakeFocus() {
    m_frame.PassFocusOn(Context());
}

bool SitePeer::LeaveByTab(bool previous) {
    return m_frame.focusNextPrevChild(!previous);
}

} // namespace korvel::internal

#include "korvel/qt/top_level.h"

#include "korvel/qt/convert.h"
#include "korvel/qt/peer.h"
#include "korvel/qt/peer_context.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

#include <QApplication>
#include <QWindow>

namespace korvel::internal {

namespace {

bool IsToolPopup(HWND window) {
    return (view::Style(window) & WS_POPUP) &&
           (view::ExStyle(window) & (WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE));
}

bool IsFixedSize(HWND window) {
    return !IsToolPopup(window) && !(view::Style(window) & WS_THICKFRAME);
}

} // namespace

Qt::WindowFlags TopLevel::FlagsOf(HWND window) {
    if (IsToolPopup(window))
        return Qt::ToolTip | Qt::WindowDoesNotAcceptFocus | Qt::BypassWindowManagerHint;
    const UINT style = view::Style(window);
    Qt::WindowFlags flags = GetOwner(window) ? Qt::Dialog : Qt::Window;
    if ((style & WS_POPUP) && (style & WS_CAPTION) != WS_CAPTION)
        flags |= Qt::FramelessWindowHint;
    else if (!(style & WS_SYSMENU) && (style & WS_CAPTION) == WS_CAPTION)
        flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint; // without a box to close it
    if (view::ExStyle(window) & WS_EX_TOPMOST)
        flags |= Qt::WindowStaysOnTopHint;
    return flags;
}

TopLevel::TopLevel(PeerContext& context, Peer& peer) : m_context(context), m_peer(peer) {
    m_peer.Outer().setAttribute(Qt::WA_QuitOnClose, !GetOwner(peer.Window()));
    m_peer.Outer().setAttribute(Qt::WA_ShowWithoutActivating, IsToolPopup(peer.Window()));
}

void TopLevel::Apply(Aspects aspects) {
    const HWND window = m_peer.Window();
    QWidget& widget = m_peer.Outer();
    if (aspects & (Aspect::Rectangle | Aspect::Style | Aspect::Visible))
        FollowLimits();
    if (aspects & Aspect::Style)
        FollowTopmost();
    if (aspects & Aspect::Text)
        widget.setWindowTitle(TextOf(window));
    if (!(aspects & Aspect::Visible))
        return;
    if (!view::IsShown(window))
        PassActivationOn();
    else if (!widget.isVisible() && !IsToolPopup(window))
        PrepareToAppear();
}

// A handler may destroy the window.
void TopLevel::FollowLimits() {
    QWidget& widget = m_peer.Outer();
    if (IsFixedSize(m_peer.Window())) {
        widget.setFixedSize(ToQRect(view::Rectangle(m_peer.Window())).size());
        return;
    }
    const view::SizeRange sizes = view::SizesOf(m_peer.Window());
    if (!m_peer.Window() || IsToolPopup(m_peer.Window()))
        return;
    widget.setMinimumSize(sizes.least.cx, sizes.least.cy);
    widget.setMaximumSize(std::min(sizes.most.cx, QWIDGETSIZE_MAX), std::min(sizes.most.cy, QWIDGETSIZE_MAX));
}

// QWidget::setWindowFlags would hide the window.
void TopLevel::FollowTopmost() {
    QWidget& widget = m_peer.Outer();
    const bool isOnTop = FlagsOf(m_peer.Window()).testFlag(Qt::WindowStaysOnTopHint);
    if (widget.windowFlags().testFlag(Qt::WindowStaysOnTopHint) == isOnTop)
        return;
    widget.overrideWindowFlags(widget.windowFlags().setFlag(Qt::WindowStaysOnTopHint, isOnTop));
    if (QWindow* native = widget.windowHandle())
        native->setFlag(Qt::WindowStaysOnTopHint, isOnTop);
}

// A window whose owner is disabled already is a modal one. Qt has to know before it shows the window.
void TopLevel::PrepareToAppear() {
    const HWND owner = GetOwner(m_peer.Window());
    const bool modal = owner && !view::IsSwitchedOn(owner);
    m_peer.Outer().setWindowModality(modal ? Qt::WindowModal : Qt::NonModal);
    if (QApplication::activeWindow())
        m_context.focus.ExpectActivation(m_peer.Outer());
}

void TopLevel::PassActivationOn() {
    const QWidget* owner = m_peer.Outer().parentWidget();
    if (owner && m_peer.Outer().isActiveWindow())
        m_context.focus.Activate(*owner->window());
}

bool TopLevel::OnEvent(QEvent& event) {
    switch (event.type()) {
    case QEvent::Move:
    case QEvent::Resize:
        ReportPlace();
        if (m_peer.Window())
            FollowLimits(); // what is in the window may need another size now
        return false;
    case QEvent::WindowActivate:
        m_context.focus.Activated();
        input::Activated(m_peer.Window(), true);
        return false;
    case QEvent::WindowDeactivate:
        input::Activated(m_peer.Window(), false);
        return false;
    case QEvent::Close:
        input::Close(m_peer.Window());
        event.setAccepted(IsClosed());
        return true;
    default:
        return false;
    }
}

// Qt counts the windows that were closed, to end with the last: one that only hides is not closed. Of a
// dialog, which Qt does not count, that is enough: its loop may still have to destroy it, and a refusal would
// keep the application from ending.
bool TopLevel::IsClosed() const {
    const HWND window = m_peer.Window();
    return !window || (!view::IsShown(window) && !m_peer.Outer().testAttribute(Qt::WA_QuitOnClose));
}

// Qt also signals a place that this window asked for, which is no news.
void TopLevel::ReportPlace() {
    const CRect place = FromQRect(m_peer.Outer().geometry());
    if (m_peer.Outer().isVisible() && place != view::Rectangle(m_peer.Window()))
        input::Placed(m_peer.Window(), place);
}

void TopLevel::ShowModal() {
    QWidget& widget = m_peer.Outer();
    if (widget.isVisible() && widget.isModal())
        return;
    widget.setAttribute(Qt::WA_QuitOnClose, false);
    widget.hide(); // modality holds from the next showing
    widget.setWindowModality(widget.parentWidget() ? Qt::WindowModal : Qt::ApplicationModal);
    m_context.focus.ExpectActivation(widget);
    widget.show();
}

} // namespace korvel::internal

#include "korvel/qt/peer.h"

#include "korvel/qt/convert.h"
#include "korvel/qt/keys.h"
#include "korvel/qt/peer_context.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QShortcutEvent>
#include <QToolTip>
#include <utility>

namespace korvel::internal {

namespace {

bool IsInput(QEvent::Type type) {
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
        return true;
    default:
        return false;
    }
}

// Styles mark the widget with the focus in a window where Qt has moved it by a key; here the windows in
// memory move it.
bool PressKey(HWND window, UINT message, UINT key, const CString& characters) {
    const HWND before = GetFocus();
    const bool isHandled = input::Key(window, message, key, characters);
    QWidget* focused = QApplication::focusWidget();
    if (focused && GetFocus() != before) {
        focused->window()->setAttribute(Qt::WA_KeyboardFocusChange);
        focused->update();
    }
    return isHandled;
}

} // namespace

Peer::Peer(PeerContext& context, HWND window, QWidget& outer, QWidget& content)
    : QObject(&outer), m_context(context), m_window(window), m_outer(outer), m_content(content) {
    // The windows in memory move the focus, and pass on what a window does not want; Qt must not do so
    // itself.
    for (QWidget* widget : {&m_outer, &m_content}) {
        widget->setFocusPolicy(Qt::NoFocus);
        widget->setAttribute(Qt::WA_NoMousePropagation);
    }
    m_content.setMouseTracking(true);
    Watch(m_content);
    m_context.peers.Add(*this, m_window, m_outer, m_content);
}

Peer::~Peer() {
    if (m_window)
        m_context.peers.Remove(m_window, m_outer, m_content);
}

void Peer::Watch(QWidget& part) {
    part.installEventFilter(this);
}

void Peer::Apply(Aspects aspects) {
    if (aspects & Aspect::Style)
        FollowParent();
    if (aspects & Aspect::Rectangle)
        m_outer.setGeometry(ToQRect(view::Rectangle(m_window)));
    if (aspects & Aspect::Order)
        FollowOrder();
    if (aspects & (Aspect::Style | Aspect::Order | Aspect::Visible))
        FollowLabel();
    if (aspects & Aspect::Visible) {
        if (!view::IsShown(m_window))
            LeaveFocusToParent();
        m_outer.setVisible(view::IsShown(m_window));
        if (GetFocus() == m_window)
            m_context.focus.Show(m_window);
    }
    if (!IsPainted() && (aspects & Aspect::Enabled))
        m_outer.setEnabled(view::IsSwitchedOn(m_window));
}

void Peer::FollowPaced() {
    if (!m_outer.isVisible())
        Follow();
    else if (!std::exchange(m_isToFollow, true))
        m_context.pace.AtNextFrame(
            *this,
            [this] {
                m_isToFollow = false;
                if (m_window)
                    Follow();
            });
}

void Peer::FollowParent() {
    const Peer* parent =
        (view::Style(m_window) & WS_CHILD) ? m_context.peers.Find(GetParent(m_window)) : nullptr;
    if (!parent || m_outer.parentWidget() == &parent->m_content)
        return;
    m_outer.setParent(&parent->m_content, Qt::Widget);
    m_outer.setMinimumSize(0, 0); // a top-level window may have had a fixed size
    m_outer.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    m_outer.setGeometry(ToQRect(view::Rectangle(m_window)));
    m_outer.setVisible(view::IsShown(m_window));
}

void Peer::FollowLabel() {
    const CString name = view::NameOf(m_window);
    if (name.empty())
        return;
    m_content.setAccessibleName(ToQString(name));
    if (Peer* label = m_context.peers.Find(view::LabelOf(m_window)))
        label->SetBuddy(m_content);
}

// The first of several siblings lies on top; of a top-level window nothing but this is ever told.
void Peer::FollowOrder() {
    if (m_outer.isWindow()) {
        m_outer.raise();
        return;
    }
    QWidget* above = nullptr;
    for (const HWND sibling : view::Children(GetParent(m_window))) {
        if (sibling == m_window)
            break;
        if (const Peer* peer = m_context.peers.Find(sibling))
            above = &peer->m_outer;
    }
    if (above)
        m_outer.stackUnder(above);
    else
        m_outer.raise();
}

void Peer::Invalidate(const CRect& rect) {
    m_content.update(ToQRect(rect));
}

void Peer::TakeFocus() {
    input::FocusMoved(m_window);
}

void Peer::Detach() {
    m_context.peers.Remove(m_window, m_outer, m_content);
    m_window = nullptr;
    Disappear();
    if (!IsBusy())
        End();
}

// An inactive window of Qt remembers the widget that gets the focus when the window is active again. When
// that widget is gone by then, Qt would give the focus to any other widget of the host.
void Peer::LeaveFocusToParent() {
    const QWidget* kept = m_outer.isWindow() ? nullptr : m_outer.window()->focusWidget();
    if (kept && kept != QApplication::focusWidget() && (kept == &m_outer || m_outer.isAncestorOf(kept)))
        m_outer.parentWidget()->setFocus(Qt::OtherFocusReason);
}

void Peer::Disappear() {
    LeaveFocusToParent();
    m_outer.hide();
    if (IsBusy()) // the end of the parent or owner must not delete it inside its own event
        m_outer.setParent(nullptr, m_outer.windowFlags());
}

void Peer::Leave() {
    if (--m_busy == 0 && !m_window)
        End();
}

void Peer::End() {
    m_outer.deleteLater();
}

bool Peer::eventFilter(QObject* object, QEvent* event) {
    if (!m_window)
        return IsInput(event->type());
    const Busy busy(*this);
    const bool handled = OnEvent(static_cast<QWidget&>(*object), *event);
    return handled || (!m_window && IsInput(event->type()));
}

bool Peer::OnEvent(QWidget& widget, QEvent& event) {
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        // Qt offers what the focused widget does not want to its parents, which must not take it.
        return HasKeyboard(widget) && OnKey(static_cast<QKeyEvent&>(event));
    case QEvent::Shortcut:
        return OnAccessKey(static_cast<QShortcutEvent&>(event));
    case QEvent::ShortcutOverride:
        if (&widget != QApplication::focusWidget() || !ComesBeforeShortcuts(static_cast<QKeyEvent&>(event)))
            return false;
        event.accept();
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
        return m_context.mouse.Deliver(MouseTarget(), event) || IsPainted();
    case QEvent::Leave:
        m_context.mouse.Deliver(MouseTarget(), event);
        return false;
    case QEvent::ContextMenu:
        return OnContextMenu(event);
    case QEvent::ToolTip:
        return ShowTip(static_cast<QHelpEvent&>(event));
    default:
        return false;
    }
}

// Without focus the keys go to the active window, so that a dialog finds its way back.
bool Peer::HasKeyboard(const QWidget& widget) const {
    const QWidget* focus = QApplication::focusWidget();
    return focus ? focus == &widget : widget.isWindow();
}

// Qt has found the widget whose text marks the letter. A dialog decides itself what that does; where nobody
// takes the key, the widget acts.
bool Peer::OnAccessKey(const QShortcutEvent& event) {
    const QString letter = QKeySequence(event.key()[0].key()).toString(QKeySequence::PortableText).toLower();
    const CString character = FromQString(letter);
    const UINT code = letter.size() == 1 && letter[0].unicode() < 0x80 ? letter[0].toUpper().unicode() : 0u;
    return PressKey(GetFocus() ? GetFocus() : m_window, WM_SYSKEYDOWN, code, character);
}

bool Peer::OnKey(QKeyEvent& event) {
    // A key that is held down comes as one press after another, and is released once.
    if (event.type() == QEvent::KeyRelease && event.isAutoRepeat())
        return true;
    const KeyInput key = TranslateKey(event);
    if (PressKey(m_window, key.message, key.key, key.characters))
        return true;
    if (key.message != WM_SYSKEYDOWN || key.characters.empty())
        return false;
    event.ignore(); // Alt with a letter types nothing: it may be a key of the host
    return true;
}

// Only for the keyboard: the menu of the mouse follows from the release of its button.
bool Peer::OnContextMenu(QEvent& event) {
    if (view::KindOf(m_window) == view::Kind::Edit)
        return false; // it has a menu of its own
    if (static_cast<QContextMenuEvent&>(event).reason() == QContextMenuEvent::Keyboard)
        PostMessageA(m_window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(m_window), MAKELPARAM(-1, -1));
    return true;
}

bool Peer::ShowTip(const QHelpEvent& event) {
    const QPoint point = m_content.mapFromGlobal(event.globalPos());
    const QString text = ToQString(view::Tip(m_window, FromQPoint(point)));
    if (text.isEmpty())
        return false;
    // Qt would take a text with brackets for one with marks.
    QToolTip::showText(event.globalPos(),
                       QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text.toHtmlEscaped()),
                       &m_content);
    return true;
}

} // namespace korvel::internal

#include "korvel/qt/focus_tracker.h"

#include "korvel/qt/peer.h"
#include "korvel/qt/peer_table.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/window.h"

#include <QApplication>
#include <QMenuBar>

namespace korvel::internal {

namespace {

// A window manager may refuse an activation; after this time it is not expected any more.
constexpr std::chrono::seconds ActivationPatience{1};

} // namespace

FocusTracker::FocusTracker(PeerTable& peers) : m_peers(peers) {
    m_connection = QObject::connect(
        qApp, &QApplication::focusChanged, [this](QWidget*, QWidget* now) { OnFocusChanged(now); });
}

FocusTracker::~FocusTracker() {
    QObject::disconnect(m_connection);
}

void FocusTracker::Show(HWND window) {
    ++m_showing;
    QWidget* current = QApplication::focusWidget();
    if (Peer* peer = m_peers.Find(window)) {
        QWidget& top = *peer->Content().window();
        peer->Content().setFocus(Qt::OtherFocusReason);
        if (top.isVisible() && !top.isActiveWindow() && QApplication::activeWindow())
            Activate(top);
    } else if (current && m_peers.FindAt(current)) {
        current->clearFocus();
    }
    --m_showing;
}

void FocusTracker::ExpectActivation(QWidget& top) {
    m_expected = &top;
    m_expectedUntil = std::chrono::steady_clock::now() + ActivationPatience;
}

bool FocusTracker::IsActivationUnderWay() const {
    return m_expected && std::chrono::steady_clock::now() < m_expectedUntil;
}

void FocusTracker::OnFocusChanged(QWidget* now) {
    if (m_showing > 0 || m_questions > 0 || QApplication::activePopupWidget())
        return;
    if (!now) {
        if (IsActivationUnderWay())
            return;
        QApplication::activeWindow() ? input::FocusMoved(nullptr) : input::ProgramLeft();
        return;
    }
    if (now->window()->windowType() == Qt::Popup || qobject_cast<QMenuBar*>(now))
        return; // a menu takes the keys for a while, and no focus
    Peer* peer = m_peers.FindAt(now);
    if (!peer)
        input::FocusMoved(nullptr);
    else if (IsWindowEnabled(peer->Window()))
        peer->TakeFocus();
}

void FocusTracker::Activate(QWidget& top) {
    ExpectActivation(top);
    top.activateWindow();
}

FocusTracker::Question::Question(FocusTracker& tracker, QWidget* owner) : m_tracker(tracker), m_owner(owner) {
    ++m_tracker.m_questions;
}

FocusTracker::Question::~Question() {
    if (m_owner && m_owner->isVisible() && !QApplication::activeWindow())
        m_tracker.Activate(*m_owner); // where no window manager does that
    --m_tracker.m_questions;
}

} // namespace korvel::internal

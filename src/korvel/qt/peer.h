#pragma once

#include "korvel/qt/mouse.h"
#include "korvel/window/core/display.h"

#include <QObject>
#include <QWidget>

class QHelpEvent;
class QKeyEvent;
class QShortcutEvent;

namespace korvel::internal {

struct PeerContext;

constexpr Aspects EveryAspect = Aspect::Rectangle | Aspect::Visible | (Aspect::Enabled | Aspect::Text) |
                                (Aspect::State | Aspect::Scroll) | (Aspect::Style | Aspect::Entries);

/// Shows one window with a widget, and filters the events of that widget. It keeps nothing of the window: it
/// reads what it shows, and reports what the user does.
///
/// A peer outlives its window while one of its own events, or a signal of its widget, is being handled; the
/// widget is deleted after that, and with it the peer, its child.
class Peer : public QObject {
public:
    /// `content` is what shows the client area and carries the children; it may be `outer` itself.
    Peer(PeerContext& context, HWND window, QWidget& outer, QWidget& content);
    ~Peer() override;

    HWND Window() const { return m_window; }
    QWidget& Outer() const { return m_outer; }
    QWidget& Content() const { return m_content; }

    /// Reads again what changed of the window.
    virtual void Apply(Aspects aspects);
    /// Reads again what Apply has left to FollowPaced.
    virtual void Follow() {}
    virtual void Invalidate(const CRect& rect);
    /// Of a list: see IDisplay::RowsChanged.
    virtual void FollowRows(int /*first*/, int /*removed*/, int /*inserted*/) {}
    /// Qt has given the focus to this widget.
    virtual void TakeFocus();
    /// See IDisplay::LeaveByTab.
    virtual bool LeaveByTab(bool /*previous*/) { return false; }
    /// Shows a top-level window modally.
    virtual void ShowModal() {}
    /// False for a native control, which acts itself on the input that the window leaves to it.
    virtual bool IsPainted() const { return false; }
    /// What a mouse event of this widget is delivered to.
    Mouse::Target MouseTarget() const { return {m_window, m_content, IsPainted()}; }
    /// The window is gone.
    void Detach();
    /// Tells a label which field it names.
    virtual void SetBuddy(QWidget& /*field*/) {}
    /// Names the widget for those who cannot see it, see view::NameOf.
    void FollowLabel();
    /// Puts the widget inside the peer of the window's parent, where it is not yet.
    void FollowParent();

protected:
    /// A scope in which a handler of the host may run, and may destroy this window.
    class Busy {
    public:
        explicit Busy(Peer& peer) : m_peer(peer) { ++m_peer.m_busy; }
        ~Busy() { m_peer.Leave(); }
        Busy(const Busy&) = delete;
        Busy& operator=(const Busy&) = delete;

    private:
        Peer& m_peer;
    };

    /// Calls Follow with the next frame, never within the change itself; at once where nobody sees the widget.
    void FollowPaced();
    /// Filters also a part of the widget that gets events of its own.
    void Watch(QWidget& part);
    bool eventFilter(QObject* object, QEvent* event) final;
    /// True: the widget does not see the event.
    virtual bool OnEvent(QWidget& widget, QEvent& event);
    /// The window is gone: hides the widget. Nothing of it may be deleted yet.
    virtual void Disappear();
    /// The window is gone and no event of this peer is being handled: deletes the widget.
    virtual void End();
    PeerContext& Context() const { return m_context; }
    bool IsBusy() const { return m_busy > 0; }

private:
    void FollowOrder();
    bool HasKeyboard(const QWidget& widget) const;
    bool OnAccessKey(const QShortcutEvent& event);
    bool OnKey(QKeyEvent& event);
    bool OnContextMenu(QEvent& event);
    bool ShowTip(const QHelpEvent& event);
    void LeaveFocusToParent();
    void Leave();

    PeerContext& m_context;
    HWND m_window;
    QWidget& m_outer;
    QWidget& m_content;
    int m_busy = 0;
    bool m_isToFollow = false; // with the next frame
};

} // namespace korvel::internal

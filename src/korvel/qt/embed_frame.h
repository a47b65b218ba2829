#pragma once

#include "korvel/qt/peer.h"

#include <QPointer>

namespace korvel::qt {
class QtDisplay;
}

namespace korvel::internal {

class SitePeer;

/// The widget that Embed gives a host; its site window lies exactly where it is.
class EmbedFrame final : public QWidget {
public:
    EmbedFrame(qt::QtDisplay& display, HWND window);
    ~EmbedFrame() override;

    QSize sizeHint() const override { return m_hint; }
    /// The focus has come here: it goes on into the window; by Tab, to the border of a dialog that was
    /// crossed.
    void PassFocusOn(PeerContext& context);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    /// Called by Qt also for what is inside; for the host, this widget and all in it are one stop.
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void MoveInto(qt::QtDisplay& display, HWND window);
    void Place();

    friend class SitePeer;
    HWND m_site = nullptr;
    QPointer<SitePeer> m_sitePeer; // gone when the display goes first
    HWND m_window = nullptr;
    QSize m_hint;
    Qt::FocusReason m_focusReason = Qt::OtherFocusReason; // of the last focus that came here
};

/// The peer of a site: its place is decided by the host's layout, so it shows nothing of the window.
class SitePeer final : public Peer {
public:
    SitePeer(PeerContext& context, HWND window, EmbedFrame& frame);

    void Apply(Aspects) override {}
    void TakeFocus() override;
    bool LeaveByTab(bool previous) override;
    /// A press in the host's window, outside the frame.
    void ReportPress(const QEvent& event);

protected:
    void Disappear() override {}
    void End() override { deleteLater(); }

private:
    EmbedFrame& m_frame;
};

} // namespace korvel::internal

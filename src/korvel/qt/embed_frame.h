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
    /// The focus has come here from `former`: it goes on to the window inside, or, when it comes from
    /// there, to what is before this widget.
    void PassFocusOn(PeerContext& context, const QWidget* former);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void MoveInto(qt::QtDisplay& display, HWND window);
    void Place();

    friend class SitePeer;
    HWND m_site = nullptr;
    QPointer<SitePeer> m_sitePeer; // gone when the display goes first
    HWND m_window = nullptr;
    QSize m_hint;
};

/// The peer of a site: its place is decided by the host's layout, so it shows nothing of the window.
class SitePeer final : public Peer {
public:
    SitePeer(PeerContext& context, HWND window, EmbedFrame& frame);

    void Apply(Aspects) override {}
    void TakeFocus(QWidget* former) override;
    /// A press in the host's window, outside the frame.
    void ReportPress(const QEvent& event);

protected:
    void Disappear() override {}
    void End() override { deleteLater(); }

private:
    EmbedFrame& m_frame;
};

} // namespace korvel::internal

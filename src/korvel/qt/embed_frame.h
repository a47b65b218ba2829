#pragma once

#include "korvel/qt/peer.h"

#include <QPointer>

namespace korvel::qt {

class QtDisplay;
class SitePeer;

/// The widget that Embed gives a host; its site window lies exactly where it is.
class EmbedFrame final : public QWidget {
public:
    EmbedFrame(QtDisplay& display, HWND window);
    ~EmbedFrame() override;

    QSize sizeHint() const override { return m_hint; }
    /// The focus has come here from `former`: it goes on to the window inside, or, when it comes from
    /// there, to what is before this widget.
    void PassFocusOn(Desktop& desktop, const QWidget* former);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void MoveInto(QtDisplay& display, HWND window);
    void Place();

    friend class SitePeer;
    HWND m_site = nullptr;
    QPointer<SitePeer> m_sitePeer; // gone when the display goes first
    HWND m_window = nullptr;
    QSize m_hint;
};

/// The peer of a site: the place belongs to the host's layout, and nothing here follows memory.
class SitePeer final : public Peer {
public:
    SitePeer(Desktop& desktop, HWND window, EmbedFrame& frame);

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

} // namespace korvel::qt

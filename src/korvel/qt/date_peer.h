#pragma once

#include "korvel/qt/peer.h"

namespace korvel::internal {

class DateEdit;

/// A date control. The widget edits the date; opening and closing the calendar, Escape in it and "no date"
/// are the window's keys.
class DatePeer final : public Peer {
public:
    DatePeer(PeerContext& context, HWND window, QWidget* parent);
    void Apply(Aspects aspects) override;

protected:
    bool OnEvent(QWidget& widget, QEvent& event) override;

private:
    DatePeer(PeerContext& context, HWND window, DateEdit& edit);
    void ShowState();
    void FollowCalendar(bool isDropped);
    void WatchCalendar();
    bool OnCalendarKey(const QKeyEvent& event);
    void Report();

    DateEdit& m_edit;
    bool m_isShowing = false;
};

} // namespace korvel::internal

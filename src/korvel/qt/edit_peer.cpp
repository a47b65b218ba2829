#include "korvel/qt/edit_peer.h"

#include "korvel/qt/convert.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

#include <QScopedValueRollback>

namespace korvel::internal {

void EditPeer::Apply(Aspects aspects) {
    Peer::Apply(aspects);
    const QScopedValueRollback showing(m_isShowing, true);
    if (aspects & Aspect::Enabled)
        Outer().setEnabled(view::IsSwitchedOn(Window()));
    if (aspects & (Aspect::Text | Aspect::State))
        ShowContent();
}

bool EditPeer::HasBorder() const {
    return (view::Style(Window()) & WS_BORDER) || (view::ExStyle(Window()) & WS_EX_CLIENTEDGE);
}

// The signals also come for what Apply sets, which is no news. The widget then shows what the window made of
// the report: what is beyond its limit, for instance, has been cut off.
void EditPeer::Report() {
    if (m_isShowing || !Window())
        return;
    const Busy busy(*this);
    const Content content = ReadContent();
    input::Edited(Window(), FromQString(content.text), content.start, content.end);
    if (Window() && TextOf(Window()) != content.text)
        Apply(Aspect::Text);
}

} // namespace korvel::internal

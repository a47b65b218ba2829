#include "korvel/qt/edit_peer.h"

#include "korvel/qt/convert.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

#include <QScopedValueRollback>

namespace korvel::internal {

EditPeer::Content EditPeer::ContentOf(HWND window) {
    const QString text = TextOf(window);
    const CString bytes = FromQString(text);
    const view::EditView state = view::Edit(window);
    return {text, FromByte(bytes, state.selectionStart), FromByte(bytes, state.selectionEnd)};
}

void EditPeer::Apply(Aspects aspects) {
    Peer::Apply(aspects);
    const QScopedValueRollback showing(m_isShowing, true);
    if (aspects & Aspect::Enabled)
        Outer().setEnabled(view::IsSwitchedOn(Window()));
    if (aspects & (Aspect::Text | Aspect::State))
        ShowContent(ContentOf(Window()), view::Edit(Window()).readOnly);
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
    const CString text = FromQString(content.text);
    input::Edited(Window(), text, ToByte(text, content.start), ToByte(text, content.end));
    if (Window() && TextOf(Window()) != content.text)
        Apply(Aspect::Text);
}

} // namespace korvel::internal

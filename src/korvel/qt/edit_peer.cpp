#include "korvel/qt/edit_peer.h"

#include "korvel/qt/convert.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/core/input.h"
#include "korvel/window/display/window_view.h"

#include <QScopedValueRollback>

namespace korvel::internal {

void EditPeer::Apply(Aspects aspects) {
    Peer::Apply(aspects);
    const QScopedValueRollback showing(m_isShowing, true);
    if (aspects & (Aspect::Text | Aspect::State)) {
        const CString bytes = BytesOf(Window());
        Show(bytes, ToQString(bytes));
    }
}

bool EditPeer::HasBorder() const {
    return (view::Style(Window()) & WS_BORDER) || (view::ExStyle(Window()) & WS_EX_CLIENTEDGE);
}

void EditPeer::Show(const CString& bytes, const QString& text) {
    const QScopedValueRollback showing(m_isShowing, true);
    const view::EditView state = view::Edit(Window());
    // What the window cuts off from a report must not come back by an undo of the widget.
    const bool canUndo = state.canUndo && !m_isReporting;
    ShowContent({text, FromByte(bytes, state.selectionStart), FromByte(bytes, state.selectionEnd), canUndo},
                state.readOnly);
    ShowMargins({state.leftMargin, 0, state.rightMargin, 0});
}

// The signals also come for what Apply sets, which is no news. The widget then shows what the window made of
// the report: what is beyond its limit, for instance, has been cut off.
void EditPeer::Report() {
    if (m_isShowing || !Window())
        return;
    const Busy busy(*this);
    const QScopedValueRollback reporting(m_isReporting, true);
    const CString before = BytesOf(Window());
    const QString textBefore = ToQString(before);
    const Content content = ReadContent(textBefore);
    const CString bytes = content.text == textBefore ? before : FromQString(content.text);
    input::Edited(Window(), bytes, ToByte(bytes, content.start), ToByte(bytes, content.end));
    if (!Window())
        return;
    const CString after = BytesOf(Window());
    const QString text = after == bytes ? content.text : ToQString(after);
    if (Window() && !Shows(text))
        Show(after, text);
}

} // namespace korvel::internal

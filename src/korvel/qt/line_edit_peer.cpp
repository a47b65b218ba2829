#include "korvel/qt/line_edit_peer.h"

#include "korvel/qt/convert.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/display/window_view.h"

#include <QRegularExpressionValidator>
#include <QSignalBlocker>
#include <limits>

namespace korvel::internal {

LineEditPeer::LineEditPeer(PeerContext& context, HWND window, QWidget* parent)
    : EditPeerOf(context, window, *new QLineEdit(parent), &QLineEdit::textEdited) {
    const QSignalBlocker blocker(m_edit); // it is empty still, and the text of the window is to be shown
    m_edit.setFrame(HasBorder());
    m_edit.setMaxLength(std::numeric_limits<int>::max()); // the limit is the window's
    if (view::Style(window) & ES_PASSWORD)
        m_edit.setEchoMode(QLineEdit::Password);
    if (view::Style(window) & ES_NUMBER)
        m_edit.setValidator(
            new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), &m_edit));
}

void LineEditPeer::ShowContent(const Content& content, bool isReadOnly) {
    m_edit.setReadOnly(isReadOnly);
    if (!Shows(content.text) && content.canUndo && m_edit.hasFocus()) {
        m_edit.selectAll();
        m_edit.insert(content.text);
    }
    if (!Shows(content.text))
        m_edit.setText(content.text); // forgets what could be undone, so only when it differs
    if (content.start == content.end)
        m_edit.setCursorPosition(content.start);
    else if (m_edit.selectionStart() != content.start ||
             m_edit.selectionLength() != content.end - content.start)
        m_edit.setSelection(content.start, content.end - content.start);
}

EditPeer::Content LineEditPeer::ReadContent(const QString&) const {
    if (m_edit.hasSelectedText())
        return {m_edit.text(), m_edit.selectionStart(), m_edit.selectionEnd()};
    return {m_edit.text(), m_edit.cursorPosition(), m_edit.cursorPosition()};
}

bool LineEditPeer::Shows(const QString& text) const {
    return m_edit.text() == text;
}

} // namespace korvel::internal

#include "korvel/qt/text_edit_peer.h"

#include "korvel/qt/convert.h"
#include "korvel/window/display/window_view.h"

namespace korvel::internal {

namespace {

// A text of several lines has "\r\n" between them in the window and "\n" in the widget, so positions differ by
// one for each line before.
QString ToLines(QString text) {
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

QString FromLines(QString lines) {
    return lines.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
}

int ToWindowPosition(const QString& lines, int position) {
    return position + static_cast<int>(lines.left(position).count(QLatin1Char('\n')));
}

int ToLinesPosition(const QString& text, int position) {
    return position - static_cast<int>(text.left(position).count(QLatin1Char('\r')));
}

} // namespace

TextEditPeer::TextEditPeer(PeerContext& context, HWND window, QWidget* parent)
    : EditPeerOf(context, window, *new QPlainTextEdit(parent), &QPlainTextEdit::textChanged) {
    Watch(*m_edit.viewport());
    m_edit.setTabChangesFocus(false);
    if (!HasBorder())
        m_edit.setFrameStyle(QFrame::NoFrame);
}

void TextEditPeer::ShowContent(const Content& content, bool isReadOnly) {
    m_edit.setReadOnly(isReadOnly);
    if (m_edit.toPlainText() != ToLines(content.text))
        m_edit.setPlainText(ToLines(content.text));
    QTextCursor cursor = m_edit.textCursor();
    cursor.setPosition(ToLinesPosition(content.text, content.start));
    cursor.setPosition(ToLinesPosition(content.text, content.end), QTextCursor::KeepAnchor);
    m_edit.setTextCursor(cursor);
}

EditPeer::Content TextEditPeer::ReadContent() const {
    const QString lines = m_edit.toPlainText();
    const QTextCursor cursor = m_edit.textCursor();
    return {FromLines(lines), ToWindowPosition(lines, cursor.selectionStart()),
            ToWindowPosition(lines, cursor.selectionEnd())};
}

} // namespace korvel::internal

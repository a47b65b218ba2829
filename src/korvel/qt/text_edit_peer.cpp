#include "korvel/qt/text_edit_peer.h"

#include "korvel/qt/convert.h"
#include "korvel/window/display/window_view.h"

#include <QTextDocument>
#include <algorithm>

namespace korvel::internal {

namespace {

// Breaks in the text of a window are "\r\n", which the user types, or what a program has set: a lone "\n" or
// "\r", or one of the characters that QTextCursor takes for the end of a block. In the lines of the widget
// each is "\n".
bool IsBreak(QChar character) {
    constexpr ushort BeginningOfFrame = 0xFDD0;
    constexpr ushort EndOfFrame = 0xFDD1;
    return character == u'\n' || character == u'\r' || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator || character == QChar(BeginningOfFrame) ||
           character == QChar(EndOfFrame);
}

QString ToLines(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    std::replace_if(text.begin(), text.end(), IsBreak, QChar(u'\n'));
    return text;
}

QString FromLines(QString lines) {
    return lines.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
}

// A text of a window and the lines that show it. "\r\n" is one place of the lines.
int ToLinesPosition(const QString& text, int position) {
    return position - static_cast<int>(text.left(position).count(QLatin1String("\r\n")));
}

int ToTextPosition(const QString& text, int position) {
    int at = 0;
    for (const int last = static_cast<int>(text.size()); position > 0 && at < last; --position)
        at += at + 1 < last && text[at] == u'\r' && text[at + 1] == u'\n' ? 2 : 1;
    return at;
}

// The text that `lines` make of the one that was shown by `before`. What was inserted ends at the caret.
QString TextFrom(const QString& lines, int caret, const QString& textBefore, const QString& before) {
    const auto countBefore = before.size();
    const auto count = lines.size();
    qsizetype tail = 0;
    while (tail < std::min(countBefore, count - caret) &&
           before[countBefore - 1 - tail] == lines[count - 1 - tail])
        ++tail;
    qsizetype head = 0;
    while (head < std::min(countBefore, count) - tail && before[head] == lines[head])
        ++head;
    return textBefore.left(ToTextPosition(textBefore, static_cast<int>(head))) +
           FromLines(lines.mid(head, count - tail - head)) +
           textBefore.mid(ToTextPosition(textBefore, static_cast<int>(countBefore - tail)));
}

} // namespace

TextEditPeer::TextEditPeer(PeerContext& context, HWND window, QWidget* parent)
    : EditPeerOf(context, window, *new TextEdit(parent), &QPlainTextEdit::textChanged) {
    Watch(*m_edit.viewport());
    m_edit.setBackgroundRole(QPalette::Base); // of the margins, too
    m_edit.setAutoFillBackground(true);
    m_edit.setTabChangesFocus(false);
    if (!HasBorder())
        m_edit.setFrameStyle(QFrame::NoFrame);
}

// Unlike toPlainText, toRawText leaves a no-break space what it is.
QString TextEditPeer::Lines() const {
    return ToLines(m_edit.document()->toRawText());
}

void TextEditPeer::ShowContent(const Content& content, bool isReadOnly) {
    m_edit.setReadOnly(isReadOnly);
    if (!Shows(content.text))
        m_edit.setPlainText(ToLines(content.text)); // forgets what could be undone, so only when it differs
    QTextCursor cursor = m_edit.textCursor();
    cursor.setPosition(ToLinesPosition(content.text, content.start));
    cursor.setPosition(ToLinesPosition(content.text, content.end), QTextCursor::KeepAnchor);
    m_edit.setTextCursor(cursor);
}

EditPeer::Content TextEditPeer::ReadContent(const QString& textBefore) const {
    const QString lines = Lines();
    const QString before = ToLines(textBefore);
    const QTextCursor cursor = m_edit.textCursor();
    const int end = cursor.selectionEnd();
    const QString text = lines == before ? textBefore : TextFrom(lines, end, textBefore, before);
    return {text, ToTextPosition(text, cursor.selectionStart()), ToTextPosition(text, end)};
}

bool TextEditPeer::Shows(const QString& text) const {
    return Lines() == ToLines(text);
}

} // namespace korvel::internal

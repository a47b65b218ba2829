#include "korvel/qt/edit_peer.h"

#include "korvel/qt/convert.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRegularExpressionValidator>
#include <QScopedValueRollback>
#include <algorithm>

namespace korvel::internal {

namespace {

constexpr int Unlimited = 32767; // what the widget itself holds at most by default

bool HasBorder(HWND window) {
    return (view::Style(window) & WS_BORDER) || (view::ExStyle(window) & WS_EX_CLIENTEDGE);
}

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

void EditPeer::Apply(Aspects aspects) {
    Peer::Apply(aspects);
    const QScopedValueRollback showing(m_isShowing, true);
    if (aspects & Aspect::Enabled)
        Outer().setEnabled(view::IsSwitchedOn(Window()));
    if (aspects & (Aspect::Text | Aspect::State))
        ShowContent();
}

// The signals also come for what Apply sets, which is no news. The widget then shows what the window made of
// the report: a character outside the code page, for instance, has become a question mark.
void EditPeer::Report() {
    if (m_isShowing || !Window())
        return;
    const Busy busy(*this);
    const Content content = ReadContent();
    input::Edited(Window(), FromQString(content.text), content.start, content.end);
    if (Window() && TextOf(Window()) != content.text)
        Apply(Aspect::Text);
}

LineEditPeer::LineEditPeer(PeerContext& context, HWND window, QWidget* parent)
    : LineEditPeer(context, window, *new QLineEdit(parent)) {}

LineEditPeer::LineEditPeer(PeerContext& context, HWND window, QLineEdit& edit)
    : EditPeer(context, window, edit), m_edit(edit) {
    m_edit.setFrame(HasBorder(window));
    if (view::Style(window) & ES_PASSWORD)
        m_edit.setEchoMode(QLineEdit::Password);
    if (view::Style(window) & ES_NUMBER)
        m_edit.setValidator(
            new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), &m_edit));
    ReportOn(m_edit, &QLineEdit::textEdited, &QLineEdit::selectionChanged, &QLineEdit::cursorPositionChanged);
}

void LineEditPeer::ShowContent() {
    const QString text = TextOf(Window());
    const view::EditView state = view::Edit(Window());
    const int length = static_cast<int>(text.size());
    // A limit is one of typing: a longer text that the program sets stays whole.
    m_edit.setMaxLength(std::max(state.limit > 0 ? state.limit : Unlimited, length));
    m_edit.setReadOnly(state.readOnly);
    if (m_edit.text() != text)
        m_edit.setText(text); // forgets what could be undone, so only when it differs
    if (state.selectionStart == state.selectionEnd)
        m_edit.setCursorPosition(state.selectionStart);
    else if (m_edit.selectionStart() != state.selectionStart ||
             m_edit.selectionLength() != state.selectionEnd - state.selectionStart)
        m_edit.setSelection(state.selectionStart, state.selectionEnd - state.selectionStart);
}

EditPeer::Content LineEditPeer::ReadContent() const {
    if (m_edit.hasSelectedText())
        return {m_edit.text(), m_edit.selectionStart(), m_edit.selectionEnd()};
    return {m_edit.text(), m_edit.cursorPosition(), m_edit.cursorPosition()};
}

TextEditPeer::TextEditPeer(PeerContext& context, HWND window, QWidget* parent)
    : TextEditPeer(context, window, *new QPlainTextEdit(parent)) {}

TextEditPeer::TextEditPeer(PeerContext& context, HWND window, QPlainTextEdit& edit)
    : EditPeer(context, window, edit), m_edit(edit) {
    Watch(*m_edit.viewport());
    m_edit.setTabChangesFocus(false);
    if (!HasBorder(window))
        m_edit.setFrameStyle(QFrame::NoFrame);
    ReportOn(m_edit, &QPlainTextEdit::textChanged, &QPlainTextEdit::selectionChanged,
             &QPlainTextEdit::cursorPositionChanged);
}

void TextEditPeer::ShowContent() {
    const QString text = TextOf(Window());
    const view::EditView state = view::Edit(Window());
    m_edit.setReadOnly(state.readOnly);
    if (m_edit.toPlainText() != ToLines(text))
        m_edit.setPlainText(ToLines(text));
    QTextCursor cursor = m_edit.textCursor();
    cursor.setPosition(ToLinesPosition(text, state.selectionStart));
    cursor.setPosition(ToLinesPosition(text, state.selectionEnd), QTextCursor::KeepAnchor);
    m_edit.setTextCursor(cursor);
}

EditPeer::Content TextEditPeer::ReadContent() const {
    const QString lines = m_edit.toPlainText();
    const QTextCursor cursor = m_edit.textCursor();
    return {FromLines(lines), ToWindowPosition(lines, cursor.selectionStart()),
            ToWindowPosition(lines, cursor.selectionEnd())};
}

} // namespace korvel::internal

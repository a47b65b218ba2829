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

namespace korvel::qt {

namespace {

constexpr int Unlimited = 32767; // what the widget itself holds at most by default

bool HasBorder(HWND window) {
    return (view::Style(window) & WS_BORDER) || (view::ExStyle(window) & WS_EX_CLIENTEDGE);
}

// A text of several lines has "\r\n" between them in memory and "\n" in the widget, so positions differ by
// one for each line before.
QString ToLines(QString text) {
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

CString FromLines(QString lines) {
    return FromQString(lines.replace(QLatin1Char('\n'), QLatin1String("\r\n")));
}

int ToMemory(const QString& lines, int position) {
    return position + static_cast<int>(lines.left(position).count(QLatin1Char('\n')));
}

int FromMemory(const QString& text, int position) {
    return position - static_cast<int>(text.left(position).count(QLatin1Char('\r')));
}

} // namespace

EditPeer::EditPeer(Desktop& desktop, HWND window, QWidget* parent)
    : EditPeer(desktop, window, *new QLineEdit(parent)) {}

EditPeer::EditPeer(Desktop& desktop, HWND window, QLineEdit& edit)
    : Peer(desktop, window, edit, edit), m_edit(edit) {
    m_edit.setFrame(HasBorder(window));
    if (view::Style(window) & ES_PASSWORD)
        m_edit.setEchoMode(QLineEdit::Password);
    if (view::Style(window) & ES_NUMBER)
        m_edit.setValidator(
            new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), &m_edit));
    connect(
        &m_edit, &QLineEdit::textEdited, this, [this] { Report(); });
    connect(
        &m_edit, &QLineEdit::selectionChanged, this, [this] { Report(); });
    connect(&m_edit, &QLineEdit::cursorPositionChanged, this, [this] { Report(); });
}

void EditPeer::Apply(Aspects aspects) {
    Peer::Apply(aspects);
    const QScopedValueRollback reading(m_reading, true);
    if (aspects & Aspect::Enabled)
        m_edit.setEnabled(view::IsSwitchedOn(Window()));
    if (aspects & (Aspect::Text | Aspect::State))
        ShowState();
}

void EditPeer::ShowState() {
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

// What the program sets is heard here as well, and is no news. What memory made of the report stands in
// the widget afterwards: a character outside the code page, for instance, is a question mark.
void EditPeer::Report() {
    if (m_reading || !Window())
        return;
    const Busy busy(*this);
    const bool selected = m_edit.hasSelectedText();
    const int start = selected ? m_edit.selectionStart() : m_edit.cursorPosition();
    const int end = selected ? m_edit.selectionEnd() : start;
    input::Edited(Window(), FromQString(m_edit.text()), start, end);
    if (Window() && TextOf(Window()) != m_edit.text())
        Apply(Aspect::Text);
}

TextPeer::TextPeer(Desktop& desktop, HWND window, QWidget* parent)
    : TextPeer(desktop, window, *new QPlainTextEdit(parent)) {}

TextPeer::TextPeer(Desktop& desktop, HWND window, QPlainTextEdit& edit)
    : Peer(desktop, window, edit, edit), m_edit(edit) {
    Watch(*m_edit.viewport());
    m_edit.setTabChangesFocus(false);
    if (!HasBorder(window))
        m_edit.setFrameStyle(QFrame::NoFrame);
    connect(
        &m_edit, &QPlainTextEdit::textChanged, this, [this] { Report(); });
    connect(
        &m_edit, &QPlainTextEdit::selectionChanged, this, [this] { Report(); });
    connect(&m_edit, &QPlainTextEdit::cursorPositionChanged, this, [this] { Report(); });
}

void TextPeer::Apply(Aspects aspects) {
    Peer::Apply(aspects);
    const QScopedValueRollback reading(m_reading, true);
    if (aspects & Aspect::Enabled)
        m_edit.setEnabled(view::IsSwitchedOn(Window()));
    if (aspects & (Aspect::Text | Aspect::State))
        ShowState();
}

void TextPeer::ShowState() {
    const QString text = TextOf(Window());
    const view::EditView state = view::Edit(Window());
    m_edit.setReadOnly(state.readOnly);
    if (m_edit.toPlainText() != ToLines(text))
        m_edit.setPlainText(ToLines(text));
    QTextCursor cursor = m_edit.textCursor();
    cursor.setPosition(FromMemory(text, state.selectionStart));
    cursor.setPosition(FromMemory(text, state.selectionEnd), QTextCursor::KeepAnchor);
    m_edit.setTextCursor(cursor);
}

void TextPeer::Report() {
    if (m_reading || !Window())
        return;
    const Busy busy(*this);
    const QString lines = m_edit.toPlainText();
    const QTextCursor cursor = m_edit.textCursor();
    input::Edited(Window(), FromLines(lines), ToMemory(lines, cursor.selectionStart()),
                  ToMemory(lines, cursor.selectionEnd()));
    if (Window() && ToLines(TextOf(Window())) != lines)
        Apply(Aspect::Text);
}

} // namespace korvel::qt

#include "korvel/qt/qt_display.h"

#include "korvel/qt/convert.h"
#include "korvel/qt/desktop_theme.h"
#include "korvel/qt/display_parts.h"
#include "korvel/qt/embed_frame.h"
#include "korvel/qt/event_wait.h"
#include "korvel/qt/list_interface.h"
#include "korvel/qt/make_peer.h"
#include "korvel/qt/open_path.h"
#include "korvel/qt/picture_file.h"
#include "korvel/qt/questions.h"
#include "korvel/qt/surface_interface.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <algorithm>

namespace korvel::qt {

using namespace internal;

namespace {

// Codes of the mouse buttons among the keys.
constexpr UINT LeftButtonKey = 0x01;
constexpr UINT RightButtonKey = 0x02;
constexpr UINT MiddleButtonKey = 0x04;

// Timers of Qt count in 32 bits. An alarm that comes too early finds no timer due, and the next is set.
constexpr std::chrono::milliseconds LongestWait = std::chrono::hours(24);

bool IsDown(UINT key) {
    const Qt::KeyboardModifiers modifiers = QGuiApplication::keyboardModifiers();
    const Qt::MouseButtons buttons = QGuiApplication::mouseButtons();
    switch (key) {
    case VK_SHIFT:
        return modifiers.testFlag(Qt::ShiftModifier);
    case VK_CONTROL:
        return modifiers.testFlag(Qt::ControlModifier);
    case VK_MENU:
        return modifiers.testFlag(Qt::AltModifier);
    case LeftButtonKey:
        return buttons.testFlag(Qt::LeftButton);
    case RightButtonKey:
        return buttons.testFlag(Qt::RightButton);
    case MiddleButtonKey:
        return buttons.testFlag(Qt::MiddleButton);
    default:
        return false;
    }
}

} // namespace

QtDisplay::Parts::Parts() {
    alarm.setSingleShot(true);
    alarm.setTimerType(Qt::PreciseTimer);
    QObject::connect(&alarm, &QTimer::timeout, [] { input::FireTimers(); });
    clock.start();
}

void QtDisplay::Parts::WakeUp() {
    if (awake.exchange(true))
        return;
    QMetaObject::invokeMethod(
        &receiver,
        [this] {
            awake = false;
            input::DispatchMessages();
        },
        Qt::QueuedConnection);
}

QWidget* QtDisplay::Parts::TopOf(HWND window) const {
    const Peer* peer = context.peers.Find(window);
    QWidget* top = peer ? peer->Content().window() : QApplication::activeWindow();
    while (top && top->windowType() == Qt::ToolTip && top->parentWidget())
        top = top->parentWidget()->window();
    return top;
}

QtDisplay::QtDisplay() : m_parts(std::make_unique<Parts>()) {
    QAccessible::installFactory(ListInterface::Make);
    QAccessible::installFactory(SurfaceInterface::Make);
}

QtDisplay::~QtDisplay() {
    // The windows keep their focus, whatever Qt does to that of their widgets.
    const FocusTracker::Question silence(m_parts->context.focus, nullptr);
    if (&Display() == this)
        SetDisplay(nullptr);
    for (Peer* peer : m_parts->context.peers.All())
        peer->Detach();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QWidget* QtDisplay::WidgetOf(HWND window) const {
    const Peer* peer = m_parts->context.peers.Find(window);
    return peer ? &peer->Content() : nullptr;
}

// --- windows ---

void QtDisplay::Created(HWND window) {
    if (m_parts->context.peers.Find(window))
        return;
    if (m_parts->siteToShow)
        new SitePeer(m_parts->context, window, *m_parts->siteToShow);
    else
        MakePeer(m_parts->context, window);
}

void QtDisplay::Destroyed(HWND window) {
    if (Peer* peer = m_parts->context.peers.Find(window))
        peer->Detach();
}

void QtDisplay::Changed(HWND window, Aspects aspects) {
    if (Peer* peer = m_parts->context.peers.Find(window))
        peer->Apply(aspects);
}

void QtDisplay::Invalidate(HWND window, const CRect& rect) {
    if (Peer* peer = m_parts->context.peers.Find(window))
        peer->Invalidate(rect);
}

void QtDisplay::RowsChanged(HWND list, int first, int removed, int inserted) {
    if (Peer* peer = m_parts->context.peers.Find(list))
        peer->FollowRows(first, removed, inserted);
}

void QtDisplay::Focus(HWND window) {
    m_parts->context.focus.Show(window);
    m_parts->context.announcer.Note();
}

bool QtDisplay::LeaveByTab(HWND topLevel, bool previous) {
    Peer* peer = m_parts->context.peers.Find(topLevel);
    return peer && peer->LeaveByTab(previous);
}

// Nothing to do: Qt sends all mouse events to the widget that was pressed, and the window model passes them
// on. A grab would take the mouse from the rest of the desktop.
void QtDisplay::Capture(HWND) {}

// --- time and waiting ---

void QtDisplay::Wake() {
    m_parts->WakeUp();
}

void QtDisplay::Alarm(std::optional<std::chrono::milliseconds> when) {
    if (when)
        m_parts->alarm.start(std::clamp(*when - Now(), std::chrono::milliseconds(0), LongestWait));
    else
        m_parts->alarm.stop();
}

std::chrono::milliseconds QtDisplay::Now() {
    return std::chrono::milliseconds(m_parts->clock.elapsed());
}

void QtDisplay::RunUntil(HWND modal, const std::function<bool()>& done) {
    if (Peer* peer = m_parts->context.peers.Find(modal))
        peer->ShowModal();
    WaitUntil(done);
}

// --- questions ---

int QtDisplay::MessageBox(HWND owner, const CString& text, const CString& caption, UINT type) {
    if (m_parts->context.isPainting) {
        // A failure of painting: Qt cannot show a box before it is over.
        QTimer::singleShot(0, &m_parts->receiver, [=, this] { MessageBox(owner, text, caption, type); });
        return IDOK;
    }
    QWidget* top = m_parts->TopOf(owner);
    const FocusTracker::Question question(m_parts->context.focus, top);
    return AskMessage(top, text, caption, type);
}

unsigned QtDisplay::TrackMenu(HWND owner, CPoint screen, const std::vector<MenuEntry>& entries) {
    QWidget* top = m_parts->TopOf(owner);
    const FocusTracker::Question question(m_parts->context.focus, top);
    return AskMenu(top, WidgetOf(owner), screen, entries);
}

std::optional<COLORREF> QtDisplay::ChooseColor(HWND owner, COLORREF color) {
    QWidget* top = m_parts->TopOf(owner);
    const FocusTracker::Question question(m_parts->context.focus, top);
    return AskColor(top, color);
}

std::optional<CString> QtDisplay::ChooseFile(HWND owner, const FileQuery& query) {
    QWidget* top = m_parts->TopOf(owner);
    const FocusTracker::Question question(m_parts->context.focus, top);
    return AskFile(top, query);
}

FolderAnswer QtDisplay::ChooseFolder(HWND owner, const FolderQuery& query) {
    QWidget* top = m_parts->TopOf(owner);
    const FocusTracker::Question question(m_parts->context.focus, top);
    return AskFolder(top, query);
}

int QtDisplay::OpenPath(HWND owner, const CString& path, OpenAs as) {
    return OpenOnDesktop(m_parts->TopOf(owner), ToQString(path), as);
}

// --- facts ---

int QtDisplay::TextWidth(const CString& text) {
    return internal::TextWidth(text);
}

CPoint QtDisplay::ToScreen(HWND window, CPoint client) {
    const Peer* peer = m_parts->context.peers.Find(window);
    if (!peer)
        return client;
    return FromQPoint(peer->Content().mapToGlobal(QPoint(client.x, client.y)));
}

int QtDisplay::KeyState(UINT key) {
    return IsDown(key) ? KeyIsDown : 0;
}

CPoint QtDisplay::Pointer() {
    return FromQPoint(m_parts->context.mouse.Position());
}

COLORREF QtDisplay::SysColor(int index) {
    return SystemColor(index);
}

int QtDisplay::Metric(int index) {
    return SystemMetric(index);
}

std::vector<CRect> QtDisplay::Screens() {
    return ScreenRectangles();
}

void QtDisplay::SetCursor(int cursor) {
    m_parts->context.mouse.SetCursor(cursor);
}

// Qt says nothing itself: who could not become the owner finds another's data there.
ClipboardAnswer QtDisplay::SetClipboardText(const CString& text) {
    QClipboard* clipboard = QGuiApplication::clipboard();
    auto* data = new QMimeData;
    data->setText(ToQString(text));
    clipboard->setMimeData(data); // which owns it now
    const bool isOurs = clipboard->mimeData() == data;
    return {isOurs ? ClipboardAnswer::Outcome::Set : ClipboardAnswer::Outcome::NotOpened};
}

std::optional<CString> QtDisplay::ClipboardText() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (!data || !data->hasText())
        return std::nullopt;
    return FromQString(data->text());
}

std::optional<Image> QtDisplay::LoadPicture(const CString& path, CSize room) {
    return ReadPicture(path, room);
}

} // namespace korvel::qt

#include "korvel/qt/combo_box_peer.h"

#include "korvel/qt/choice_model.h"
#include "korvel/qt/combo_box_widget.h"
#include "korvel/qt/keys.h"
#include "korvel/qt/peer_context.h"
#include "korvel/window/base/control_messages.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

#include <QApplication>
#include <QKeyEvent>

namespace korvel::internal {

namespace {

ComboBoxWidget& MakeBox(HWND window, QWidget* parent) {
    const bool hasField = (view::Style(window) & CBS_TYPEMASK) != CBS_DROPDOWNLIST;
    auto* box =
        new ComboBoxWidget(hasField ? ComboBoxWidget::Line::Field : ComboBoxWidget::Line::Entry, parent);
    // Its size is the window's: no need to measure the entries.
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return *box;
}

} // namespace

ComboBoxPeer::ComboBoxPeer(PeerContext& context, HWND window, QWidget* parent)
    : ComboBoxPeer(context, window, MakeBox(window, parent)) {}

ComboBoxPeer::ComboBoxPeer(PeerContext& context, HWND window, ComboBoxWidget& box)
    : Peer(context, window, box, box), m_box(box), m_entries(*new ChoiceModel(window, &box)) {
    m_box.setModel(&m_entries);
    m_box.onOpening = [this] {
        const Busy busy(*this);
        input::Dropped(Window(), true);
    };
    connect(&m_box, &QComboBox::activated, this, [this](int index) {
        const Busy busy(*this);
        input::Value(Window(), index);
    });
}

void ComboBoxPeer::Apply(Aspects aspects) {
    Peer::Apply(aspects);
    if (aspects & Aspect::Entries)
        m_entries.Reset();
    if (!(aspects & (Aspect::Entries | Aspect::State)))
        return;
    m_box.setCurrentIndex(view::Choice(Window()).current);
    FollowList();
    if (m_isListShown)
        m_box.view()->setCurrentIndex(m_entries.index(m_box.currentIndex()));
}

void ComboBoxPeer::FollowList() {
    const view::ChoiceView choice = view::Choice(Window());
    if (choice.isDropped == m_isListShown)
        return;
    m_isListShown = choice.isDropped;
    if (!m_isListShown)
        return m_box.hidePopup();
    m_box.setMaxVisibleItems(choice.rowsInList);
    Watch(m_box.List());
    Watch(*m_box.view());
    m_box.ShowList();
    if (!m_box.List().isVisible()) // Qt shows no empty list
        ReportClosing();
}

// A choice is signalled after the list is hidden, and closes it too: so the report waits for that.
void ComboBoxPeer::ReportClosing() {
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!Window() || !m_isListShown || m_box.List().isVisible())
                return;
            const Busy busy(*this);
            m_isListShown = false;
            input::Dropped(Window(), false);
        },
        Qt::QueuedConnection);
}

// The list takes no focus from the window model: its keys are those of the box or of its field, which types
// what nobody wants.
void ComboBoxPeer::HandOn(QKeyEvent& event) {
    const KeyInput key = TranslateKey(event);
    const int marked = key.message == WM_KEYDOWN && key.key == VK_RETURN ? Marked() : -1;
    if (marked >= 0 && marked != view::Choice(Window()).current)
        return input::Value(Window(), marked);
    const HWND focus = GetFocus();
    if (input::Key(focus, key.message, key.key, key.characters))
        return;
    if (const Peer* focused = Context().peers.Find(focus))
        QApplication::sendEvent(&focused->Content(), &event);
}

// Qt marks the entry under the pointer; the window hears of it when it is taken.
int ComboBoxPeer::Marked() const {
    const QModelIndexList marked = m_box.view()->selectionModel()->selectedIndexes();
    return marked.isEmpty() ? -1 : marked.front().row();
}

bool ComboBoxPeer::OnEvent(QWidget& widget, QEvent& event) {
    const bool isKey = event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease;
    if (&widget != &m_box) {
        if (event.type() == QEvent::Hide && &widget == &m_box.List()) {
            Context().focus.ExpectActivation(*m_box.window()); // a popup may have been the active window
            ReportClosing();
        }
        if (isKey)
            HandOn(static_cast<QKeyEvent&>(event));
        // Qt's list would take a choice before the key itself comes, which a dialog around would then act on.
        const bool isKeyToCome = event.type() == QEvent::ShortcutOverride;
        if (isKey || isKeyToCome)
            event.accept(); // or Qt would bring it once more, to the window of the list
        return isKey || isKeyToCome;
    }
    if (isKey && &widget != QApplication::focusWidget()) { // what the field did not want
        event.ignore();
        return true;
    }
    return Peer::OnEvent(widget, event) || event.type() == QEvent::Wheel;
}

} // namespace korvel::internal

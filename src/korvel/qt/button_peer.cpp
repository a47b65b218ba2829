#include "korvel/qt/button_peer.h"

#include "korvel/qt/convert.h"
#include "korvel/qt/peer_context.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>

namespace korvel::internal {

namespace {

QAbstractButton& MakeButton(HWND window, QWidget* parent) {
    switch (view::Style(window) & BS_TYPEMASK) {
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
        return *new QCheckBox(parent);
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON: {
        auto* radio = new QRadioButton(parent);
        radio->setAutoExclusive(false); // the window model knows where a group begins and ends
        return *radio;
    }
    default: {
        auto* push = new QPushButton(parent);
        push->setAutoDefault(false);
        return *push;
    }
    }
}

QWidget& MakeLabel(HWND window, QWidget* parent) {
    if (view::KindOf(window) == view::Kind::Button)
        return *new QGroupBox(parent);
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return *label;
}

} // namespace

ButtonPeer::ButtonPeer(PeerContext& context, HWND window, QWidget* parent)
    : ButtonPeer(context, window, MakeButton(window, parent)) {}

ButtonPeer::ButtonPeer(PeerContext& context, HWND window, QAbstractButton& button)
    : Peer(context, window, button, button), m_button(button) {
    connect(
        &m_button, &QAbstractButton::clicked, this, [this] { OnClicked(); });
}

void ButtonPeer::Apply(Aspects aspects) {
    Peer::Apply(aspects);
    if (aspects & Aspect::Text)
        m_button.setText(TextOf(Window()));
    if (auto* push = qobject_cast<QPushButton*>(&m_button); push && (aspects & Aspect::Style))
        push->setDefault((view::Style(Window()) & BS_TYPEMASK) == BS_DEFPUSHBUTTON);
    if (aspects & Aspect::State)
        ShowState(view::Button(Window()));
}

void ButtonPeer::ShowState(const view::ButtonView& state) {
    if (m_button.isCheckable())
        m_button.setChecked(state.check != 0);
    m_button.setIcon(state.picture ? QIcon(QPixmap::fromImage(ToQImage(*state.picture))) : QIcon());
    if (state.picture) {
        const int most = m_button.style()->pixelMetric(QStyle::PM_ButtonIconSize, nullptr, &m_button);
        m_button.setIconSize(QSize(state.picture->width, state.picture->height).boundedTo(QSize(most, most)));
    }
}

void ButtonPeer::OnClicked() {
    if (!Window())
        return;
    const Busy busy(*this);
    input::Value(Window(), m_button.isCheckable() ? m_button.isChecked() : 1);
    if (Window())
        Apply(Aspect::State);
}

LabelPeer::LabelPeer(PeerContext& context, HWND window, QWidget* parent)
    : LabelPeer(context, window, MakeLabel(window, parent)) {}

LabelPeer::LabelPeer(PeerContext& context, HWND window, QWidget& label)
    : Peer(context, window, label, label) {
    label.setAttribute(Qt::WA_TransparentForMouseEvents);
}

void LabelPeer::Apply(Aspects aspects) {
    Peer::Apply(aspects);
    if (aspects & Aspect::Text)
        FollowPaced();
}

// QLabel underlines the access key only where it has a buddy; what the key does is the dialog's matter.
void LabelPeer::Follow() {
    const QString text = TextOf(Window());
    if (auto* label = qobject_cast<QLabel*>(&Outer())) {
        if (!label->buddy() && text.contains(u'&') && !(view::Style(Window()) & SS_NOPREFIX))
            label->setBuddy(label);
        label->setText(text);
    } else {
        static_cast<QGroupBox&>(Outer()).setTitle(text);
    }
    if (Peer* field = Context().peers.Find(view::Labelled(Window())))
        field->FollowLabel();
}

void LabelPeer::SetBuddy(QWidget& field) {
    if (auto* label = qobject_cast<QLabel*>(&Outer()); label && !(view::Style(Window()) & SS_NOPREFIX))
        label->setBuddy(&field);
}

} // namespace korvel::internal

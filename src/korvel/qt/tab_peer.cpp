#include "korvel/qt/tab_peer.h"

#include "korvel/qt/convert.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

#include <QEvent>
#include <QFrame>
#include <QGuiApplication>
#include <QScopedValueRollback>
#include <QTabBar>

namespace korvel::internal {

// The bar is as large as the window, so that it carries the pages: its tabs stay at its top.
TabPeer::TabPeer(PeerContext& context, HWND window, QWidget* parent)
    : TabPeer(context, window, *new QTabBar(parent)) {}

TabPeer::TabPeer(PeerContext& context, HWND window, QTabBar& bar)
    : Peer(context, window, bar, bar), m_bar(bar), m_pane(*new QFrame(&bar)) {
    m_bar.setDrawBase(false);
    m_bar.setExpanding(false);
    m_pane.setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    m_pane.setAttribute(Qt::WA_TransparentForMouseEvents);
    m_pane.lower();
    connect(&m_bar, &QTabBar::currentChanged, this, [this](int tab) { Report(tab); });
    // The bar always has a current tab, also where the window has none.
    connect(&m_bar, &QTabBar::tabBarClicked, this, [this](int tab) {
        if (tab == m_bar.currentIndex() && (QGuiApplication::mouseButtons() & Qt::LeftButton))
            Report(tab);
    });
}

void TabPeer::Apply(Aspects aspects) {
    Peer::Apply(aspects);
    if (aspects & Aspect::Rectangle) {
        const int top = GetSystemMetrics(SM_KORVEL_TABHEIGHT);
        m_pane.setGeometry(0, top, m_bar.width(), m_bar.height() - top);
    }
    if (aspects & (Aspect::Entries | Aspect::State))
        ShowTabs();
}

void TabPeer::ShowTabs() {
    const QScopedValueRollback showing(m_isShowing, true);
    const view::ChoiceView tabs = view::Choice(Window());
    while (m_bar.count() > tabs.count)
        m_bar.removeTab(m_bar.count() - 1);
    for (int tab = 0; tab < tabs.count; ++tab) {
        const QString text = ToQString(view::ChoiceText(Window(), tab));
        if (tab == m_bar.count())
            m_bar.addTab(text);
        else if (m_bar.tabText(tab) != text)
            m_bar.setTabText(tab, text);
    }
    m_bar.setCurrentIndex(tabs.current);
}

void TabPeer::Report(int tab) {
    if (m_isShowing || !Window() || tab == view::Choice(Window()).current)
        return;
    const Busy busy(*this);
    input::Value(Window(), tab);
}

// The wheel would turn over pages.
bool TabPeer::OnEvent(QWidget& widget, QEvent& event) {
    return Peer::OnEvent(widget, event) || event.type() == QEvent::Wheel;
}

} // namespace korvel::internal

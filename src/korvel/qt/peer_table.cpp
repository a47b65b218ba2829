#include "korvel/qt/peer_table.h"

#include <QWidget>

namespace korvel::internal {

void PeerTable::Add(Peer& peer, HWND window, const QWidget& outer, const QWidget& content) {
    m_byWindow[window] = &peer;
    m_byWidget[&outer] = &peer;
    m_byWidget[&content] = &peer;
}

void PeerTable::Remove(HWND window, const QWidget& outer, const QWidget& content) {
    m_byWindow.erase(window);
    m_byWidget.erase(&outer);
    m_byWidget.erase(&content);
}

Peer* PeerTable::Find(HWND window) const {
    const auto found = m_byWindow.find(window);
    return found == m_byWindow.end() ? nullptr : found->second;
}

Peer* PeerTable::FindAt(const QWidget* widget) const {
    while (widget) {
        const auto found = m_byWidget.find(widget);
        if (found != m_byWidget.end())
            return found->second;
        widget = widget->isWindow() ? nullptr : widget->parentWidget();
    }
    return nullptr;
}

std::vector<Peer*> PeerTable::All() const {
    std::vector<Peer*> peers;
    peers.reserve(m_byWindow.size());
    for (const auto& [window, peer] : m_byWindow)
        peers.push_back(peer);
    return peers;
}

} // namespace korvel::internal

#include "korvel/qt/peer_table.h"

#include "korvel/qt/peer.h"

#include <QWidget>

namespace korvel::qt {

void PeerTable::Add(Peer& peer) {
    m_byWindow[peer.Window()] = &peer;
    m_byWidget[&peer.Outer()] = &peer;
    m_byWidget[&peer.Content()] = &peer;
}

void PeerTable::Remove(Peer& peer) {
    m_byWindow.erase(peer.Window());
    m_byWidget.erase(&peer.Outer());
    m_byWidget.erase(&peer.Content());
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

} // namespace korvel::qt

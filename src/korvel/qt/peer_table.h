#pragma once

#include "korvel/window/base/types.h"

#include <unordered_map>
#include <vector>

class QWidget;

namespace korvel::internal {

class Peer;

/// Which peer shows which window.
class PeerTable {
public:
    /// The outer and the inner widget of a peer may be the same one.
    void Add(Peer& peer, HWND window, const QWidget& outer, const QWidget& content);
    void Remove(HWND window, const QWidget& outer, const QWidget& content);

    /// Null for a window that is not shown here.
    Peer* Find(HWND window) const;
    /// The peer that a widget belongs to; null for a widget of the host. The search ends at the border of
    /// the top-level window: a box of the host is not ours, even if its object parent is.
    Peer* FindAt(const QWidget* widget) const;

    std::vector<Peer*> All() const;

private:
    std::unordered_map<HWND, Peer*> m_byWindow;
    std::unordered_map<const QWidget*, Peer*> m_byWidget;
};

} // namespace korvel::internal

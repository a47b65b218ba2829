#pragma once

#include "korvel/layout/subclass_wnd.h"

#include <unordered_map>

namespace korvel::internal {

/// The chains of hooks by window: the entry is the head of the chain, the hook that came last. Takes no lock:
/// hooks of windows of different threads must not come and go at the same moment.
class CSubclassWndMap {
public:
    static CSubclassWndMap& Instance();

    /// The first hook in a window's chain, or null.
    CSubclassWnd* Head(HWND window) const;
    void Add(CSubclassWnd& hook, HWND window);
    void Remove(CSubclassWnd& hook);
    /// The first hook of the chain that is older than `age`, or null.
    CSubclassWnd* OlderThan(HWND window, std::uint64_t age) const;

private:
    static LRESULT HookProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT End(HWND window, WPARAM wParam, LPARAM lParam);

    std::unordered_map<HWND, CSubclassWnd*> m_heads;
    std::uint64_t m_hookings = 0;
};

} // namespace korvel::internal

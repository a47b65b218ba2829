#pragma once

#include "korvel/layout/item.h"

#include <memory>
#include <vector>

namespace korvel {

class CDC;
struct MINMAXINFO;

/// How a window of a layout answers its size message.
enum class LayoutForm { Page, Dialog };

/// What CLayoutManager does for a window that it knows by its handle only.
class KORVEL_API LayoutManagerBase {
public:
    IItem* root = nullptr; // the tree of the layout, owned
    RECT clientRect;       // the host's at initialization: the design size
    RECT windowRect;
    bool scrollEnabled = false;  // a client area below the design size gets scroll bars
    bool inScrollUpdate = false; // the bars are changing: their size messages are ignored
    bool hBarShown = false;
    bool vBarShown = false;

    LayoutManagerBase(const LayoutManagerBase&) = delete;
    LayoutManagerBase& operator=(const LayoutManagerBase&) = delete;

protected:
    LayoutManagerBase() = default;
    ~LayoutManagerBase();

    void InitializeLayout(HWND host);
    void ResizeLayout(HWND host, LayoutForm form, int cx, int cy);
    void ScrollLayout(HWND host, int bar, UINT code, int thumb);
    bool LimitTrackSize(MINMAXINFO& limits) const;
    bool EraseLayout(HWND host, CDC* dc) const;
    void DestroyLayout();

private:
    void LayOut(HWND host, RECT rect);
    RECT UpdateScrollBars(HWND host, RECT rect, bool hTried, bool vTried);

    int m_moves = 0;                                // MoveTo of the root that are running
    std::vector<std::unique_ptr<IItem>> m_finished; // roots that ended meanwhile
};

} // namespace korvel

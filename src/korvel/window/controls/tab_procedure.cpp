#include "korvel/platform/code_page.h"
#include "korvel/platform/first_failure.h"
#include "korvel/window/controls/tab_ctrl.h"
#include "korvel/window/core/client_area.h"
#include "korvel/window/core/display.h"
#include "korvel/window/core/input_delivery.h"
#include "korvel/window/core/window_changes.h"
#include "korvel/window/core/window_class.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>
#include <vector>

namespace korvel::internal {

namespace {

constexpr int None = -1;
constexpr int TabMargin = 10; // left and right of the text of a tab
constexpr int PageMargin = 4; // round the room for a page

struct Tab {
    CString text;
    int image = -1;
    LPARAM data = 0;
};

class TabState : public ControlState {
public:
    explicit TabState(WindowRecord& window) : record(window) {}

    view::Kind Kind() const override { return view::Kind::Tabs; }
    view::ChoiceView Choice() const override { return {Count(), current}; }
    CString ChoiceText(int index) const override { return Has(index) ? At(index).text : CString(); }
    void Value(double value) override;

    int Count() const { return static_cast<int>(tabs.size()); }
    bool Has(int tab) const { return tab >= 0 && tab < Count(); }
    Tab& At(int tab) { return tabs[static_cast<std::size_t>(tab)]; }
    const Tab& At(int tab) const { return tabs[static_cast<std::size_t>(tab)]; }

    WindowRecord& record;
    std::vector<Tab> tabs;
    int current = None;
};

// The user takes a tab.
void Take(TabState& control, int tab) {
    if (!control.Has(tab) || tab == control.current)
        return;
    const HWND window = control.record.handle;
    NMHDR notice;
    bool isRefused = true; // also by a handler that fails
    FirstFailure failure;
    failure.Try([&] { isRefused = NotifyParent(window, TCN_SELCHANGING, notice) != 0; });
    if (!isRefused && control.Has(tab))
        control.current = tab;
    TellDisplay(control.record, Aspect::State); // a widget may show another one
    if (!isRefused)
        NotifyParent(window, TCN_SELCHANGE, notice);
    failure.Rethrow();
}

// --- tabs ---

void Fill(Tab& tab, const TCITEM& item) {
    if ((item.mask & TCIF_TEXT) && item.pszText)
        tab.text = item.pszText;
    if (item.mask & TCIF_IMAGE)
        tab.image = item.iImage;
    if (item.mask & TCIF_PARAM)
        tab.data = item.lParam;
}

LRESULT Insert(TabState& control, int index, LPARAM item) {
    if (index < 0 || !item)
        return None;
    index = std::min(index, control.Count());
    Fill(*control.tabs.emplace(control.tabs.begin() + index), *reinterpret_cast<const TCITEM*>(item));
    if (control.Count() == 1)
        control.current = 0;
    else if (control.current >= index)
        ++control.current;
    TellDisplay(control.record, Aspect::Entries);
    return index;
}

LRESULT Delete(TabState& control, int index) {
    if (!control.Has(index))
        return 0;
    control.tabs.erase(control.tabs.begin() + index);
    if (control.current == index)
        control.current = None;
    else if (control.current > index)
        --control.current;
    TellDisplay(control.record, Aspect::Entries);
    return 1;
}

LRESULT DeleteAll(TabState& control) {
    control.tabs.clear();
    control.current = None;
    TellDisplay(control.record, Aspect::Entries);
    return 1;
}

LRESULT SetItem(TabState& control, int index, LPARAM item) {
    if (!control.Has(index) || !item)
        return 0;
    Fill(control.At(index), *reinterpret_cast<const TCITEM*>(item));
    TellDisplay(control.record, Aspect::Entries);
    return 1;
}

LRESULT GetItem(const TabState& control, int index, LPARAM address) {
    if (!control.Has(index) || !address)
        return 0;
    auto& item = *reinterpret_cast<TCITEM*>(address);
    const Tab& tab = control.At(index);
    if ((item.mask & TCIF_TEXT) && item.pszText && item.cchTextMax > 0) {
        const auto copied = platform::CutCharacters(tab.text, static_cast<std::size_t>(item.cchTextMax) - 1);
        std::memcpy(item.pszText, copied.data(), copied.size());
        item.pszText[copied.size()] = '\0';
    }
    if (item.mask & TCIF_IMAGE)
        item.iImage = tab.image;
    if (item.mask & TCIF_PARAM)
        item.lParam = tab.data;
    return 1;
}

LRESULT SetCurrent(TabState& control, int index) {
    if (index != None && !control.Has(index))
        return None;
    const int former = std::exchange(control.current, index);
    TellDisplay(control.record, Aspect::State);
    return former;
}

// --- geometry ---

LRESULT GetRect(const TabState& control, int index, LPARAM rect) {
    if (!control.Has(index) || !rect)
        return 0;
    int left = 0;
    for (int tab = 0; tab < index; ++tab)
        left += Display().TextWidth(control.At(tab).text) + 2 * TabMargin;
    const int width = Display().TextWidth(control.At(index).text) + 2 * TabMargin;
    *reinterpret_cast<CRect*>(rect) = {left, 0, left + width, GetSystemMetrics(SM_KORVEL_TABHEIGHT)};
    return 1;
}

int TabAt(const TabState& control, CPoint point) {
    if (point.y < 0 || point.y >= GetSystemMetrics(SM_KORVEL_TABHEIGHT) || point.x < 0)
        return None;
    int left = 0;
    for (int tab = 0; tab < control.Count(); ++tab) {
        left += Display().TextWidth(control.At(tab).text) + 2 * TabMargin;
        if (point.x < left)
            return tab;
    }
    return None;
}

LRESULT Adjust(bool isLarger, LPARAM address) {
    if (!address)
        return 0;
    auto& rect = *reinterpret_cast<CRect*>(address);
    rect = Placeable(rect);
    const int direction = isLarger ? -1 : 1;
    rect.DeflateRect(direction * PageMargin, direction * PageMargin);
    rect.top += direction * GetSystemMetrics(SM_KORVEL_TABHEIGHT);
    return 0;
}

LRESULT HitTest(const TabState& control, LPARAM info) {
    return info ? TabAt(control, reinterpret_cast<const TCHITTESTINFO*>(info)->pt) : None;
}

// --- keys and mouse ---

bool PressKey(TabState& control, UINT key) {
    switch (key) {
    case VK_LEFT:
    case VK_UP:
        return Take(control, control.current - 1), true;
    case VK_RIGHT:
    case VK_DOWN:
        return Take(control, control.current + 1), true;
    case VK_HOME:
        return Take(control, 0), true;
    case VK_END:
        return Take(control, control.Count() - 1), true;
    default:
        return false;
    }
}

std::optional<LRESULT> HandleMouse(TabState& control, UINT message, WPARAM wParam, LPARAM lParam) {
    const bool isPress = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
    const HWND window = control.record.handle;
    if (isPress)
        SetFocus(window);
    if (LeaveToNativeWidget(window, message, wParam, lParam))
        return 0;
    if (!isPress)
        return std::nullopt;
    Take(control, TabAt(control, PointOf(lParam)));
    return 0;
}

std::optional<LRESULT> HandleTabMessage(TabState& control, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto index = static_cast<int>(wParam);
    switch (message) {
    case TCM_GETITEMCOUNT:
        return control.Count();
    case TCM_INSERTITEM:
        return Insert(control, index, lParam);
    case TCM_SETITEM:
        return SetItem(control, index, lParam);
    case TCM_GETITEM:
        return GetItem(control, index, lParam);
    case TCM_DELETEITEM:
        return Delete(control, index);
    case TCM_DELETEALLITEMS:
        return DeleteAll(control);
    case TCM_GETCURSEL:
        return control.current;
    case TCM_SETCURSEL:
        return SetCurrent(control, index);
    case TCM_GETITEMRECT:
        return GetRect(control, index, lParam);
    case TCM_HITTEST:
        return HitTest(control, lParam);
    case TCM_ADJUSTRECT:
        return Adjust(wParam != 0, lParam);
    default:
        return std::nullopt;
    }
}

std::optional<LRESULT> HandleWindow(TabState& control, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE: // Tab leads into its pages
        control.record.exStyle |= WS_EX_CONTROLPARENT;
        return 0;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_KEYDOWN:
        return PressKey(control, static_cast<UINT>(wParam)) ? std::optional<LRESULT>(0) : std::nullopt;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_LBUTTONUP:
    case WM_MOUSEMOVE:
        return HandleMouse(control, message, wParam, lParam);
    default:
        return std::nullopt;
    }
}

LRESULT TabProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (const ControlOf<TabState> control(window); control) {
        for (const auto handle : {HandleWindow, HandleTabMessage})
            if (const auto answer = handle(*control, message, wParam, lParam))
                return *answer;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

[[maybe_unused]] const bool Registered = RegisterControlClass<TabState>("SysTabControl32", TabProcedure);

void TabState::Value(double value) {
    if (value >= 0 && value < Count())
        Take(*this, static_cast<int>(value));
}

} // namespace

} // namespace korvel::internal

#include "korvel/window/controls/combo_choice.h"
#include "korvel/window/controls/combo_edit.h"
#include "korvel/window/controls/combo_keyboard.h"
#include "korvel/window/core/input_delivery.h"
#include "korvel/window/core/window_changes.h"
#include "korvel/window/core/window_class.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

namespace korvel::internal {

namespace {

constexpr int LineMargins = 8; // above and below the text of the line, together

const char* TextAt(LPARAM address) {
    return address ? reinterpret_cast<const char*>(address) : "";
}

// --- entries ---

LRESULT Insert(ComboBoxState& box, int index, const char* text) {
    if (index < ComboEntries::None || index > box.entries.Size())
        return CB_ERR;
    if (index == ComboEntries::None)
        index = box.entries.Size();
    box.entries.Insert(index, text);
    for (int* followed : {&box.current, &box.currentAtDrop})
        *followed += *followed >= index ? 1 : 0;
    TellDisplay(box.record, Aspect::Entries | Aspect::State);
    return index;
}

LRESULT Add(ComboBoxState& box, const char* text) {
    const bool isSorted = (box.record.style & CBS_SORT) != 0;
    return Insert(box, isSorted ? box.entries.SortedPlace(text) : box.entries.Size(), text);
}

LRESULT Delete(ComboBoxState& box, int index) {
    if (!box.entries.Has(index))
        return CB_ERR;
    box.entries.Erase(index);
    const bool wasCurrent = box.current == index;
    for (int* followed : {&box.current, &box.currentAtDrop})
        *followed = *followed == index ? ComboEntries::None : *followed - (*followed > index ? 1 : 0);
    if (wasCurrent && !box.edit)
        SetText(box, {});
    TellDisplay(box.record, Aspect::Entries | Aspect::State);
    return box.entries.Size();
}

LRESULT Reset(ComboBoxState& box) {
    box.entries.Clear();
    box.currentAtDrop = ComboEntries::None;
    Select(box, ComboEntries::None);
    TellDisplay(box.record, Aspect::Entries);
    return 0;
}

LRESULT SetCurrent(ComboBoxState& box, int index) {
    if (index != ComboEntries::None && !box.entries.Has(index))
        return CB_ERR;
    Select(box, index);
    return index;
}

LRESULT SelectText(ComboBoxState& box, int after, const char* text) {
    const int found = box.entries.Find(after, text, ComboEntries::Match::Beginning);
    return found == ComboEntries::None ? CB_ERR : SetCurrent(box, found);
}

LRESULT CopyText(const ComboBoxState& box, int index, LPARAM buffer) {
    if (!box.entries.Has(index))
        return CB_ERR;
    const CString& text = box.entries[index].text;
    if (buffer)
        std::memcpy(reinterpret_cast<char*>(buffer), text.c_str(), text.size() + 1);
    return static_cast<LRESULT>(text.size());
}

LRESULT SetData(ComboBoxState& box, int index, LPARAM data) {
    if (!box.entries.Has(index))
        return CB_ERR;
    box.entries[index].data = data;
    return 0;
}

std::optional<LRESULT> HandleEntries(ComboBoxState& box, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto index = static_cast<int>(wParam);
    switch (message) {
    case CB_GETCOUNT:
        return box.entries.Size();
    case CB_ADDSTRING:
        return Add(box, TextAt(lParam));
    case CB_INSERTSTRING:
        return Insert(box, index, TextAt(lParam));
    case CB_DELETESTRING:
        return Delete(box, index);
    case CB_RESETCONTENT:
        return Reset(box);
    case CB_GETCURSEL:
        return box.current;
    case CB_SETCURSEL:
        return SetCurrent(box, index);
    case CB_FINDSTRING:
        return box.entries.Find(index, TextAt(lParam), ComboEntries::Match::Beginning);
    case CB_FINDSTRINGEXACT:
        return box.entries.Find(index, TextAt(lParam), ComboEntries::Match::Whole);
    case CB_SELECTSTRING:
        return SelectText(box, index, TextAt(lParam));
    case CB_GETLBTEXT:
        return CopyText(box, index, lParam);
    case CB_GETLBTEXTLEN:
        return CopyText(box, index, 0);
    case CB_GETITEMDATA:
        return box.entries.Has(index) ? box.entries[index].data : CB_ERR;
    case CB_SETITEMDATA:
        return SetData(box, index, lParam);
    case CB_SHOWDROPDOWN:
        return wParam ? Open(box) : Close(box, Closing::Cancel), 1;
    case CB_GETDROPPEDSTATE:
        return box.isDropped;
    default:
        return std::nullopt;
    }
}

// --- the window ---

// A box that drops its list is as high as its line; what it is given beyond that is the list's.
void TakeHeight(ComboBoxState& box) {
    const int line = GetSystemMetrics(SM_KORVEL_TEXTHEIGHT) + LineMargins;
    CRect rect = box.record.rect;
    if (!box.IsSimple() && rect.Height() != line) {
        box.listHeight = std::max(0, rect.Height() - line);
        rect.bottom = rect.top + line;
        MoveWindow(box.record.handle, rect);
    }
    PlaceEdit(box);
}

LRESULT TakeFocus(const ComboBoxState& box) {
    if (box.edit) { // which tells it
        SetFocus(box.edit);
        SendMessageA(box.edit, EM_SETSEL, 0, -1);
    } else {
        NotifyParentCommand(box.record.handle, CBN_SETFOCUS);
    }
    return 0;
}

void PressMouse(ComboBoxState& box) {
    if (box.isDropped)
        Close(box, Closing::Cancel);
    else
        Open(box);
}

std::optional<LRESULT> HandleMouse(ComboBoxState& box, UINT message, WPARAM wParam, LPARAM lParam) {
    const bool isPress = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
    if (isPress)
        SetFocus(box.record.handle);
    if (LeaveToNativeWidget(box.record.handle, message, wParam, lParam))
        return 0;
    if (!isPress)
        return std::nullopt;
    PressMouse(box);
    return 0;
}

// Only with the focus, so that a box under the pointer does not change while its dialog scrolls.
std::optional<LRESULT> TurnWheel(ComboBoxState& box, WPARAM wParam) {
    const HWND focus = GetFocus();
    if (!focus || (focus != box.record.handle && focus != box.edit))
        return std::nullopt;
    const auto delta = static_cast<std::int16_t>(HIWORD(wParam));
    if (delta != 0)
        MoveTo(box, box.current + (delta < 0 ? 1 : -1));
    return 0;
}

std::optional<LRESULT> HandleWindow(ComboBoxState& box, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        return CreateEdit(box), 0;
    case WM_SIZE:
        return TakeHeight(box), 0;
    case WM_SETFOCUS:
        return TakeFocus(box);
    case WM_KILLFOCUS:
        if (!box.edit)
            LoseFocus(box);
        return 0;
    case WM_ENABLE:
        EnableWindow(box.edit, wParam != 0);
        return 0;
    case WM_SETFONT:
        SendMessageA(box.edit, message, wParam, lParam);
        return std::nullopt;
    case WM_COMMAND:
        return HearEdit(box, wParam, lParam) ? std::optional<LRESULT>(0) : std::nullopt;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS | KeysOfOpenList(box, wParam);
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        return PressKey(box, message, static_cast<UINT>(wParam)) ? std::optional<LRESULT>(0) : std::nullopt;
    case WM_CHAR:
        return TypeCharacter(box, wParam) ? std::optional<LRESULT>(0) : std::nullopt;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_LBUTTONUP:
    case WM_MOUSEMOVE:
        return HandleMouse(box, message, wParam, lParam);
    case WM_MOUSEWHEEL:
        return TurnWheel(box, wParam);
    default:
        return std::nullopt;
    }
}

LRESULT ComboBoxProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (const ControlOf<ComboBoxState> box(window); box) {
        for (const auto handle : {HandleWindow, HandleText, HandleEntries})
            if (const auto answer = handle(*box, message, wParam, lParam))
                return *answer;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

[[maybe_unused]] const bool Registered = RegisterControlClass<ComboBoxState>("COMBOBOX", ComboBoxProcedure);

} // namespace

} // namespace korvel::internal

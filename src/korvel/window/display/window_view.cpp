#include "korvel/window/display/window_view.h"

#include "korvel/platform/error.h"
#include "korvel/values/language.h"
#include "korvel/window/base/access_mark.h"
#include "korvel/window/core/client_area.h"
#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/uncaught.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_rectangle.h"
#include "korvel/window/core/window_table.h"

#include <algorithm>
#include <iterator>

namespace korvel::view {

using namespace internal;

namespace {

// What the object of a list has to say, too. No other window is asked, for which the message may have another
// meaning.
LRESULT AskList(HWND window, UINT message, WPARAM wParam, void* answer) {
    LRESULT result = 0;
    if (KindOf(window) == Kind::List)
        Guarded([&] { result = SendMessageA(window, message, wParam, reinterpret_cast<LPARAM>(answer)); });
    return result;
}

std::optional<CellView> AskCell(HWND window, WPARAM by, CellView cell) {
    const bool isThere = AskList(window, LVM_KORVEL_READCELL, by, &cell) != 0;
    return isThere ? std::optional(std::move(cell)) : std::nullopt;
}

// What a control says of itself, or the value of a window that is no such control.
template <class Ask>
auto AskControl(HWND window, Ask ask) {
    const RecordRef record = Find(window);
    return record && record->control ? ask(*record->control) : decltype(ask(*record->control))();
}

bool HasOwnText(Kind kind) {
    return kind == Kind::Button || kind == Kind::Static;
}

// The list over which a control is open, or from which a list has dropped.
HWND ListAround(HWND window) {
    if (!IsShown(window)) // not while it is made, before its first message
        return nullptr;
    const HWND around = (Style(window) & WS_CHILD) ? GetParent(window) : List(window).keysFrom;
    return KindOf(around) == Kind::List ? around : nullptr;
}

CString NameOfRow(HWND list, int row) {
    const auto name = Cell(list, {row, 0});
    return name ? name->text : CString();
}

// The sibling so many places behind a window; null where there is none.
HWND Neighbor(HWND window, std::ptrdiff_t places) {
    if (!(Style(window) & WS_CHILD))
        return nullptr;
    const std::vector<HWND> siblings = Children(GetParent(window));
    const auto own = std::find(siblings.begin(), siblings.end(), window);
    const std::ptrdiff_t at = own - siblings.begin() + places;
    const bool isThere = own != siblings.end() && at >= 0 && at < std::ssize(siblings);
    return isThere ? siblings[static_cast<std::size_t>(at)] : nullptr;
}

} // namespace

Kind KindOf(HWND window) {
    return AskControl(
        window, [](const ControlState& control) { return control.Kind(); });
}

UINT Style(HWND window) {
    return static_cast<UINT>(GetWindowLongPtrA(window, GWL_STYLE));
}

UINT ExStyle(HWND window) {
    return static_cast<UINT>(GetWindowLongPtrA(window, GWL_EXSTYLE));
}

CRect Rectangle(HWND window) {
    return OnOwner(
        window, [](WindowRecord& record) { return record.rect; });
}

CRect ClientRectangle(HWND window) {
    return OnOwner(
        window, [](WindowRecord& record) { return ClientArea(record); });
}

bool IsShown(HWND window) {
    return OnOwner(
        window, [](WindowRecord& record) { return record.IsShown(); });
}

bool IsSwitchedOn(HWND window) {
    return OnOwner(
        window, [](WindowRecord& record) { return record.IsSwitchedOn(); });
}

std::vector<HWND> Children(HWND window) {
    return OnOwner(
        window, [](WindowRecord& record) { return record.children; });
}

bool BelongsToDisplay(HWND window) {
    const auto owner = WindowTable::Instance().OwnerOf(window);
    return owner && owner == DisplayQueue();
}

HWND Labelled(HWND window) {
    if (KindOf(window) != Kind::Static)
        return nullptr;
    const HWND next = Neighbor(window, 1);
    return HasOwnText(KindOf(next)) ? nullptr : next;
}

HWND LabelOf(HWND window) {
    const HWND before = Neighbor(window, -1);
    return Labelled(before) == window ? before : nullptr;
}

CString NameOf(HWND window) {
    const HWND list = ListAround(window);
    if (const auto edited = list ? List(list).edited : std::nullopt)
        return NameOfRow(list, edited->row);
    if (!(Style(window) & WS_CHILD) || HasOwnText(KindOf(window)))
        return {};
    const CString label = WithoutMarks(GetWindowTextA(LabelOf(window)));
    const CString title = label.empty() ? GetWindowTextA(GetParent(window)) : label;
    return title.empty() ? NameOf(GetParent(window)) : title;
}

SizeRange SizesOf(HWND window) {
    SizeRange range;
    Guarded([&] { range = OnOwner(window, [](WindowRecord& record) { return internal::SizesOf(record); }); });
    return range;
}

EditView Edit(HWND window) {
    return AskControl(
        window, [](const ControlState& control) { return control.Edit(); });
}

ButtonView Button(HWND window) {
    return AskControl(
        window, [](const ControlState& control) { return control.Button(); });
}

ScrollView Scroll(HWND window) {
    return AskControl(
        window, [](const ControlState& control) { return control.Scroll(); });
}

BarView ScrollBar(HWND window, int bar) {
    return OnOwner(
        window,
        [&](WindowRecord& record) {
            const ScrollBarState state = ScrollBarStateOf(record, bar);
            const bool shown = (record.style & ScrollBarStyle(record, bar)) != 0;
            return BarView{shown, state.minimum, state.maximum, state.position};
        });
}

RangeView Range(HWND window) {
    return AskControl(
        window, [](const ControlState& control) { return control.Range(); });
}

ChoiceView Choice(HWND window) {
    return AskControl(
        window, [](const ControlState& control) { return control.Choice(); });
}

CString ChoiceText(HWND window, int index) {
    return AskControl(
        window, [=](const ControlState& control) { return control.ChoiceText(index); });
}

ListView List(HWND window) {
    ListView view;
    AskList(window, LVM_KORVEL_READLIST, 0, &view);
    return view;
}

std::optional<CellView> Cell(HWND window, CellPlace place) {
    CellView cell;
    cell.at = place;
    return AskCell(window, 0, std::move(cell));
}

std::optional<CellView> CellAt(HWND window, CPoint point) {
    CellView cell;
    cell.bounds = {point.x, point.y, point.x, point.y};
    return AskCell(window, 1, std::move(cell));
}

std::optional<ValueView> ValueOf(HWND window) {
    ValueView value;
    LRESULT isThere = 0;
    if (KindOf(window) == Kind::Painted)
        Guarded([&] {
            isThere = SendMessageA(window, WM_KORVEL_READVALUE, 0, reinterpret_cast<LPARAM>(&value));
        });
    return isThere ? std::optional(std::move(value)) : std::nullopt;
}

// Where no language is chosen, the library throws at each text.
CString LevelText(int level) {
    bool isGerman = false;
    try {
        isGerman = GetLanguage().column == LanguageChoice::German;
    } catch (const Error&) {
    }
    return (isGerman ? "Ebene " : "level ") + std::to_string(level);
}

DateView Date(HWND window) {
    return AskControl(
        window, [](const ControlState& control) { return control.Date(); });
}

CString Tip(HWND window, CPoint point) {
    CString text;
    Guarded([&] { // a text source may be asked
        text = AskControl(window, [=](ControlState& control) { return control.Tip(point); });
    });
    return text;
}

} // namespace korvel::view

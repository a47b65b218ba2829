#include "korvel/window/list/list_keyboard.h"

#include "korvel/window/list/list_notify.h"
#include "korvel/window/list/list_rows.h"
#include "korvel/window/list/list_scroll.h"
#include "korvel/window/list/list_selection.h"

#include <optional>

namespace korvel::internal {

namespace {

using namespace std::chrono_literals;

constexpr auto SearchPause = 1s; // what is typed after it begins a new search

// The row to which a key moves the focus.
std::optional<int> TargetOf(const ListState& list, UINT key) {
    const int last = list.rows.Size() - 1;
    const int focus = list.focusRow;
    const int page = std::max(1, LayoutOf(list).rowsPerPage);
    switch (key) {
    case VK_UP:
        return focus - 1;
    case VK_DOWN:
        return focus + 1;
    case VK_HOME:
        return 0;
    case VK_END:
        return last;
    // A page key goes to the border of the page first, then on by a page.
    case VK_PRIOR:
        return focus > list.topRow ? list.topRow : focus - std::max(1, page - 1);
    case VK_NEXT: {
        const int bottom = list.topRow + page - 1;
        return focus < bottom ? bottom : focus + std::max(1, page - 1);
    }
    default:
        return std::nullopt;
    }
}

SelectionChange ChangeByKeys() {
    if (IsKeyDown(VK_SHIFT))
        return SelectionChange::Extend;
    return IsKeyDown(VK_CONTROL) ? SelectionChange::MoveFocus : SelectionChange::Replace;
}

void MoveTo(ListState& list, int target, SelectionChange change) {
    const int row = std::clamp(target, 0, list.rows.Size() - 1);
    MoveSelection(list, row, change);
    if (list.rows.Has(row))
        EnsureVisible(list, row, Visibility::Whole);
}

void PressSpace(ListState& list) {
    if (!list.rows.Has(list.focusRow))
        return;
    if (list.HasExtendedStyle(LVS_EX_CHECKBOXES))
        ToggleCheck(list, list.focusRow);
    else
        MoveSelection(list, list.focusRow,
                      IsKeyDown(VK_CONTROL) ? SelectionChange::Toggle : SelectionChange::Replace);
}

// Capital letters of code page 1252 to small ones, as far as both have a place there.
char Lower(char character) {
    const auto byte = static_cast<unsigned char>(character);
    const bool isCapital = (byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7);
    return isCapital ? static_cast<char>(byte + 0x20) : character;
}

bool BeginsWith(const CString& text, const CString& lowerStart) {
    return text.size() >= lowerStart.size() &&
           std::equal(
               lowerStart.begin(), lowerStart.end(), text.begin(),
               [](char wanted, char found) { return wanted == Lower(found); });
}

int FindText(const ListState& list, const CString& lowerStart, int from) {
    const int count = list.rows.Size();
    for (int step = 0; step < count; ++step) {
        const int row = (from + step) % count;
        if (!list.rows.Has(row))
            break; // the text source has removed rows
        if (BeginsWith(TextOf(list, row, 0), lowerStart))
            return row;
    }
    return NoRow;
}

} // namespace

bool PressKey(ListState& list, UINT key) {
    NotifyKey(list, key);
    const auto target = TargetOf(list, key);
    if (key == VK_SPACE)
        PressSpace(list);
    else if (key == VK_LEFT || key == VK_RIGHT)
        HandleScrollBar(list, WM_HSCROLL, key == VK_LEFT ? SB_LINEUP : SB_LINEDOWN);
    else if (target && list.rows.Size() > 0)
        MoveTo(list, *target, ChangeByKeys());
    else
        return target.has_value();
    return true;
}

bool TypeCharacter(ListState& list, char character) {
    const auto now = Display().Now();
    auto& search = list.search;
    if (now - search.last > SearchPause)
        search.typed.clear();
    // A blank belongs to a search only inside it: alone it checks or selects.
    if (static_cast<unsigned char>(character) < ' ')
        return false;
    if ((character == ' ' && search.typed.empty()) || list.rows.Size() == 0)
        return true;
    search.last = now;
    search.typed += Lower(character);
    // The same letter again and again goes through all rows that begin with it.
    const bool isRepeated = search.typed.find_first_not_of(search.typed.front()) == CString::npos;
    const CString start = isRepeated ? search.typed.substr(0, 1) : search.typed;
    const int row = FindText(list, start, std::max(0, list.focusRow + (isRepeated ? 1 : 0)));
    if (list.rows.Has(row))
        MoveTo(list, row, SelectionChange::Replace);
    return true;
}

} // namespace korvel::internal

#include "korvel/window/menu/menu.h"

#include "korvel/window/core/display_thread.h"

#include <algorithm>
#include <utility>

namespace korvel {

using namespace internal;

namespace {

constexpr UINT Grayness = MF_GRAYED | MF_DISABLED;
constexpr UINT KindAndState = Grayness | MF_CHECKED | MF_SEPARATOR;
constexpr unsigned LargestCommand = 0xFFFF;

} // namespace

bool CMenu::CreatePopupMenu() {
    if (m_lines)
        return false;
    m_lines = std::make_unique<Lines>();
    return true;
}

bool CMenu::DestroyMenu() {
    return std::exchange(m_lines, nullptr) != nullptr;
}

bool CMenu::AppendMenuA(UINT flags, UINT id, const CString& text) {
    return InsertMenuA(NoMenuItem, flags | MF_BYPOSITION, id, text);
}

bool CMenu::AppendMenuA(UINT flags, CMenu& popup, const CString& text) {
    return InsertMenuA(NoMenuItem, flags | MF_BYPOSITION, popup, text);
}

bool CMenu::InsertMenuA(UINT before, UINT flags, UINT id, const CString& text) {
    if (flags & MF_SEPARATOR)
        return Insert(before, flags, {MF_SEPARATOR, 0, {}, nullptr});
    return Insert(before, flags, {flags & KindAndState, id, text, nullptr});
}

bool CMenu::InsertMenuA(UINT before, UINT flags, CMenu& popup, const CString& text) {
    if (!m_lines || !popup.m_lines || popup.Holds(*this))
        return false;
    auto taken = std::make_unique<CMenu>();
    taken->m_lines = std::move(popup.m_lines);
    return Insert(before, flags, {(flags & Grayness) | MF_POPUP, 0, text, std::move(taken)});
}

bool CMenu::Holds(const CMenu& menu) const {
    return &menu == this ||
           (m_lines &&
            std::ranges::any_of(
                *m_lines, [&](const Line& line) { return line.popup && line.popup->Holds(menu); }));
}

bool CMenu::Insert(UINT before, UINT flags, Line line) {
    if (!m_lines)
        return false;
    const std::optional<Place> found = Find(before, flags);
    const Place place = found.value_or(Place{this, m_lines->size()});
    Lines& lines = *place.menu->m_lines;
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(place.position), std::move(line));
    return true;
}

std::optional<CMenu::Place> CMenu::Find(UINT item, UINT flags) const {
    const std::size_t count = m_lines ? m_lines->size() : 0;
    auto* self = const_cast<CMenu*>(this);
    if (flags & MF_BYPOSITION)
        return item < count ? std::optional(Place{self, item}) : std::nullopt;
    for (std::size_t position = 0; position < count; ++position) {
        const Line& line = (*m_lines)[position];
        if (line.popup) {
            if (const auto inside = line.popup->Find(item, flags))
                return inside;
        } else if (line.id == item && !(line.flags & MF_SEPARATOR)) {
            return Place{self, position};
        }
    }
    return std::nullopt;
}

UINT CMenu::Change(UINT item, UINT flags, UINT mask) {
    const std::optional<Place> place = Find(item, flags);
    if (!place)
        return NoMenuItem;
    UINT& state = place->Item().flags;
    return std::exchange(state, (state & ~mask) | (flags & mask)) & mask;
}

UINT CMenu::CheckMenuItem(UINT item, UINT flags) {
    return Change(item, flags, MF_CHECKED);
}

UINT CMenu::EnableMenuItem(UINT item, UINT flags) {
    return Change(item, flags, Grayness);
}

int CMenu::GetMenuItemCount() const {
    return m_lines ? static_cast<int>(m_lines->size()) : -1;
}

UINT CMenu::GetMenuItemID(int position) const {
    const auto place = Find(static_cast<UINT>(position), MF_BYPOSITION);
    return place && !place->Item().popup ? place->Item().id : NoMenuItem;
}

CString CMenu::GetMenuStringA(UINT item, UINT flags) const {
    const auto place = Find(item, flags);
    return place ? place->Item().text : CString();
}

UINT CMenu::GetMenuState(UINT item, UINT flags) const {
    const auto place = Find(item, flags);
    return place ? place->Item().flags : NoMenuItem;
}

CMenu* CMenu::GetSubMenu(int position) const {
    const auto place = Find(static_cast<UINT>(position), MF_BYPOSITION);
    return place ? place->Item().popup.get() : nullptr;
}

std::vector<MenuEntry> CMenu::Entries() const {
    std::vector<MenuEntry> entries;
    for (const Line& line : *m_lines) {
        MenuEntry& entry = entries.emplace_back();
        if (line.flags & MF_SEPARATOR)
            continue;
        entry.text = line.text.empty() ? " " : line.text; // an empty one would be a separator
        entry.command = line.id;
        entry.checked = line.flags & MF_CHECKED;
        entry.enabled = !(line.flags & Grayness);
        if (line.popup && line.popup->m_lines)
            entry.popup = line.popup->Entries();
    }
    return entries;
}

UINT CMenu::TrackPopupMenu(UINT flags, int x, int y, CWnd* owner) const {
    if (GetMenuItemCount() <= 0)
        return 0;
    const HWND window = owner ? owner->m_hWnd : nullptr; // the object may be gone after the menu
    const unsigned chosen = OnDisplayThread([&, entries = Entries()](IDisplay& display) {
        return display.TrackMenu(window, {x, y}, entries);
    });
    if (flags & TPM_RETURNCMD)
        return chosen;
    if (chosen)
        PostMessageA(window, WM_COMMAND, chosen & LargestCommand, 0);
    return 1;
}

} // namespace korvel

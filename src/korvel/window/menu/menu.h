#pragma once

#include "korvel/window/core/cwnd.h"
#include "korvel/window/core/display.h"

#include <memory>
#include <optional>
#include <vector>

namespace korvel {

// What a line of a menu is.
inline constexpr UINT MF_STRING = 0x0000;
inline constexpr UINT MF_ENABLED = 0x0000;
inline constexpr UINT MF_UNCHECKED = 0x0000;
inline constexpr UINT MF_GRAYED = 0x0001;
inline constexpr UINT MF_DISABLED = 0x0002; // as MF_GRAYED, but does not look so on every display
inline constexpr UINT MF_CHECKED = 0x0008;
inline constexpr UINT MF_POPUP = 0x0010;
inline constexpr UINT MF_SEPARATOR = 0x0800;
// Which line is meant: the one with a command, in popups as well, or the one at a position from 0.
inline constexpr UINT MF_BYCOMMAND = 0x0000;
inline constexpr UINT MF_BYPOSITION = 0x0400;

inline constexpr UINT TPM_RIGHTBUTTON = 0x0002;
inline constexpr UINT TPM_RETURNCMD = 0x0100;

inline constexpr UINT NoMenuItem = 0xFFFFFFFF; // own: what is returned where there is no such line

/// A menu that opens at a point of the screen, with popup menus in it.
///
///     CMenu menu, copy;
///     copy.CreatePopupMenu();
///     copy.AppendMenuA(MF_STRING, 15053, "&Value");
///     menu.CreatePopupMenu();
///     menu.AppendMenuA(MF_STRING | MF_CHECKED, 18039, "&Write protected");
///     menu.AppendMenuA(MF_SEPARATOR);
///     menu.AppendMenuA(MF_STRING, copy, "&Copy");
///     menu.TrackPopupMenu(TPM_RIGHTBUTTON, 200, 100, &frame);   // the frame gets WM_COMMAND with the choice
///
/// A menu owns its popups: AppendMenuA and InsertMenuA take over what the popup holds and leave that object
/// without a menu. There are no menu handles, so nothing can be stale. In texts "&" marks the access key,
/// "&&" is one "&", and what follows a tab is shown at the right, as the key of a command.
///
/// Before CreatePopupMenu and after DestroyMenu a menu holds nothing: what changes it returns false, what
/// looks for a line finds none. CheckMenuItem and EnableMenuItem change nothing where there is no such line.
class KORVEL_API CMenu {
public:
    CMenu() = default;
    CMenu(const CMenu&) = delete;
    CMenu& operator=(const CMenu&) = delete;

    /// False when there is a menu already.
    bool CreatePopupMenu();
    /// Also while the menu is open: the user goes on with what it held.
    bool DestroyMenu();

    /// Adds a line at the end. `id`: its command, 1 to 65,535; 0 cannot be chosen. Text and command of a
    /// separator are ignored.
    bool AppendMenuA(UINT flags, UINT id = 0, const CString& text = {});
    /// Adds a popup, which is opened, not chosen. False for a popup without a menu, and for one that holds this menu.
    bool AppendMenuA(UINT flags, CMenu& popup, const CString& text);
    /// Adds a line before another one (MF_BYCOMMAND, MF_BYPOSITION); at the end where there is no such line.
    bool InsertMenuA(UINT before, UINT flags, UINT id = 0, const CString& text = {});
    bool InsertMenuA(UINT before, UINT flags, CMenu& popup, const CString& text);

    // These return what the line was before, or NoMenuItem.
    /// `flags`: MF_CHECKED or MF_UNCHECKED.
    UINT CheckMenuItem(UINT item, UINT flags);
    /// `flags`: MF_ENABLED, MF_DISABLED or MF_GRAYED.
    UINT EnableMenuItem(UINT item, UINT flags);

    /// -1 without a menu.
    int GetMenuItemCount() const;
    /// The command of a line, 0 of a separator; NoMenuItem for a popup, too.
    UINT GetMenuItemID(int position) const;
    /// The text as it was given; empty where there is none.
    CString GetMenuStringA(UINT item, UINT flags) const;
    /// What a line is, from MF_*; NoMenuItem where there is none.
    UINT GetMenuState(UINT item, UINT flags) const;
    /// Null for a line without a popup. Belongs to the menu, and lives as long as the line.
    CMenu* GetSubMenu(int position) const;

    /// Shows the menu at a point of the screen and returns when the user has decided. The choice is posted to
    /// `owner` as WM_COMMAND with a null lParam, so that it runs after the menu; with TPM_RETURNCMD it is
    /// returned instead, 0 for none. Else true when the menu was shown, which one without lines is not.
    /// Messages are dispatched meanwhile: the owner's window may be gone afterwards. The other bits of
    /// `flags` are kept for callers.
    UINT TrackPopupMenu(UINT flags, int x, int y, CWnd* owner) const;

private:
    struct Line {
        UINT flags;
        UINT id;
        CString text;
        std::unique_ptr<CMenu> popup;
    };
    using Lines = std::vector<Line>;

    struct Place {
        CMenu* menu;
        std::size_t position;
        Line& Item() const { return (*menu->m_lines)[position]; }
    };

    bool Holds(const CMenu& menu) const;
    std::optional<Place> Find(UINT item, UINT flags) const;
    bool Insert(UINT before, UINT flags, Line line);
    UINT Change(UINT item, UINT flags, UINT mask);
    std::vector<MenuEntry> Entries() const;

    std::unique_ptr<Lines> m_lines; // null: no menu
};

} // namespace korvel

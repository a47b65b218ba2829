#pragma once

#include "korvel/window/base/aspects.h"
#include "korvel/window/base/image_list.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/base/types.h"

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

namespace korvel {

/// One line of a menu.
struct MenuEntry {
    CString text; // empty: a separator
    unsigned command = 0;
    bool checked = false;
    bool enabled = true;
    std::vector<MenuEntry> popup; // a menu of its own; the command is not used then
};

/// What a file chooser asks for.
struct FileQuery {
    bool open = true; // false: a file to write
    CString path;     // the file to begin with
    /// Added to a name without a dot; to that of a file to open only where there is no such file.
    CString defaultExtension;
    /// "description|patterns|description|patterns|", with ";" between patterns; an empty description ends it.
    /// Patterns ignore case, and "*.*" is every file, also one without a dot.
    CString filter;
    bool promptOnOverwrite = true; // asks before an existing file is overwritten
    bool fileMustExist = false;    // of a file to open; whoever asks refuses a new name that is returned
};

/// What a folder chooser asks for.
struct FolderQuery {
    enum class Chooser {
        Desktop, // the one that the user knows from other programs
        Plain    // of the display itself, where that one cannot be made
    };

    CString title; // empty: as the display likes
    CString path;  // the folder to begin with; one that does not exist is ignored
    Chooser chooser = Chooser::Desktop;
};

struct FolderAnswer {
    enum class Outcome { Chosen, Cancelled, CannotBeMade };

    Outcome outcome = Outcome::Cancelled;
    CString path{}; // of a chosen folder
};

/// What became of a text for the clipboard.
struct ClipboardAnswer {
    enum class Outcome {
        Set,
        NotOpened, // there is no clipboard, or another program keeps it
        NotSet     // it refused the text
    };

    Outcome outcome = Outcome::Set;
    int error = 0; // the system's number for a refusal

    bool IsSet() const { return outcome == Outcome::Set; }
};

/// As what the desktop opens a path.
enum class OpenAs {
    File,         // with the program for files of its kind
    FileByChoice, // with a program that the user chooses
    Folder
};

/// Shows the windows; one display is in force in a process. A display keeps no state of a window: the
/// library says that something changed, and the display reads the window (window/display/window_view.h).
/// What the user does it reports through window/core/input.h.
///
///     class MyDisplay : public IDisplay { ... } display;
///     SetDisplay(&display);   // window/core/set_display.h; Created for each window that exists
///     ...
///     SetDisplay(nullptr);    // before it dies
///
/// Each call without a body must be implemented; the others may be. All come on the display's thread, the
/// thread that installed it, and only for windows of that thread, but for Wake and IsHeadless. No exception
/// may leave an implementation, but for those of a headless display.
class KORVEL_API IDisplay {
public:
    virtual ~IDisplay() = default;

    /// True for a display without native widgets. Controls then do their default action themselves. Without
    /// an exception handler, an exception reaches the caller of the input function. Callable on any thread.
    virtual bool IsHeadless() const { return false; }

    // Windows.

    /// A window was made, before its first message: show it when its style says so.
    virtual void Created(HWND window) = 0;
    /// A window ends: forget the handle. Its children ended before.
    virtual void Destroyed(HWND window) = 0;
    /// Something of the window changed: read it again and show it.
    virtual void Changed(HWND window, Aspects aspects) = 0;
    /// A part of the client area needs painting: call input::Paint before the next event is taken.
    virtual void Invalidate(HWND window, const CRect& rect) = 0;
    /// Rows of a list: from `first` on, `removed` of them went and `inserted` came in their place; where both are
    /// the same, what these rows show may have changed. Told of lists of which a cell was read (view::Cell), from
    /// then on. Comes often, also while redraw is off and for rows out of sight, so do little.
    virtual void RowsChanged(HWND /*list*/, int /*first*/, int /*removed*/, int /*inserted*/) {}
    /// The window that has the focus from now on, or null: send keys there. Nothing comes back through
    /// input::FocusMoved.
    virtual void Focus(HWND window) = 0;
    /// The user goes by Tab beyond the last (`previous`: the first) tab stop of a dialog in this top-level
    /// window: give the focus to what follows the window on the desktop, and return true. False where there
    /// is nothing; the dialog then begins anew at its other end.
    virtual bool LeaveByTab(HWND /*topLevel*/, bool /*previous*/) { return false; }
    /// The window that gets all mouse messages from now on, or null. The library passes them on itself; a
    /// display makes them arrive also from outside its windows.
    virtual void Capture(HWND window) = 0;

    // Time and waiting.

    /// Call input::DispatchMessages on the display's thread, soon. Callable on any thread; must call no
    /// function of the library.
    virtual void Wake() = 0;
    /// Call input::FireTimers when Now reaches this time (nothing: never). Replaces the former alarm.
    virtual void Alarm(std::optional<std::chrono::milliseconds> when) = 0;
    /// A clock that does not run backwards, from any beginning.
    virtual std::chrono::milliseconds Now() = 0;
    /// Handle what the user does until `done` returns true, which is asked after each event. `modal`, when
    /// it is not null, is shown window-modal meanwhile.
    virtual void RunUntil(HWND modal, const std::function<bool()>& done) = 0;

    // Questions to the user, each over `owner` (may be null). They return when the user has decided;
    // messages are dispatched meanwhile.

    /// A box with the buttons and the icon of `type` (MB_*); returns the button (IDOK ...).
    virtual int MessageBox(HWND owner, const CString& text, const CString& caption, UINT type) = 0;
    /// A menu at a point of the screen; returns the chosen command, or 0.
    virtual unsigned TrackMenu(HWND owner, CPoint screen, const std::vector<MenuEntry>& entries) = 0;
    /// A color to replace `color`; nothing when the user cancels, as for a file.
    virtual std::optional<COLORREF> ChooseColor(HWND owner, COLORREF color) = 0;
    virtual std::optional<CString> ChooseFile(HWND owner, const FileQuery& query) = 0;
    virtual FolderAnswer ChooseFolder(HWND owner, const FolderQuery& query) = 0;

    /// Has the desktop open a file or folder in a window of its own, and does not wait for that. Never runs a
    /// program: of one it shows the folder. Returns a number above OpenPathFailed, or why nothing was opened:
    /// SE_ERR_FNF, SE_ERR_ACCESSDENIED, SE_ERR_OOM or SE_ERR_NOASSOC (no program shows it). Without an own
    /// body: access denied, as such a display opens nothing.
    virtual int OpenPath(HWND /*owner*/, const CString& /*path*/, OpenAs /*as*/) {
        return SE_ERR_ACCESSDENIED;
    }

    // Facts, asked often.

    /// The width of a line of text in the font of the windows, in pixels.
    virtual int TextWidth(const CString& text) = 0;
    /// Where a point of the window's client area lies on the screen.
    virtual CPoint ToScreen(HWND window, CPoint client) = 0;
    /// KeyIsDown when the key (VK_*) is down, else 0.
    virtual int KeyState(UINT key) = 0;
    /// The mouse pointer on the screen.
    virtual CPoint Pointer() = 0;
    /// The color of COLOR_*, 0 for an index that it does not know.
    virtual COLORREF SysColor(int index) = 0;
    /// The measure SM_* in pixels, 0 for an index that it does not know.
    virtual int Metric(int index) = 0;
    /// The rectangles of the screens on which windows may lie; the first one's is the main screen's. Without
    /// an own body: one screen of the size that Metric gives.
    virtual std::vector<CRect> Screens();
    /// Show the pointer as IDC_* until the next call.
    virtual void SetCursor(int cursor) = 0;

    // The clipboard.

    /// Replaces what the clipboard holds.
    virtual ClipboardAnswer SetClipboardText(const CString& text) = 0;
    /// Nothing when the clipboard is not available or holds no text.
    virtual std::optional<CString> ClipboardText() = 0;

    /// The picture in a file, made smaller where it does not fit into `room`. Nothing for a file that is
    /// missing, broken or of a format that the display does not know; a display may know none.
    virtual std::optional<Image> LoadPicture(const CString& /*path*/, CSize /*room*/) { return std::nullopt; }
};

/// The display in force: a HeadlessDisplay that is made at first use and belongs to the thread that needed
/// it, until one is installed. Any thread.
KORVEL_API IDisplay& Display();

} // namespace korvel

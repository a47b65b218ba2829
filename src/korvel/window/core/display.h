#pragma once

#include "korvel/window/base/aspects.h"
#include "korvel/window/base/image_list.h"
#include "korvel/window/base/types.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace korvel {

struct MenuEntry {
    CString text; // empty: a separator
    unsigned command = 0;
    bool checked = false;
    bool enabled = true;
    std::vector<MenuEntry> popup;
};

struct FileQuery {
    bool open = true; // false: a file to write
    CString path;     // the file to begin with
    CString defaultExtension;
    CString filter; // "description|patterns|description|patterns|"
    bool promptOnOverwrite = true;
};

/// What shows the windows. A display keeps no state of a window: it is told that something changed and
/// reads the window. What the user does comes back through window/core/input.h.
///
/// All calls but Wake come on the display's thread, the thread that installed it, and only for windows
/// of that thread. No exception may leave an implementation.
class KORVEL_API IDisplay {
public:
    virtual ~IDisplay() = default;

    /// True for a display without native widgets and without foreign code below its handlers: controls act
    /// themselves on what was left to their default, and an exception of a handler goes on to whoever
    /// pumped (called an input function) while no exception handler is set. Callable on any thread.
    virtual bool IsHeadless() const { return false; }

    // Windows.
    virtual void Created(HWND window) = 0;
    virtual void Destroyed(HWND window) = 0;
    virtual void Changed(HWND window, Aspects aspects) = 0;
    virtual void Invalidate(HWND window, const CRect& rect) = 0;
    /// The window that has the focus from now on, or null.
    virtual void Focus(HWND window) = 0;
    /// The window that gets all mouse messages from now on, or null.
    virtual void Capture(HWND window) = 0;

    // Time and waiting.
    /// Asks for a call of input::DispatchMessages on the display's thread, soon. Callable on any thread.
    virtual void Wake() = 0;
    /// Asks for a call of input::FireTimers at that time; nothing cancels.
    virtual void Alarm(std::optional<std::chrono::milliseconds> when) = 0;
    virtual std::chrono::milliseconds Now() = 0;
    /// Handles what the user does until `done` answers true. Shows `modal` window-modal meanwhile when it
    /// is not null.
    virtual void RunUntil(HWND modal, const std::function<bool()>& done) = 0;

    // Questions to the user.
    virtual int MessageBox(HWND owner, const CString& text, const CString& caption, UINT type) = 0;
    /// The chosen command, or 0.
    virtual unsigned TrackMenu(HWND owner, CPoint screen, const std::vector<MenuEntry>& entries) = 0;
    virtual std::optional<COLORREF> ChooseColor(HWND owner, COLORREF color) = 0;
    virtual std::optional<CString> ChooseFile(HWND owner, const FileQuery& query) = 0;
    virtual std::optional<CString> ChooseFolder(HWND owner, const CString& path) = 0;

    // Facts.
    virtual int TextWidth(const CString& text) = 0;
    virtual CPoint ToScreen(HWND window, CPoint client) = 0;
    virtual int KeyState(UINT key) = 0;
    virtual CPoint Pointer() = 0;
    virtual COLORREF SysColor(int index) = 0;
    virtual int Metric(int index) = 0;
    virtual void SetCursor(int cursor) = 0;

    // Clipboard; false when it is not to be had.
    virtual bool SetClipboardText(const CString& text) = 0;
    virtual std::optional<CString> ClipboardText() = 0;

    /// The picture in a file, made smaller where it does not fit into `room`. Nothing for a file that is
    /// missing, broken or of a format that the display does not know; a display may know none.
    virtual std::optional<Image> LoadPicture(const CString& /*path*/, CSize /*room*/) { return std::nullopt; }
};

/// The display in force: a HeadlessDisplay that is made at first use and belongs to the thread that needed
/// it, until one is installed.
KORVEL_API IDisplay& Display();
/// Installs a display (not owned; null puts the headless one back); the calling thread becomes the
/// display's. Its windows that exist already are told to it by Created, parents first, then the focus; the
/// periods of running timers begin anew. A display takes itself out of force before it dies.
KORVEL_API void SetDisplay(IDisplay* display);

/// Hears what no handler caught while a display delivered input; the default shows its text in an error
/// box with the caption "Korvel", and lets it pass under a headless display. Null puts the default back.
/// Called on the thread of the failure; a sender that waits in another thread is released before.
KORVEL_API void SetExceptionHandler(std::function<void(const CString& text)> handler);

} // namespace korvel

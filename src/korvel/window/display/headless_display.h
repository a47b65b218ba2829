#pragma once

#include "korvel/window/core/set_display.h"
#include "korvel/window/display/paint_call.h"

#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <string>

namespace korvel {

/// The display without a screen: a clock moved by hand, fixed font metrics (7 pixels a character, 16 a line),
/// scripted answers and recorded paint calls.
///
///     HeadlessDisplay display;
///     SetDisplay(&display);
///     display.AnswerNext(IDYES);
///     MessageBoxA(nullptr, "Save?", "Plan", MB_YESNO);   // IDYES
///     display.Then([&] { frame.DestroyWindow(); });      // played when a modal loop is idle
///     display.RunUntil(frame.m_hWnd, [&] { return !frame.m_hWnd; });
///     display.Advance(500ms);                            // fires the timers that are due
///     display.PaintWindow(list.m_hWnd)[0].color;         // what an owner-drawn list filled first
///
/// A modal loop that is idle with no step left throws Error, and so does a question without an answer: a
/// hang becomes a failure with a text. What a handler throws comes out of whatever pumped it (a function of
/// window/core/input.h, Advance, PumpUntil, RunUntil), unless an exception handler is set. Controls act
/// themselves on the keys and the mouse, as there is no native widget.
class KORVEL_API HeadlessDisplay : public IDisplay {
public:
    HeadlessDisplay() = default;
    /// Takes itself out of force.
    ~HeadlessDisplay() override;

    /// One message box or menu as it was shown.
    struct Shown {
        CString text;
        CString caption;
        UINT type = 0;
    };

    /// What RowsChanged was told.
    struct RowChange {
        int first;
        int removed;
        int inserted;

        bool operator==(const RowChange&) const = default;
    };

    /// One path that was to be opened.
    struct OpenedPath {
        CString path;
        OpenAs as;
    };

    /// The answers to come, in order: of message boxes and menus (what a menu does not offer, or only in grey,
    /// cannot be chosen), of file choosers, of folder choosers, of color choosers, of OpenPath; and what the
    /// clipboard says to texts, which it takes without one.
    void AnswerNext(int button);
    void AnswerNextFile(std::optional<CString> path);
    void AnswerNextFolder(FolderAnswer answer);
    void AnswerNextColor(std::optional<COLORREF> color);
    void AnswerNextOpen(int result);
    void AnswerNextClipboard(ClipboardAnswer answer);
    /// What the user does with the next menu, in place of an answer to come: returns the command. Whatever it
    /// does happens while the menu is open.
    using MenuUser = std::function<unsigned(const std::vector<MenuEntry>& menu)>;
    void AnswerNextMenu(MenuUser user) { m_menuUsers.push_back(std::move(user)); }
    /// The command that these keys choose, one for each level: by the letter that "&" marks, or by the first
    /// one where none is. 0 for keys that open no menu or meet a grey entry.
    ///
    ///     display.AnswerNextMenu([](const auto& menu) { return PressMenuKeys(menu, "cv"); });   // Copy, Value
    static unsigned PressMenuKeys(const std::vector<MenuEntry>& menu, const CString& keys);
    /// One more step that a modal loop plays when it is idle.
    void Then(std::function<void()> step);
    /// Moves the clock on and fires each timer at its time; posted messages run in between. After an
    /// exception the clock is at the timer whose handler threw.
    void Advance(std::chrono::milliseconds time);
    /// Runs what other threads send and post until `done` returns true; throws Error when that takes longer
    /// than `limit` of real time.
    void PumpUntil(const std::function<bool()>& done,
                   std::chrono::milliseconds limit = std::chrono::seconds(30));
    void MovePointer(CPoint screen) { m_pointer = screen; }
    /// What GetKeyState returns from now on; no message.
    void PressKey(UINT key, bool down) { m_keys[key] = down; }
    /// The screens from now on; without them there is one of 1920 by 1080.
    void SetScreens(std::vector<CRect> screens) { m_screens = std::move(screens); }
    void SetColor(int index, COLORREF color) { m_colors[index] = color; }
    /// What LoadPicture returns for that path, as it is; without it there is no such picture.
    void SetPicture(const CString& path, Image image) { m_pictures[path] = std::move(image); }

    const std::vector<Shown>& ShownBoxes() const { return m_boxes; }
    const std::vector<std::vector<MenuEntry>>& ShownMenus() const { return m_menus; }
    const std::vector<OpenedPath>& OpenedPaths() const { return m_opened; }
    /// Has a part of a window (null: its client area) painted and returns what it drew.
    std::vector<PaintCall> PaintWindow(HWND window, const CRect* clip = nullptr);
    /// True when something of the window was invalidated since the last PaintWindow.
    bool IsInvalid(HWND window) const;
    /// What that was, in its client coordinates; empty: nothing.
    CRect InvalidArea(HWND window) const;
    /// What Changed reported of a window since the last call.
    Aspects TakeChanges(HWND window);
    /// What RowsChanged reported of a list since the last call; the first one begins to keep that.
    std::vector<RowChange> TakeRowChanges(HWND list);
    int CursorShown() const { return m_cursor; }
    HWND FocusShown() const { return m_focus; }

    bool IsHeadless() const override { return true; }
    void Created(HWND window) override;
    void Destroyed(HWND window) override;
    void Changed(HWND window, Aspects aspects) override;
    void Invalidate(HWND window, const CRect& rect) override;
    void RowsChanged(HWND list, int first, int removed, int inserted) override;
    void Focus(HWND window) override;
    void Capture(HWND window) override;
    void Wake() override;
    void Alarm(std::optional<std::chrono::milliseconds> when) override;
    std::chrono::milliseconds Now() override;
    void RunUntil(HWND modal, const std::function<bool()>& done) override;
    int MessageBox(HWND owner, const CString& text, const CString& caption, UINT type) override;
    unsigned TrackMenu(HWND owner, CPoint screen, const std::vector<MenuEntry>& entries) override;
    std::optional<COLORREF> ChooseColor(HWND owner, COLORREF color) override;
    std::optional<CString> ChooseFile(HWND owner, const FileQuery& query) override;
    FolderAnswer ChooseFolder(HWND owner, const FolderQuery& query) override;
    int OpenPath(HWND owner, const CString& path, OpenAs as) override;
    int TextWidth(const CString& text) override;
    CPoint ToScreen(HWND window, CPoint client) override;
    int KeyState(UINT key) override;
    CPoint Pointer() override;
    COLORREF SysColor(int index) override;
    int Metric(int index) override;
    std::vector<CRect> Screens() override;
    void SetCursor(int cursor) override;
    ClipboardAnswer SetClipboardText(const CString& text) override;
    std::optional<CString> ClipboardText() override;
    std::optional<Image> LoadPicture(const CString& path, CSize room) override;

private:
    bool TakeWoken();

    std::mutex m_wakeMutex;
    std::condition_variable m_wakeSignal;
    bool m_woken = false;
    std::chrono::milliseconds m_now{0};
    std::optional<std::chrono::milliseconds> m_alarm;
    CPoint m_pointer;
    std::map<UINT, bool> m_keys;
    std::map<int, COLORREF> m_colors;
    std::map<CString, Image> m_pictures;
    std::vector<CRect> m_screens;
    std::map<HWND, CRect> m_invalid;
    std::map<HWND, Aspects> m_changes;
    std::map<HWND, std::vector<RowChange>> m_rowChanges; // of lists that were asked about
    HWND m_focus = nullptr;
    std::deque<int> m_answers;
    std::deque<MenuUser> m_menuUsers;
    std::deque<std::optional<CString>> m_files;
    std::deque<FolderAnswer> m_folders;
    std::deque<std::optional<COLORREF>> m_colorAnswers;
    std::deque<int> m_openResults;
    std::deque<ClipboardAnswer> m_clipboardAnswers;
    std::vector<OpenedPath> m_opened;
    std::deque<std::function<void()>> m_steps;
    std::vector<Shown> m_boxes;
    std::vector<std::vector<MenuEntry>> m_menus;
    std::optional<CString> m_clipboard;
    int m_cursor = 0;
};

} // namespace korvel

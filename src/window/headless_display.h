#pragma once

#include "window/display.h"

#include <deque>
#include <map>
#include <string>

namespace korvel {

/// One call that a window made while it painted itself.
struct PaintCall {
    enum class Kind { Fill, Text, Line, Frame, Focus, Picture, Clip };
    Kind kind;
    CRect rect; // of a line: its two ends
    COLORREF color = 0;
    CString text;
};

/// The display without a screen: a clock moved by hand, fixed font metrics (7 pixels a byte, 16 a line),
/// scripted answers and recorded paint calls.
///
///     HeadlessDisplay display;
///     SetDisplay(&display);
///     display.AnswerNext(IDYES);           // the next message box
///     display.Then([&] { dialog.EndDialog(IDOK); });   // played when a modal loop is idle
///     display.Advance(500ms);              // fires the timers that are due
///     auto calls = display.PaintWindow(list.m_hWnd);   // what an owner-drawn list draws
///
/// A modal loop that is idle with no step left throws Error: a hang becomes a failure with a text.
/// Handlers' exceptions go to whoever pumped.
class KORVEL_API HeadlessDisplay : public IDisplay {
public:
    /// One message box or menu as it was shown.
    struct Shown {
        CString text;
        CString caption;
        UINT type = 0;
    };

    void AnswerNext(int button);                      // message boxes and menus, in order
    void AnswerNextFile(std::optional<CString> path); // file and folder choosers
    void AnswerNextColor(std::optional<COLORREF> color);
    void Then(std::function<void()> step);
    void Advance(std::chrono::milliseconds time);
    void MovePointer(CPoint screen) { m_pointer = screen; }
    void PressKey(UINT key, bool down) { m_keys[key] = down; }
    void SetColor(int index, COLORREF color) { m_colors[index] = color; }

    const std::vector<Shown>& ShownBoxes() const { return m_boxes; }
    const std::vector<std::vector<MenuEntry>>& ShownMenus() const { return m_menus; }
    std::vector<PaintCall> PaintWindow(HWND window, const CRect* clip = nullptr);
    /// True when something of the window was invalidated since the last PaintWindow.
    bool IsInvalid(HWND window) const;
    int CursorShown() const { return m_cursor; }

    void Created(HWND window) override;
    void Destroyed(HWND window) override;
    void Changed(HWND window, Aspects aspects) override;
    void Invalidate(HWND window, const CRect& rect) override;
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
    std::optional<CString> ChooseFolder(HWND owner, const CString& path) override;
    int TextWidth(const CString& text) override;
    CPoint ToScreen(HWND window, CPoint client) override;
    int KeyState(UINT key) override;
    CPoint Pointer() override;
    COLORREF SysColor(int index) override;
    int Metric(int index) override;
    void SetCursor(int cursor) override;
    bool SetClipboardText(const CString& text) override;
    std::optional<CString> ClipboardText() override;

private:
    std::chrono::milliseconds m_now{0};
    std::optional<std::chrono::milliseconds> m_alarm;
    CPoint m_pointer;
    std::map<UINT, bool> m_keys;
    std::map<int, COLORREF> m_colors;
    std::map<HWND, CRect> m_invalid;
    std::deque<int> m_answers;
    std::deque<std::optional<CString>> m_files;
    std::deque<std::optional<COLORREF>> m_colorAnswers;
    std::deque<std::function<void()>> m_steps;
    std::vector<Shown> m_boxes;
    std::vector<std::vector<MenuEntry>> m_menus;
    std::optional<CString> m_clipboard;
    int m_cursor = 0;
};

} // namespace korvel

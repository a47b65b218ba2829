#pragma once

#include "korvel/window/base/control_messages.h"
#include "korvel/window/core/cwnd.h"

namespace korvel {

/// What TTM_ADDTOOL, TTM_DELTOOL and TTM_UPDATETIPTEXT carry (lParam). `hwnd` and `uId` name the tool.
struct TOOLINFO {
    UINT uFlags =
        0; // TTF_IDISHWND: the whole window that uId is a handle of; else `rect` of the window `hwnd`
    HWND hwnd = nullptr;
    std::uintptr_t uId = 0;
    CRect rect; // client coordinates
    const char* lpszText = nullptr;
};

/// A small window that says what something is for while the mouse pointer rests on it: class
/// "tooltips_class32". It takes no focus. The parent of the tools hands it the mouse messages:
///
///     BOOL CPage::OnInitDialog() {
///         m_toolTip.Create(this);
///         m_toolTip.AddTool(GetDlgItem(15016), "Adds an entry");
///         return CDialog::OnInitDialog();
///     }
///     bool CPage::PreTranslateMessage(MSG& message) {
///         m_toolTip.RelayEvent(&message);
///         return CDialog::PreTranslateMessage(message);
///     }
///
/// A tip is shown once the pointer has rested on a tool, below the pointer and wholly on its screen, and goes
/// after a time, at a press, a turn of the wheel, and when the pointer leaves the tool. It comes again only
/// after the pointer has left. Of tools that overlap the first counts; a tool that is hidden or disabled, or
/// whose text is empty, gets none (one that is shown stays for its time).
class KORVEL_API CToolTipCtrl : public CWnd {
public:
    /// `style`: TTS_*. It ends with the top-level window of `parent`.
    bool Create(CWnd* parent, UINT style = 0);
    /// A part of a window has a rectangle and an id that is not 0; without both the tool is the whole window.
    /// False for one without the other. A tool that exists already gets this text and place.
    bool AddTool(CWnd* window, const CString& text, const CRect* rect = nullptr, std::uintptr_t id = 0);
    void DelTool(CWnd* window, std::uintptr_t id = 0);
    /// Also of a tip that is shown.
    void UpdateTipText(const CString& text, CWnd* window, std::uintptr_t id = 0);
    int GetToolCount() const;
    /// It is active at first; an inactive one shows nothing.
    void Activate(bool activate);
    void RelayEvent(MSG* message);
    /// Hides the tip.
    void Pop();
    /// Lines are broken at blanks to be no wider, and where the text breaks them; -1, as at first: all in one
    /// line. Returns the former width.
    int SetMaxTipWidth(int pixels);
    int GetMaxTipWidth() const;
    /// `which`: TTDT_RESHOW, TTDT_AUTOPOP, TTDT_INITIAL; 100, 5000 and 500 milliseconds at first, again with
    /// -1.
    void SetDelayTime(UINT which, int milliseconds);
    /// TTDT_AUTOMATIC: `milliseconds` as the first one, a fifth of it and ten times as much as the others.
    void SetDelayTime(int milliseconds);
    int GetDelayTime(UINT which) const;
};

} // namespace korvel

#pragma once

#include "korvel/window/app/app.h"
#include "korvel/window/app/find_resource.h"
#include "korvel/window/core/input.h"
#include "korvel/window/dialog/dialog.h"
#include "korvel/window/dialog/dialog_items.h"
#include "support/recorded_window.h"

#include <stdexcept>

namespace korvel {

/// A dialog that writes down its commands.
class RecordedDialog : public CDialog {
public:
    using CDialog::CDialog;

    std::function<BOOL()> onInit = [] { return 1; };
    std::map<int, std::function<void()>> onCommand;
    std::vector<int> commands;

    HWND Item(int id) const { return korvel::GetDlgItem(m_hWnd, id); }
    BOOL OnInitDialog() override { return onInit(); }

protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override {
        const int id = static_cast<int>(LOWORD(wParam));
        if (HIWORD(wParam) != BN_CLICKED)
            return CDialog::OnCommand(wParam, lParam);
        commands.push_back(id);
        if (const auto reaction = onCommand.find(id); reaction != onCommand.end())
            return reaction->second(), true;
        return CDialog::OnCommand(wParam, lParam);
    }
};

/// Dialogs of a host application whose templates the test names.
class DialogTest : public WindowTest {
protected:
    static constexpr UINT Plain = WS_POPUP | WS_CAPTION | WS_SYSMENU;

    DialogTest() {
        SetHostApp(&host);
        frame.CreateEx(0, "KorvelFrame", "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {100, 100, 900, 700},
                       nullptr, 0);
    }
    ~DialogTest() override { SetHostApp(nullptr); }

    void Have(std::vector<DialogTemplate> templates) {
        m_templates = std::move(templates);
        m_resources.dialogs = m_templates;
        host.m_pResources = &m_resources;
    }
    /// Presses a key in the window with the focus.
    void Press(UINT key, const CString& characters = "") {
        input::Key(GetFocus(), WM_KEYDOWN, key, characters);
    }
    void PressWith(UINT modifier, UINT key, const CString& characters = "") {
        display.PressKey(modifier, true);
        input::Key(GetFocus(), modifier == VK_MENU ? WM_SYSKEYDOWN : WM_KEYDOWN, key, characters);
        display.PressKey(modifier, false);
    }

    CWinApp host;
    CWnd frame;

private:
    std::vector<DialogTemplate> m_templates;
    ResourceModule m_resources;
};

} // namespace korvel

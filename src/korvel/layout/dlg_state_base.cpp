#include "korvel/layout/dlg_state_base.h"

#include "korvel/layout/dlg_state_record.h"
#include "korvel/platform/settings_store.h"
#include "korvel/window/app/app.h"
#include "korvel/window/core/cwnd.h"
#include "korvel/window/core/registered_messages.h"
#include "korvel/window/core/screens.h"
#include "korvel/window/display/window_view.h"

#include <optional>

namespace korvel {

using namespace internal;
using platform::SettingsAccess;
using platform::SettingsRoot;
using platform::SettingsStatus;

namespace {

constexpr char LibraryRoot[] = R"(SOFTWARE\Halmond\Korvel\DlgStates\)";
constexpr char StateName[] = "State";

enum class StateEvent : WPARAM { Loaded = 0, Saved = 1 };

std::string WithSeparator(std::string path) {
    if (!path.ends_with('\\') && !path.ends_with('/'))
        path += '\\';
    return path;
}

// The name of the application in force, empty without one.
std::string AppName() {
    const CWinApp* app = GetModuleState().app;
    return app && app->m_pszAppName ? app->m_pszAppName : "";
}

bool CanUse(const std::string& key, SettingsAccess access) {
    return platform::CheckKey(SettingsRoot::User, key, access) == SettingsStatus::Done;
}

bool IsChild(const CWnd& window) {
    return (window.GetStyle() & WS_CHILD) != 0;
}

std::optional<CRect> ReadRect(const std::string& key) {
    platform::SettingValue value;
    if (platform::ReadSetting(SettingsRoot::User, key, StateName, value) != SettingsStatus::Done ||
        value.type != platform::SettingType::Binary)
        return std::nullopt;
    return UnpackRect(value.bytes);
}

void Apply(CWnd& window, const CRect& rect) {
    window.MoveWindow(IsChild(window) ? rect : OnSomeScreen(rect, GetOwner(window.m_hWnd)));
}

CRect RectToKeep(const CWnd& window) {
    const CRect rect = window.GetWindowRect();
    if (!IsChild(window))
        return rect;
    const CPoint corner = ScreenToClient(window.m_hWnd, rect.TopLeft());
    const CPoint end = ScreenToClient(window.m_hWnd, {rect.right, rect.bottom});
    return {corner.x, corner.y, end.x, end.y};
}

void TellChildren(HWND window, StateEvent event, const std::string& key) {
    const std::string path = WithSeparator(key);
    for (const HWND child : view::Children(window))
        try {
            SendMessageA(child, WM_DLG_STATE_REGISTRY, static_cast<WPARAM>(event),
                         reinterpret_cast<LPARAM>(path.c_str()));
        } catch (...) { // the others are told all the same
        }
}

} // namespace

std::string DlgStateBase::GetRootKey(const std::string& base) {
    return base.empty() ? LibraryRoot : WithSeparator(base);
}

// A key that is there is not written: another program may be writing, for a long time.
std::string DlgStateBase::EnsureKey() {
    std::string key = GetRootKey(LibraryRoot);
    if (const std::string name = AppName(); !name.empty())
        key += name + '\\';
    key += std::to_string(StateTemplateId());
    if (!CanUse(key, SettingsAccess::Read))
        platform::CreateKey(SettingsRoot::User, key);
    return key;
}

void DlgStateBase::LoadState(CWnd* window, bool applyRect) {
    try {
        const std::string key = EnsureKey();
        if (!window || !CanUse(key, SettingsAccess::Read))
            return;
        const HWND handle = window->m_hWnd;
        // Neither a value that is none nor a handler of the new size keeps it from the children.
        try {
            if (const std::optional<CRect> rect = ReadRect(key); rect && applyRect)
                Apply(*window, *rect);
        } catch (...) {
        }
        TellChildren(handle, StateEvent::Loaded, key);
    } catch (...) { // a store that fails is a key that cannot be opened
    }
}

void DlgStateBase::SaveState(CWnd* window) {
    try {
        const std::string key = EnsureKey();
        if (!window || !IsWindow(window->m_hWnd) || AppName().empty() || !CanUse(key, SettingsAccess::Write))
            return;
        platform::WriteSetting(SettingsRoot::User, key, StateName,
                               platform::SettingValue::Binary(PackRect(RectToKeep(*window))));
        TellChildren(window->m_hWnd, StateEvent::Saved, key);
    } catch (...) { // as above
    }
}

} // namespace korvel

#pragma once

#include "korvel/window/base/types.h"

#include <string>

namespace korvel {

class CWnd;
struct ResourceModule;

/// The application object of a module; a host names itself by its own.
///
///     CWinApp host;
///     host.m_pszAppName = "Line Planner";
///     host.m_pMainWnd = &frame;
///     SetHostApp(&host);
///     GetModuleState().app->m_pszAppName;   // "Line Planner"
///
/// What the fields point to is the module's own and must outlive its use; each may be null.
class KORVEL_API CWinApp {
public:
    virtual ~CWinApp() = default;
    /// True when the module may run.
    virtual BOOL InitInstance() { return 1; }
    /// The name of the application, under which dialogs keep their state.
    const char* m_pszAppName = nullptr;
    /// The main window: it owns the dialogs that are shown without a parent.
    CWnd* m_pMainWnd = nullptr;
    /// The templates and pictures of the module (app/resource_module.h).
    const ResourceModule* m_pResources = nullptr;
};

/// The base that the library's own application object has in common with its sister modules.
class KORVEL_API CWinAppNoReleaseD2DRefs : public CWinApp {};

/// The library's application object: its initialization loads the templates of the language of the process
/// (values/language.h, app/language_module.h).
class KORVEL_API CKorvelCommonDialogsApp : public CWinAppNoReleaseD2DRefs {
public:
    CKorvelCommonDialogsApp() { m_pszAppName = "KorvelCommonDialogs"; }
    /// Returns 1. The language name stays empty when the settings hold none; the failure then reaches the
    /// first caller who asks for a text.
    BOOL InitInstance() override;
    const std::string& GetLanguageName() const { return m_languageName; }

private:
    std::string m_languageName;
};

/// The library's own application object, initialized at first use.
KORVEL_API CKorvelCommonDialogsApp& GetModuleApp();

/// What a module works with: its application object and the resources of that (null: only what is built in).
struct ModuleState {
    CWinApp* app = nullptr;
    const ResourceModule* resources = nullptr;
};

/// What is in force on the calling thread.
KORVEL_API ModuleState GetModuleState();
/// The host's own application object (not owned, null: none), in force outside the library's entry points.
/// Any thread.
KORVEL_API void SetHostApp(CWinApp* app);
/// That object, also inside the library's entry points; null for none.
KORVEL_API CWinApp* GetHostApp();
/// The main window of the host's application object, also inside the library's entry points; null for none.
KORVEL_API CWnd* GetMainWnd();

/// Switches the calling thread to the library's module state for its lifetime; the first line of each
/// exported entry point that touches resources.
class KORVEL_API ModuleStateGuard {
public:
    ModuleStateGuard();
    ~ModuleStateGuard();
    ModuleStateGuard(const ModuleStateGuard&) = delete;
    ModuleStateGuard& operator=(const ModuleStateGuard&) = delete;

private:
    CWinApp* m_former;
};

} // namespace korvel

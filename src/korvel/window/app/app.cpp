#include "korvel/window/app/app.h"

#include "korvel/values/language.h"
#include "korvel/window/app/language_module.h"

#include <atomic>
#include <exception>
#include <utility>

namespace korvel {
namespace {

std::atomic<CWinApp*>& HostApp() {
    static std::atomic<CWinApp*> app = nullptr;
    return app;
}

// The application object that a guard on this thread has put in force; null: none has.
CWinApp*& GuardedApp() {
    static thread_local CWinApp* app = nullptr;
    return app;
}

} // namespace

BOOL CKorvelCommonDialogsApp::InitInstance() {
    CWinAppNoReleaseD2DRefs::InitInstance();
    try {
        m_languageName = korvel::GetLanguageName();
    } catch (const std::exception&) {
        m_languageName.clear(); // loading never fails; the first caller who asks for a text gets it
    }
    m_pResources = LoadLanguageModule(m_languageName);
    return 1;
}

CKorvelCommonDialogsApp& GetModuleApp() {
    static CKorvelCommonDialogsApp app;
    static const BOOL initialized = app.InitInstance();
    static_cast<void>(initialized);
    return app;
}

ModuleState GetModuleState() {
    CWinApp* app = GuardedApp() ? GuardedApp() : HostApp().load();
    return {app, app ? app->m_pResources : nullptr};
}

void SetHostApp(CWinApp* app) {
    HostApp() = app;
}

CWinApp* GetHostApp() {
    return HostApp();
}

CWnd* GetMainWnd() {
    const CWinApp* app = HostApp();
    return app ? app->m_pMainWnd : nullptr;
}

ModuleStateGuard::ModuleStateGuard() : m_former(std::exchange(GuardedApp(), &GetModuleApp())) {}

ModuleStateGuard::~ModuleStateGuard() {
    GuardedApp() = m_former;
}

} // namespace korvel

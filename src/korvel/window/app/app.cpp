#include "korvel/window/app/app.h"

#include "korvel/values/language.h"

#include <atomic>
#include <exception>
#include <utility>

namespace korvel {
namespace {

std::atomic<CWinApp*>& HostApp() {
    static std::atomic<CWinApp*> app = nullptr;
    return app;
}

// The state that a guard on this thread has put in force; without application object: none has.
ModuleState& GuardedState() {
    static thread_local ModuleState state;
    return state;
}

} // namespace

BOOL CKorvelCommonDialogsApp::InitInstance() {
    CWinAppNoReleaseD2DRefs::InitInstance();
    try {
        m_languageName = korvel::GetLanguageName();
    } catch (const std::exception&) {
        m_languageName.clear(); // loading never fails; the first caller who asks for a text gets it
    }
    return 1;
}

CKorvelCommonDialogsApp& GetModuleApp() {
    static CKorvelCommonDialogsApp app;
    static const BOOL initialized = app.InitInstance();
    static_cast<void>(initialized);
    return app;
}

ModuleState GetModuleState() {
    return GuardedState().app ? GuardedState() : ModuleState{HostApp().load(), nullptr};
}

void SetHostApp(CWinApp* app) {
    HostApp() = app;
}

ModuleStateGuard::ModuleStateGuard()
    : m_former(std::exchange(GuardedState(), ModuleState{&GetModuleApp(), nullptr})) {}

ModuleStateGuard::~ModuleStateGuard() {
    GuardedState() = m_former;
}

} // namespace korvel

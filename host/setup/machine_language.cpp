#include "setup/machine_language.h"

#include "korvel/platform/error.h"
#include "korvel/platform/regional_settings.h"
#include "korvel/platform/settings_store.h"
#include "korvel/values/registry.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace korvel::inspector {
namespace {

using namespace platform;

constexpr const char* BuildFolderStore = KORVEL_BUILD_FOLDER "/machine-settings.sqlite";

bool IsInstalled() {
    SettingValue value;
    return ReadSetting(SettingsRoot::Machine, RegistryPath, "InstallLanguage", value) == SettingsStatus::Done;
}

bool Install() {
    const auto language = SettingValue::Text(UserLanguage() == "de" ? "German" : "English");
    return CreateKey(SettingsRoot::Machine, RegistryPath) == SettingsStatus::Done &&
           WriteSetting(SettingsRoot::Machine, RegistryPath, "InstallLanguage", language) ==
               SettingsStatus::Done;
}

} // namespace

void InstallMachineLanguage() {
    if (IsInstalled() || Install())
        return;
    SetStorePath(SettingsRoot::Machine, BuildFolderStore);
    if (!IsInstalled() && !Install())
        throw Error(std::string("The language could not be written to ") + BuildFolderStore);
}

void UseBuildFolderSettings() try {
    std::error_code unreachable;
    if (!IsInstalled() && std::filesystem::exists(BuildFolderStore, unreachable))
        SetStorePath(SettingsRoot::Machine, BuildFolderStore);
} catch (const Error&) {
    // The machine's settings cannot be read: whoever reads the language says so.
}

} // namespace korvel::inspector

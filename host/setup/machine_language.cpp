#include "setup/machine_language.h"

#include "platform/error.h"
#include "platform/regional_settings.h"
#include "platform/settings_store.h"
#include "values/registry.h"

#include <filesystem>

namespace inspector {

namespace {

using namespace korvel::platform;

const std::filesystem::path kBuildStore =
    std::filesystem::path(KORVEL_BUILD_FOLDER) / "machine-settings.sqlite";

bool IsInstalled() {
    SettingValue value;
    return ReadSetting(SettingsRoot::Machine, korvel::RegistryPath, "InstallLanguage", value) ==
           SettingsStatus::Done;
}

bool Install() {
    const auto language = SettingValue::Text(UserLanguage() == "de" ? "German" : "English");
    return CreateKey(SettingsRoot::Machine, korvel::RegistryPath) == SettingsStatus::Done &&
           WriteSetting(SettingsRoot::Machine, korvel::RegistryPath, "InstallLanguage", language) ==
               SettingsStatus::Done;
}

} // namespace

void InstallMachineLanguage() {
    if (IsInstalled() || Install()) {
        return;
    }
    SetStorePath(SettingsRoot::Machine, kBuildStore);
    if (!IsInstalled() && !Install()) {
        throw korvel::Error("The language could not be written to " + kBuildStore.string());
    }
}

void UseBuildFolderSettings() {
    if (!IsInstalled() && std::filesystem::exists(kBuildStore)) {
        SetStorePath(SettingsRoot::Machine, kBuildStore);
    }
}

} // namespace inspector

#include "korvel/values/registry.h"

#include "korvel/platform/error.h"
#include "korvel/platform/settings_store.h"
#include "korvel/values/replace_first.h"

namespace korvel {

namespace {

using platform::SettingsAccess;
using platform::SettingsRoot;
using platform::SettingsStatus;
using platform::SettingValue;

constexpr const char* CannotOpen = "Registriepfad <$1> konnte nicht ge\xF6"
                                   "ffnet werden";
constexpr const char* CannotRead = "Auslesen der Registrievariable <$1> schlug fehl";
constexpr const char* CannotCreate = "Erzeugen des Registrieschl\xFCssel <$1> in <$2> schlug fehl";

SettingsRoot RootOf(RegistryRoot root) {
    return root == RegistryRoot::CurrentUser ? SettingsRoot::User : SettingsRoot::Machine;
}

std::string Join(const std::string& path, const std::string& subkey) {
    return subkey.empty() ? path : path + '\\' + subkey;
}

Error Failure(std::string text, const std::string& name) {
    ReplaceFirst(text, "$1", name);
    return Error(text);
}

Error CreationFailure(const std::string& subkey, const std::string& path) {
    std::string text = CannotCreate;
    ReplaceFirst(text, "$1", subkey);
    ReplaceFirst(text, "$2", path);
    return Error(text);
}

} // namespace

std::string ReadRegistry(RegistryRoot root, const std::string& path, const std::string& subkey,
                         const std::string& name) {
    SettingValue value;
    switch (platform::ReadSetting(RootOf(root), Join(path, subkey), name, value)) {
    case SettingsStatus::Done:
        return value.bytes.substr(0, value.bytes.find('\0'));
    case SettingsStatus::ValueMissing:
        throw Failure(CannotRead, name);
    case SettingsStatus::KeyMissing:
    case SettingsStatus::AccessDenied:
        break;
    }
    throw Failure(CannotOpen, path);
}

void WriteRegistry(RegistryRoot root, const std::string& path, const std::string& subkey,
                   const std::string& name, const std::string& text) {
    const SettingsRoot store = RootOf(root);
    const std::string key = Join(path, subkey);
    if (platform::CheckKey(store, key, SettingsAccess::Write) != SettingsStatus::Done) {
        if (platform::CheckKey(store, path, SettingsAccess::Write) != SettingsStatus::Done)
            throw Failure(CannotOpen, path);
        if (platform::CreateKey(store, key) != SettingsStatus::Done)
            throw CreationFailure(subkey, path);
    }
    // Another program may have taken the key away meanwhile.
    if (platform::WriteSetting(store, key, name, SettingValue::Text(text)) != SettingsStatus::Done)
        throw Failure(CannotOpen, path);
}

} // namespace korvel

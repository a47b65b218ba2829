#include "program/document_notes.h"

#include "korvel/platform/code_page.h"
#include "korvel/platform/error.h"
#include "korvel/platform/settings_store.h"
#include "program/absolute_path.h"
#include "program/run_settings.h"
#include "program/settings_keys.h"
#include "texts/messages.h"

#include <functional>
#include <string_view>

namespace korvel::inspector {
namespace {

using platform::SettingsRoot;
using platform::SettingsStatus;
using platform::SettingType;
using platform::SettingValue;

constexpr std::string_view PlainCharacters = "abcdefghijklmnopqrstuvwxyz0123456789/._- ";

// Keys know no case, and a backslash parts them; files know both.
std::string KeyNameOf(const std::string& path) {
    constexpr char Digits[] = "0123456789abcdef";
    std::string name;
    for (const char byte : path) {
        const unsigned number = static_cast<unsigned char>(byte);
        if (PlainCharacters.find(byte) != std::string_view::npos)
            name += byte;
        else
            name = name + '%' + Digits[number / 16] + Digits[number % 16];
    }
    return name;
}

[[noreturn]] void Throw(const std::string& utf8) {
    throw Error(platform::FromUtf8(utf8).text);
}

// Throws, in the language of the process, unless the store could be used: `denied` says what is wrong without
// the right to it, `failed` what else it may be.
SettingsStatus UseStore(const std::function<SettingsStatus()>& use, const char* denied, const char* failed) {
    SettingsStatus status = SettingsStatus::Done;
    try {
        status = use();
    } catch (const Error&) {
        Throw(SetAsideIfDamaged(SettingsRoot::User, failed));
    }
    if (status == SettingsStatus::AccessDenied)
        Throw(Say({denied, {platform::StorePath(SettingsRoot::User).string()}}));
    return status;
}

} // namespace

DocumentNotes::DocumentNotes(const std::string& file)
    : m_key(DocumentsKey + KeyNameOf(CanonicalPath(file))) {}

std::optional<std::string> DocumentNotes::Find(const char* note) const {
    SettingValue value;
    const SettingsStatus status =
        UseStore([&] { return platform::ReadSetting(SettingsRoot::User, m_key, note, value); },
                 "the settings cannot be read: there is no right to read %1",
                 "the settings cannot be read: %1 is locked or out of reach");
    if (status != SettingsStatus::Done || value.type != SettingType::Text)
        return std::nullopt;
    return value.bytes;
}

void DocumentNotes::Keep(const char* note, const std::string& text) const {
    const auto write = [&] {
        const bool isKept = platform::CreateKey(SettingsRoot::User, m_key) == SettingsStatus::Done &&
                            platform::WriteSetting(SettingsRoot::User, m_key, note,
                                                   SettingValue::Text(text)) == SettingsStatus::Done;
        return isKept ? SettingsStatus::Done : SettingsStatus::AccessDenied;
    };
    UseStore(write, "the settings cannot be written: there is no right to write to %1",
             "the settings cannot be written: %1 is full, locked or out of reach");
}

} // namespace korvel::inspector

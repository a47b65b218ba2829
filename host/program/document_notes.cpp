#include "program/document_notes.h"

#include "korvel/platform/code_page.h"
#include "korvel/platform/error.h"
#include "korvel/platform/settings_store.h"
#include "program/absolute_path.h"
#include "program/settings_keys.h"
#include "texts/messages.h"

#include <filesystem>
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

// Of a file that need not exist; only an absolute path is followed then, too.
std::string CanonicalPath(const std::string& file) {
    std::error_code failure;
    const std::filesystem::path path = AbsolutePath(file);
    const std::filesystem::path followed = std::filesystem::weakly_canonical(path, failure);
    return failure ? path.string() : followed.string();
}

[[noreturn]] void ThrowDenied(const char* message) {
    const std::string store = platform::StorePath(SettingsRoot::User).string();
    throw Error(platform::FromUtf8(Say({message, {store}})).text);
}

} // namespace

DocumentNotes::DocumentNotes(const std::string& file)
    : m_key(DocumentsKey + KeyNameOf(CanonicalPath(file))) {}

std::optional<std::string> DocumentNotes::Find(const char* note) const {
    SettingValue value;
    const SettingsStatus status = platform::ReadSetting(SettingsRoot::User, m_key, note, value);
    if (status == SettingsStatus::AccessDenied)
        ThrowDenied("the settings cannot be read: there is no right to read %1");
    if (status != SettingsStatus::Done || value.type != SettingType::Text)
        return std::nullopt;
    return value.bytes;
}

void DocumentNotes::Keep(const char* note, const std::string& text) const {
    SettingsStatus status = platform::CreateKey(SettingsRoot::User, m_key);
    if (status == SettingsStatus::Done)
        status = platform::WriteSetting(SettingsRoot::User, m_key, note, SettingValue::Text(text));
    if (status != SettingsStatus::Done)
        ThrowDenied("the settings cannot be written: there is no right to write to %1");
}

} // namespace korvel::inspector

#include "program/recent_files.h"

#include "korvel/platform/error.h"
#include "korvel/platform/settings_store.h"
#include "program/absolute_path.h"
#include "program/settings_keys.h"

#include <algorithm>
#include <filesystem>

namespace korvel::inspector {
namespace {

using platform::SettingsRoot;
using platform::SettingType;
using platform::SettingValue;

constexpr const char* ValueName = "RecentFiles"; // absolute paths, each ended by a zero byte

std::string Absolute(const std::string& file) {
    return std::filesystem::path(AbsolutePath(file)).lexically_normal().string();
}

// Throws Error where the list cannot be read: nothing may take its place then.
std::vector<std::string> KeptFiles() {
    SettingValue value;
    platform::ReadSetting(SettingsRoot::User, RecentFilesKey, ValueName, value);
    std::vector<std::string> files;
    if (value.type != SettingType::Binary)
        return files;
    for (std::size_t begin = 0, end = 0;
         files.size() < MostRecentFiles && (end = value.bytes.find('\0', begin)) != std::string::npos;
         begin = end + 1)
        if (end > begin)
            files.push_back(value.bytes.substr(begin, end - begin));
    return files;
}

void Keep(const std::vector<std::string>& files) {
    std::string bytes;
    for (std::size_t i = 0; i < std::min(files.size(), MostRecentFiles); ++i)
        bytes += files[i] + '\0';
    platform::CreateKey(SettingsRoot::User, RecentFilesKey);
    platform::WriteSetting(SettingsRoot::User, RecentFilesKey, ValueName, SettingValue::Binary(bytes));
}

enum class Place { First, None };

void Move(const std::string& file, Place place) {
    const std::string path = Absolute(file);
    try {
        std::vector<std::string> files = KeptFiles();
        files.erase(std::remove(files.begin(), files.end(), path), files.end());
        if (place == Place::First)
            files.insert(files.begin(), path);
        Keep(files);
    } catch (const Error&) { // only this file is not listed
    }
}

} // namespace

std::vector<std::string> RecentFiles() {
    try {
        return KeptFiles();
    } catch (const Error&) {
        return {};
    }
}

void AddRecentFile(const std::string& file) {
    Move(file, Place::First);
}

void RemoveRecentFile(const std::string& file) {
    Move(file, Place::None);
}

} // namespace korvel::inspector

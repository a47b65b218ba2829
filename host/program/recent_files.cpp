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

std::vector<std::string> ListWithout(const std::string& path) {
    std::vector<std::string> files = RecentFiles();
    files.erase(std::remove(files.begin(), files.end(), path), files.end());
    return files;
}

void Keep(const std::vector<std::string>& files) {
    std::string bytes;
    for (std::size_t i = 0; i < std::min(files.size(), MostRecentFiles); ++i)
        bytes += files[i] + '\0';
    try {
        platform::CreateKey(SettingsRoot::User, RecentFilesKey);
        platform::WriteSetting(SettingsRoot::User, RecentFilesKey, ValueName, SettingValue::Binary(bytes));
    } catch (const Error&) {
    }
}

} // namespace

std::vector<std::string> RecentFiles() {
    SettingValue value;
    try {
        platform::ReadSetting(SettingsRoot::User, RecentFilesKey, ValueName, value);
    } catch (const Error&) {
    }
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

void AddRecentFile(const std::string& file) {
    const std::string path = Absolute(file);
    std::vector<std::string> files = ListWithout(path);
    files.insert(files.begin(), path);
    Keep(files);
}

void RemoveRecentFile(const std::string& file) {
    Keep(ListWithout(Absolute(file)));
}

} // namespace korvel::inspector

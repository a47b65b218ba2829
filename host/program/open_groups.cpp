#include "program/open_groups.h"

#include "korvel/platform/error.h"
#include "korvel/platform/settings_store.h"
#include "program/absolute_path.h"
#include "program/settings_keys.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace korvel::inspector {
namespace {

using platform::SettingsRoot;
using platform::SettingType;
using platform::SettingValue;

// Of each document its path, its groups as "depth name" and an empty text, each ended by a zero byte.
constexpr const char* ValueName = "OpenGroups";

struct KeptDocument {
    std::string path;
    std::string groups; // each ended by a zero byte

    std::string Record() const { return path + '\0' + groups + '\0'; }
};

// The text up to the next zero byte, which is taken from `rest` with it; nothing left where there is none.
std::string_view TakeText(std::string_view& rest) {
    const std::size_t end = std::min(rest.find('\0'), rest.size());
    const std::string_view text = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return text;
}

// Throws Error where they cannot be read: nothing may take their place then.
std::vector<KeptDocument> KeptDocuments() {
    SettingValue value;
    platform::ReadSetting(SettingsRoot::User, RecentFilesKey, ValueName, value);
    std::vector<KeptDocument> documents;
    if (value.type != SettingType::Binary)
        return documents;
    for (std::string_view rest = value.bytes; !rest.empty() && documents.size() < MostKeptDocuments;) {
        KeptDocument document{std::string(TakeText(rest)), {}};
        for (std::string_view group; !(group = TakeText(rest)).empty();)
            document.groups += std::string(group) + '\0';
        documents.push_back(std::move(document));
    }
    return documents;
}

std::string Written(const std::vector<OpenGroup>& groups) {
    std::string text;
    for (const OpenGroup& group : groups) {
        const std::string line = std::to_string(group.depth) + ' ' + group.name + '\0';
        if (text.size() + line.size() > MostKeptBytes)
            break;
        text += line;
    }
    return text;
}

// A text that is none of what was written is left out.
std::vector<OpenGroup> Read(std::string_view text) {
    std::vector<OpenGroup> groups;
    while (!text.empty()) {
        const std::string_view line = TakeText(text);
        std::size_t depth = 0;
        const auto [end, failure] = std::from_chars(line.data(), line.data() + line.size(), depth);
        const auto digits = static_cast<std::size_t>(end - line.data());
        if (failure == std::errc() && line.substr(digits).starts_with(' '))
            groups.push_back({depth, std::string(line.substr(digits + 1))});
    }
    return groups;
}

void Keep(const KeptDocument& document) {
    std::vector<KeptDocument> documents = KeptDocuments();
    std::erase_if(documents, [&](const KeptDocument& kept) { return kept.path == document.path; });
    if (!document.groups.empty())
        documents.insert(documents.begin(), document);
    std::string bytes;
    for (std::size_t i = 0; i < std::min(documents.size(), MostKeptDocuments); ++i)
        bytes += documents[i].Record();
    platform::CreateKey(SettingsRoot::User, RecentFilesKey);
    platform::WriteSetting(SettingsRoot::User, RecentFilesKey, ValueName, SettingValue::Binary(bytes));
}

} // namespace

std::vector<OpenGroup> KeptOpenGroups(const std::string& file) {
    try {
        const std::string path = CanonicalPath(file);
        for (const KeptDocument& document : KeptDocuments())
            if (document.path == path)
                return Read(document.groups);
    } catch (const Error&) { // all groups are closed, as at first
    }
    return {};
}

void KeepOpenGroups(const std::string& file, const std::vector<OpenGroup>& groups) {
    try {
        Keep({CanonicalPath(file), Written(groups)});
    } catch (const Error&) { // only this document opens with other groups
    }
}

} // namespace korvel::inspector

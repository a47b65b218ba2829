#include "korvel/platform/settings_store.h"

#include "korvel/platform/code_page.h"
#include "korvel/platform/error.h"
#include "korvel/platform/store_database.h"
#include "korvel/platform/store_statement.h"
#include "korvel/platform/user_folders.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <mutex>
#include <unistd.h>
#include <vector>

namespace korvel::platform {
namespace {

using internal::StoreAccessDenied;
using internal::StoreDatabase;
using internal::StoreJournal;
using internal::StoreStatement;
using internal::StoreUse;
using internal::WrongStoreValue;

constexpr const char* StoreFile = "settings.sqlite";

// The files that this process uses instead of the usual ones.
class ChosenFiles {
public:
    static ChosenFiles& Instance() {
        static ChosenFiles instance;
        return instance;
    }
    std::filesystem::path File(SettingsRoot root) {
        const std::lock_guard lock(m_mutex);
        return m_files[static_cast<std::size_t>(root)];
    }
    void Choose(SettingsRoot root, std::filesystem::path file) {
        const std::lock_guard lock(m_mutex);
        m_files[static_cast<std::size_t>(root)] = std::move(file);
    }

private:
    std::mutex m_mutex;
    std::array<std::filesystem::path, 2> m_files;
};

// The form in which names are compared and stored.
std::string StoredName(std::string_view name) {
    return ToUtf8(FoldCase(name));
}

// The stored paths from the topmost key down to this one; none for the root.
std::vector<std::string> KeysDownTo(std::string_view path) {
    std::vector<std::string> keys;
    std::string key;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('\\'), path.size());
        if (end > 0) {
            key += (key.empty() ? "" : "\\") + StoredName(path.substr(0, end));
            keys.push_back(key);
        }
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return keys;
}

std::string StoredPath(std::string_view path) {
    const std::vector<std::string> keys = KeysDownTo(path);
    return keys.empty() ? "" : keys.back();
}

bool HasKey(StoreDatabase& store, const std::string& path) {
    return path.empty() ||
           StoreStatement(store, "SELECT 1 FROM keys WHERE path = ?").BindText(1, path).Step();
}

void BindValue(StoreStatement& statement, int parameter, const SettingValue& value) {
    switch (value.type) {
    case SettingType::Text:
        statement.BindText(parameter, ToUtf8(value.bytes));
        break;
    case SettingType::Binary:
        statement.BindBinary(parameter, value.bytes);
        break;
    case SettingType::Number:
        if (!value.AsNumber())
            throw Error("A number in the settings store has four bytes");
        statement.BindNumber(parameter, *value.AsNumber());
        break;
    }
}

// Nothing for what no setting is.
std::optional<SettingValue> ColumnValue(const StoreStatement& statement, int column) {
    switch (statement.ColumnKind(column)) {
    case StoreStatement::Kind::Text:
        return SettingValue::Text(FromUtf8(statement.ColumnBytes(column)).text);
    case StoreStatement::Kind::Binary:
        return SettingValue::Binary(statement.ColumnBytes(column));
    case StoreStatement::Kind::Number:
        return SettingValue::Number(static_cast<std::uint32_t>(statement.ColumnNumber(column)));
    case StoreStatement::Kind::Other:
        break;
    }
    return std::nullopt;
}

std::optional<SettingValue> FindValue(StoreDatabase& store, const std::string& key, std::string_view name) {
    StoreStatement query(store, "SELECT value FROM settings WHERE path = ? AND name = ?");
    if (!query.BindText(1, key).BindText(2, StoredName(name)).Step())
        return std::nullopt;
    std::optional<SettingValue> value = ColumnValue(query, 0);
    if (!value)
        throw WrongStoreValue(store.File(), name);
    return value;
}

// The machine's store is written at set-up and read by users who may write nothing there.
StoreJournal JournalOf(SettingsRoot root) {
    return root == SettingsRoot::User ? StoreJournal::Log : StoreJournal::Rollback;
}

StoreDatabase OpenToWrite(SettingsRoot root) {
    StoreDatabase store = StoreDatabase::OpenOrCreate(StorePath(root));
    store.KeepJournal(JournalOf(root));
    return store;
}

bool MayWrite(const std::filesystem::path& place) {
    return faccessat(AT_FDCWD, place.c_str(), W_OK, AT_EACCESS) == 0;
}

// Changing the file takes the right to write to its folder too, where the journal is meanwhile.
bool MayWriteStore(const std::filesystem::path& file) {
    std::error_code error;
    if (std::filesystem::exists(file, error) && !MayWrite(file))
        return false;
    std::filesystem::path folder = file.parent_path();
    while (!folder.empty() && folder.has_relative_path() && !std::filesystem::exists(folder, error))
        folder = folder.parent_path();
    return MayWrite(folder.empty() ? "." : folder);
}

template <typename Operation>
SettingsStatus Run(Operation operation) {
    try {
        return operation();
    } catch (const StoreAccessDenied&) {
        return SettingsStatus::AccessDenied;
    }
}

} // namespace

SettingValue SettingValue::Number(std::uint32_t number) {
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes.push_back(static_cast<char>(number >> shift));
    return {SettingType::Number, bytes};
}

std::optional<std::uint32_t> SettingValue::AsNumber() const {
    if (type != SettingType::Number || bytes.size() != 4)
        return std::nullopt;
    std::uint32_t number = 0;
    for (std::size_t i = 4; i > 0; --i)
        number = number << 8 | static_cast<unsigned char>(bytes[i - 1]);
    return number;
}

std::filesystem::path StorePath(SettingsRoot root) {
    std::filesystem::path chosen = ChosenFiles::Instance().File(root);
    if (!chosen.empty())
        return chosen;
    const std::filesystem::path folder =
        root == SettingsRoot::User ? UserConfigFolder() : MachineConfigFolder();
    return folder.empty() ? folder : folder / StoreFile;
}

void SetStorePath(SettingsRoot root, std::filesystem::path file) {
    ChosenFiles::Instance().Choose(root, std::move(file));
}

SettingsStatus CheckKey(SettingsRoot root, std::string_view path, SettingsAccess access) {
    return Run([&] {
        const std::string key = StoredPath(path);
        std::optional<StoreDatabase> store = StoreDatabase::OpenExisting(StorePath(root), StoreUse::Reading);
        if (!key.empty() && (!store || !HasKey(*store, key)))
            return SettingsStatus::KeyMissing;
        const bool allowed = access == SettingsAccess::Read || MayWriteStore(StorePath(root));
        return allowed ? SettingsStatus::Done : SettingsStatus::AccessDenied;
    });
}

SettingsStatus CreateKey(SettingsRoot root, std::string_view path) {
    return Run([&] {
        StoreDatabase store = OpenToWrite(root);
        store.BeginWriting();
        for (const std::string& key : KeysDownTo(path))
            StoreStatement(store, "INSERT OR IGNORE INTO keys VALUES(?)").BindText(1, key).Step();
        store.Commit();
        return SettingsStatus::Done;
    });
}

SettingsStatus ReadSetting(SettingsRoot root, std::string_view path, std::string_view name,
                           SettingValue& value) {
    return Run([&] {
        const std::string key = StoredPath(path);
        std::optional<StoreDatabase> store = StoreDatabase::OpenExisting(StorePath(root), StoreUse::Reading);
        if (!store)
            return key.empty() ? SettingsStatus::ValueMissing : SettingsStatus::KeyMissing;
        std::optional<SettingValue> found = FindValue(*store, key, name);
        if (!found)
            return HasKey(*store, key) ? SettingsStatus::ValueMissing : SettingsStatus::KeyMissing;
        value = std::move(*found);
        return SettingsStatus::Done;
    });
}

SettingsStatus ReadSettings(SettingsRoot root, std::string_view path, std::span<const std::string_view> names,
                            std::vector<std::optional<SettingValue>>& values) {
    return Run([&] {
        std::vector<std::optional<SettingValue>> found(names.size());
        std::optional<WrongStoreValue> wrong; // the first
        const std::string key = StoredPath(path);
        std::optional<StoreDatabase> store = StoreDatabase::OpenExisting(StorePath(root), StoreUse::Reading);
        if (!key.empty() && (!store || !HasKey(*store, key)))
            return SettingsStatus::KeyMissing;
        if (store) {
            store->BeginReading();
            for (std::size_t i = 0; i < names.size(); ++i) {
                try {
                    found[i] = FindValue(*store, key, names[i]);
                } catch (const WrongStoreValue& error) {
                    wrong = wrong.value_or(error);
                }
            }
        }
        values = std::move(found);
        if (wrong)
            throw *wrong;
        return SettingsStatus::Done;
    });
}

SettingsStatus WriteSetting(SettingsRoot root, std::string_view path, std::string_view name,
                            const SettingValue& value) {
    return Run([&] {
        const std::string key = StoredPath(path);
        std::optional<StoreDatabase> store = StoreDatabase::OpenExisting(StorePath(root), StoreUse::Writing);
        if (!store && key.empty())
            store = OpenToWrite(root);
        if (!store)
            return SettingsStatus::KeyMissing;
        store->KeepJournal(JournalOf(root));
        store->BeginWriting();
        if (!HasKey(*store, key))
            return SettingsStatus::KeyMissing;
        StoreStatement statement(*store, "INSERT OR REPLACE INTO settings VALUES(?, ?, ?)");
        statement.BindText(1, key).BindText(2, StoredName(name));
        BindValue(statement, 3, value);
        statement.Step();
        store->Commit();
        return SettingsStatus::Done;
    });
}

} // namespace korvel::platform

#pragma once

#include "korvel/platform/settings_store.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace korvel::platform {

/// The folders that the next class has made and not removed yet: a test may end its process.
struct PresentFolders {
    ~PresentFolders() {
        if (getpid() != process)
            return; // a copy of the process, which does not own them
        for (const std::filesystem::path& path : paths)
            std::filesystem::remove_all(path);
    }
    const pid_t process = getpid();
    std::set<std::filesystem::path> paths;
};
inline PresentFolders presentFolders;

/// A new folder below the system's temporary one, removed at the end.
class ScratchFolder {
public:
    ScratchFolder() {
        std::string name = std::filesystem::temp_directory_path() / "korvel-XXXXXX";
        m_path = mkdtemp(name.data());
        presentFolders.paths.insert(m_path);
    }
    ~ScratchFolder() {
        presentFolders.paths.erase(m_path);
        std::filesystem::remove_all(m_path);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

/// The settings of the user and of the machine in stores of their own, empty at first.
class ScratchStore : public ScratchFolder {
public:
    ScratchStore() {
        SetStorePath(SettingsRoot::User, File());
        SetStorePath(SettingsRoot::Machine, Path() / "machine.sqlite");
    }
    ~ScratchStore() {
        SetStorePath(SettingsRoot::User, {});
        SetStorePath(SettingsRoot::Machine, {});
    }
    std::filesystem::path File() const { return Path() / "below" / "settings.sqlite"; }
};

/// Sets one of the user's regional settings.
inline void WriteRegional(const std::string& name, const SettingValue& value) {
    const char* key = "Control Panel\\International";
    CreateKey(SettingsRoot::User, key);
    WriteSetting(SettingsRoot::User, key, name, value);
}

/// Sets a variable of the environment, or removes it for a null value, until the end of this object.
class ScratchVariable {
public:
    ScratchVariable(const char* name, const char* value) : m_name(name) {
        if (const char* before = std::getenv(name))
            m_before = before;
        Set(value);
    }
    ~ScratchVariable() { Set(m_before ? m_before->c_str() : nullptr); }
    ScratchVariable(const ScratchVariable&) = delete;
    ScratchVariable& operator=(const ScratchVariable&) = delete;

private:
    void Set(const char* value) { value != nullptr ? setenv(m_name, value, 1) : unsetenv(m_name); }

    const char* m_name;
    std::optional<std::string> m_before;
};

/// While it exists, the process has a user to whom file permissions apply, also where it runs as root.
class OrdinaryUser {
public:
    OrdinaryUser() : m_user(geteuid()) {
        if (m_user == 0 && seteuid(65534) != 0)
            throw std::runtime_error("the tests cannot give up their rights");
    }
    ~OrdinaryUser() { [[maybe_unused]] const int result = seteuid(m_user); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    uid_t m_user;
};

/// A socket: a file that can be neither read nor written.
inline std::filesystem::path MakeSocketFile(const std::filesystem::path& path) {
    if (mknod(path.c_str(), S_IFSOCK | 0600, 0) != 0)
        throw std::runtime_error("the tests cannot make a socket");
    return path;
}

/// The bytes of a file.
inline std::string ContentOf(const std::filesystem::path& path) {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

} // namespace korvel::platform

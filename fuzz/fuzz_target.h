#pragma once

#include "korvel/platform/regional_settings.h"
#include "korvel/platform/settings_store.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <unistd.h>

/// What one target makes of an input. It returns 0; whatever must not happen ends the process.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace korvel::fuzz {

inline void Require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

/// Takes values off the front of an input; one that has come to its end gives zeros.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : m_rest(reinterpret_cast<const char*>(data), size) {}

    template <typename Number>
    Number Take() {
        Number number{};
        const std::string_view bytes = TakeText(sizeof(Number));
        std::memcpy(&number, bytes.data(), bytes.size());
        return number;
    }

    std::string_view TakeText(std::size_t longest) {
        const std::string_view text = m_rest.substr(0, longest);
        m_rest.remove_prefix(text.size());
        return text;
    }

    std::string_view Rest() const { return m_rest; }

private:
    std::string_view m_rest;
};

/// A folder in memory where there is one: a target writes a file for each of its inputs.
class ScratchFolder {
public:
    ScratchFolder() {
        const std::filesystem::path memory = "/dev/shm";
        const bool inMemory = ::access(memory.c_str(), W_OK) == 0;
        std::string name =
            (inMemory ? memory : std::filesystem::temp_directory_path()) / "korvel-fuzz-XXXXXX";
        Require(mkdtemp(name.data()) != nullptr, "a folder for files can be made");
        m_path = name;
    }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    /// A file of this content, under the same name each time.
    std::string File(std::string_view content) const {
        const std::string path = m_path / "input";
        std::ofstream(path, std::ios::binary | std::ios::trunc) << content;
        return path;
    }

private:
    std::filesystem::path m_path;
};

/// German regional settings, and stores that hold nothing: the same results on every machine.
class GermanMachine {
public:
    GermanMachine() {
        platform::SetStorePath(platform::SettingsRoot::User, m_folder.File("") + ".user");
        platform::SetStorePath(platform::SettingsRoot::Machine, m_folder.File("") + ".machine");
        platform::UseLocale("de-DE");
    }

    const ScratchFolder& Folder() const { return m_folder; }

private:
    ScratchFolder m_folder;
};

} // namespace korvel::fuzz

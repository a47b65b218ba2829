#pragma once

#include "korvel/platform/regional_settings.h"
#include "support/scratch.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <string_view>

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

/// German regional settings, and stores that hold nothing: the same results on every machine.
class GermanMachine : public platform::ScratchStore {
public:
    GermanMachine() { platform::UseLocale("de-DE"); }

    /// A file of this content, under the same name each time.
    std::string FileOf(std::string_view content) const {
        std::string path = Path() / "input";
        std::ofstream(path, std::ios::binary | std::ios::trunc) << content;
        return path;
    }
};

} // namespace korvel::fuzz

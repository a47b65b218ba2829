#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct UConverter;

namespace korvel::internal {

/// Reads the bytes of one of the encodings that ICU knows, character by character, and writes them.
///
///     CharacterConverter converter("KOI8-R");
///     for (converter.Start(bytes); converter.Next(character);) ...
///     converter.Failed()   // whether it ended before the bytes did
class CharacterConverter {
public:
    /// The name by which ICU knows an encoding, whatever it is called by; empty for one that it does not
    /// know.
    static std::string CanonicalName(const std::string& name);
    /// The registered name of an encoding, or the one that ICU gives it.
    static std::string RegisteredName(const std::string& canonicalName);

    /// \throws Error for a name that ICU does not know
    explicit CharacterConverter(const std::string& name);
    ~CharacterConverter();
    CharacterConverter(const CharacterConverter&) = delete;
    CharacterConverter& operator=(const CharacterConverter&) = delete;

    /// True where the characters of an XML declaration are single bytes, as in ASCII, and mean nothing else.
    bool HoldsAscii();

    /// The bytes must outlive the reading.
    void Start(std::string_view bytes);
    /// False at the end and at bytes that are no character; the next call then reads after them.
    bool Next(char32_t& character);
    bool Failed() const { return m_failed; }

    /// Nothing where the encoding lacks a character of the text.
    std::optional<std::string> Write(std::string_view utf8);

private:
    bool Append(std::u16string_view piece, bool isLast, std::string& bytes);

    struct Close {
        void operator()(UConverter* converter) const;
    };
    std::unique_ptr<UConverter, Close> m_converter;
    const char* m_next = nullptr;
    const char* m_end = nullptr;
    bool m_failed = false;
};

} // namespace korvel::internal

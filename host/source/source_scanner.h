#pragma once

#include <cstddef>
#include <string_view>

namespace korvel::inspector {

/// An attribute where it stands in the document: name and value as written, without the quotes.
struct AttributeSource {
    std::string_view name;
    std::string_view value;
};

/// No file of the field has longer names and attributes; longer ones come from broken or hostile files.
inline constexpr std::size_t LongestName = 1000;
inline constexpr std::size_t LongestAttribute = 10'000'000;

/// Moves through the text of a document and reads the pieces that XML is made of, strictly: whatever is not
/// well-formed throws SourceError with its place.
class SourceScanner {
public:
    explicit SourceScanner(std::string_view text, std::size_t position = 0)
        : m_text(text), m_position(position) {}

    bool AtEnd() const { return m_position >= m_text.size(); }
    std::size_t Position() const { return m_position; }
    bool IsAt(std::string_view literal) const { return m_text.substr(m_position).starts_with(literal); }

    /// Moves behind `literal` when it stands here.
    bool Skip(std::string_view literal);
    bool SkipBlanks();
    std::string_view Name();

    /// The next attribute of a start tag; false at the end of the tag, which stays unread.
    bool NextAttribute(AttributeSource& attribute);

    /// Moves to the next '<' or the end, and checks the references on the way.
    std::string_view CharacterData();

    /// Each stands at the first character of its piece and moves behind it.
    void Comment();
    void Instruction();
    void CharacterSection();
    void DocumentType();

    [[noreturn]] void Fail(std::size_t offset, std::string_view reason) const;

private:
    void SkipBehind(std::string_view end, std::string_view piece);
    void SkipQuoted();
    void CheckReferences(std::string_view text) const;

    std::string_view m_text;
    std::size_t m_position;
};

/// The character that a reference stands for; `reference` is what stands between "&" and ";". 0 for an entity
/// that XML does not define itself and for characters that it does not allow.
char32_t ReferencedCharacter(std::string_view reference);

} // namespace korvel::inspector

#pragma once

#include "landxml/word_list.h"

#include <string>
#include <string_view>
#include <vector>

namespace korvel::inspector {

/// A closed list of words of LandXML, of which a value selects one: its text is the word. The words never
/// change, so nothing can be added, removed or renamed.
///
///     LandXmlEnumeration list("cw|ccw");
///     list.Find(" ccw ")           // 1
///     list.Selected("cw")          // the value of an attribute rot='cw'
class LandXmlEnumeration : public WordList {
public:
    /// `words` are separated by '|'. Blanks at their ends are part of what is written into a file, but do not
    /// count when a file is read.
    explicit LandXmlEnumeration(std::string_view words);

    const std::vector<std::string>& Words() const { return m_words; }
    /// The entry that a text of a file means; -1: none.
    long Find(std::string_view text) const;

    /// The value that selects what a file says.
    CVariantValue Selected(std::string text);

    const std::string* WordOf(long id) const override;
    long EntryFrom(long id) const override;
    long AddValue(const std::string&, const std::string&) override { return -1; }
    void RemoveValue(long) override {}
    bool SetName(long, const CVariantValue&) override { return false; }
    bool IsValue(long id, const CVariantValue& value) override;
    void Select(long id, CVariantValue& value) override;
    void Deselect(long id, CVariantValue& value) override;
    /// The words are no paths: several hold '/' or '-', none a backslash.
    const char* GetSeparator(bool) const override { return "\\"; }

private:
    std::vector<std::string> m_words;
};

} // namespace korvel::inspector

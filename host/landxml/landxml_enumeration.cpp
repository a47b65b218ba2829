#include "landxml/landxml_enumeration.h"

#include "source/blanks.h"

#include <algorithm>
#include <utility>

namespace korvel::inspector {
namespace {

std::vector<std::string> SplitAtBars(std::string_view text) {
    std::vector<std::string> words;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('|'), text.size());
        words.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return words;
}

} // namespace

LandXmlEnumeration::LandXmlEnumeration(std::string_view words) : WordList(0), m_words(SplitAtBars(words)) {}

long LandXmlEnumeration::Find(std::string_view text) const {
    const auto found = std::find_if(m_words.begin(), m_words.end(),
                                    [&](const std::string& word) { return Trim(word) == Trim(text); });
    return found == m_words.end() ? -1 : static_cast<long>(found - m_words.begin());
}

CVariantValue LandXmlEnumeration::Selected(std::string text) {
    CVariantValue value;
    value.Type = DT_ListString;
    value.Text = std::move(text);
    value.EnumValue = this;
    return value;
}

const std::string* LandXmlEnumeration::WordOf(long id) const {
    const auto index = static_cast<std::size_t>(id); // a negative one is beyond all
    return index < m_words.size() ? &m_words[index] : nullptr;
}

long LandXmlEnumeration::EntryFrom(long id) const {
    return WordOf(id) ? id : -1;
}

bool LandXmlEnumeration::IsValue(long id, const CVariantValue& value) {
    const std::string* word = WordOf(id);
    return word && Trim(*word) == Trim(value.Text);
}

void LandXmlEnumeration::Select(long id, CVariantValue& value) {
    if (const std::string* word = WordOf(id))
        value = Selected(*word);
}

void LandXmlEnumeration::Deselect(long id, CVariantValue& value) {
    if (IsValue(id, value))
        value.Text.clear();
}

} // namespace korvel::inspector

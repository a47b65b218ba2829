#include "landxml/editable_word_list.h"

#include <algorithm>

namespace korvel::inspector {
namespace {

void Mark(std::string& marks, long id, char mark) {
    const auto place = static_cast<std::size_t>(id);
    if (place >= marks.size())
        marks.resize(place + 1, '0');
    marks[place] = mark;
}

// What a word may hold to be part of a file's name on every system, and to stay in its folder.
bool IsFileName(const std::string& word) {
    return !word.empty() && std::all_of(
                                word.begin(), word.end(),
                                [](char c) {
                                    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                                           (c >= '0' && c <= '9') || c == ' ' || c == '-' || c == '_';
                                });
}

} // namespace

EditableWordList::EditableWordList(const std::vector<std::string>& names, std::uint32_t flags)
    : WordList(flags) {
    for (const std::string& name : names)
        Insert(name, name);
}

CVariantValue EditableWordList::Selected(const std::vector<long>& ids) {
    CVariantValue value;
    value.Type = DT_ListString;
    value.EnumValue = this;
    for (const long id : ids)
        Select(id, value);
    return value;
}

long EditableWordList::FirstSelected(const CVariantValue& value) {
    const std::size_t place = value.Text.find('1');
    return place == std::string::npos ? -1 : static_cast<long>(place);
}

long EditableWordList::Insert(const std::string& name, const std::string& image) {
    if (name.empty() || !m_ids.emplace(name, m_nextId).second)
        return -1;
    m_entries[m_nextId] = {name, image};
    return m_nextId++;
}

long EditableWordList::AddValue(const std::string& name, const std::string& group) {
    const bool isNamed = !name.empty();
    const long id = isNamed ? Insert(group.empty() ? name : group + PathSeparator + name, {}) : -1;
    if (id != -1)
        NotifyChanged();
    return id;
}

void EditableWordList::RemoveValue(long id) {
    const auto entry = m_entries.find(id);
    if (entry == m_entries.end())
        return;
    m_ids.erase(entry->second.name);
    m_entries.erase(entry);
    NotifyChanged();
}

const std::string* EditableWordList::WordOf(long id) const {
    const auto entry = m_entries.find(id);
    return entry == m_entries.end() ? nullptr : &entry->second.name;
}

long EditableWordList::EntryFrom(long id) const {
    const auto entry = m_entries.lower_bound(id);
    return entry == m_entries.end() ? -1 : entry->first;
}

bool EditableWordList::SetName(long id, const CVariantValue& name) {
    const auto entry = m_entries.find(id);
    if (entry == m_entries.end() || name.Text.empty() || !m_ids.emplace(name.Text, id).second)
        return false;
    m_ids.erase(entry->second.name);
    entry->second.name = name.Text;
    NotifyChanged();
    return true;
}

bool EditableWordList::IsValue(long id, const CVariantValue& value) {
    const auto place = static_cast<std::size_t>(id);
    return m_entries.count(id) != 0 && place < value.Text.size() && value.Text[place] == '1';
}

void EditableWordList::Select(long id, CVariantValue& value) {
    if (m_entries.count(id) == 0)
        return;
    if ((GetEnumFlags() & ENF_CheckBoxes) == 0)
        value.Text.clear();
    Mark(value.Text, id, '1');
}

void EditableWordList::Deselect(long id, CVariantValue& value) {
    if (!IsValue(id, value))
        return;
    const bool isPinned = (GetEnumFlags() & ENF_CheckBoxes) && m_pinned.contains(id);
    if (!isPinned)
        Mark(value.Text, id, '0');
    else if (m_refused)
        m_refused();
}

const char* EditableWordList::GetSeparator(bool) const {
    static constexpr char Separator[] = {PathSeparator, '\0'};
    return Separator;
}

std::string EditableWordList::GetImagePath(long id) {
    const auto entry = m_entries.find(id);
    const bool hasImage =
        !m_imageFolder.empty() && entry != m_entries.end() && IsFileName(entry->second.image);
    return hasImage ? m_imageFolder + '/' + entry->second.image + ".png" : std::string();
}

void EditableWordList::NotifyChanged() const {
    if (m_changed)
        m_changed();
}

} // namespace korvel::inspector

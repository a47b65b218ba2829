#pragma once

#include "landxml/word_list.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace korvel::inspector {

/// A list of words that the user may change: a working copy, of which nothing goes back to where the words
/// came from.
///
///     EditableWordList list({"paved", "gravel"}, ENF_CheckBoxes | ENF_Add);
///     CVariantValue chosen = list.Selected({1});   // ToText: "gravel"
///     list.AddValue("Kerb", "Road");               // 2, called "Road/Kerb"
///     list.Select(2, chosen);                      // ToText: "gravel; Road/Kerb"
///
/// Entries are numbered from 0 in the order of their addition; a number is never given twice. Names are not
/// empty and differ. Without ENF_CheckBoxes a value selects one entry. The text of a value holds one
/// character for each number: '1' where the entry is selected.
class EditableWordList final : public WordList, public EnumImages {
public:
    static constexpr char PathSeparator = '/';

    EditableWordList(const std::vector<std::string>& names, std::uint32_t flags);

    CVariantValue Selected(const std::vector<long>& ids);
    /// The lowest number that a value selects; -1: none.
    static long FirstSelected(const CVariantValue& value);
    /// Any of EnumFlags: how lists that are made from now on show it.
    using WordList::SetFlags;
    /// Pictures of the first names, "NAME.png" in a folder; an entry keeps its own when it is renamed.
    void SetImageFolder(const std::string& folder) { m_imageFolder = folder; }
    /// From now on nothing deselects the entry, in a list with checks.
    void Pin(long id) { m_pinned.insert(id); }
    /// Called when somebody has tried to: a list shows the entry without its check then.
    void SetRefused(std::function<void()> refused) { m_refused = std::move(refused); }
    /// Called after an entry was added, removed or renamed.
    void SetChanged(std::function<void()> changed) { m_changed = std::move(changed); }

    const std::string* WordOf(long id) const override;
    long EntryFrom(long id) const override;
    /// -1 for a name that is empty or taken.
    long AddValue(const std::string& name, const std::string& group) override;
    void RemoveValue(long id) override;
    /// False for a name that is empty or another entry's.
    bool SetName(long id, const CVariantValue& name) override;
    bool IsValue(long id, const CVariantValue& value) override;
    void Select(long id, CVariantValue& value) override;
    void Deselect(long id, CVariantValue& value) override;
    const char* GetSeparator(bool alternate) const override;

    std::string GetImagePath(long id) override;
    std::string GetCommonImagePath() override { return {}; }

private:
    struct Entry {
        std::string name;
        std::string image; // the name that it began with; empty for one that the user has added
    };

    long Insert(const std::string& name, const std::string& image);
    void NotifyChanged() const;

    std::map<long, Entry> m_entries;
    std::map<std::string, long> m_ids; // by name
    long m_nextId = 0;
    std::set<long> m_pinned;
    std::string m_imageFolder;
    std::function<void()> m_changed;
    std::function<void()> m_refused;
};

} // namespace korvel::inspector

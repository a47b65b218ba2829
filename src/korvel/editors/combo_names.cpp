#include "korvel/editors/combo_names.h"

#include "korvel/editors/path_name.h"

#include <unordered_set>

namespace korvel::internal {

namespace {

bool KeepsText(const CVariantValue& value) {
    return value.Type == DT_String || value.Type == DT_FileName;
}

} // namespace

std::string ComboNames::Path(const ComboTreeItem& item) const {
    return PathOf(item, m_binding.Separator());
}

std::string ComboNames::PathOf(const ComboTreeItem& item, char separator) {
    std::vector<const std::string*> labels;
    for (const ComboTreeItem* level = &item; level->GetParent(); level = level->GetParent())
        labels.push_back(&level->GetLabel());
    std::string path;
    for (auto label = labels.rbegin(); label != labels.rend(); ++label) {
        if (label != labels.rbegin())
            path += separator;
        path += **label;
    }
    return path;
}

std::list<std::string> ComboNames::Segments(const std::string& text, std::optional<char> separator) {
    std::list<std::string> segments;
    if (separator)
        segments = SplitPathName(text, *separator);
    if (segments.empty())
        segments.push_back(text);
    return segments;
}

std::string ComboNames::UniqueNameUnder(const ComboTreeItem& parent, const std::string& base) const {
    const char separator = m_binding.Separator();
    std::unordered_set<std::string> taken;
    for (const ComboTreeItem* child = parent.GetFirstChild(); child; child = child->GetNextSibling()) {
        std::list<std::string> segments = SplitPathName(child->GetLabel(), separator);
        if (!segments.empty())
            taken.insert(std::move(segments.front()));
    }
    return UniqueName(base, [&](const std::string& name) { return taken.count(name) != 0; });
}

bool ComboNames::RenameLabel(ComboTreeItem& item, const std::string& label) {
    const auto separator = m_binding.PathSeparator();
    const std::list<std::string> parts =
        separator ? SplitPathName(label, *separator) : std::list<std::string>{label};
    if (parts.size() != 1 || label.empty())
        return false;
    const std::string path = Path(item);
    if (!item.GetParent())
        return false; // the host has taken it away meanwhile
    const std::string above = path.substr(0, path.size() - item.GetLabel().size());
    const std::string newPath = above + parts.front();
    return item.IsValue() ? RenameValue(item, newPath) : RenameGroup(item, path, newPath);
}

// What is under an entry keeps its name, and only seems renamed until the list is built anew: kept. A name
// that is no text is renamed by the text that the user typed: what it means is for the enumeration to say.
bool ComboNames::RenameValue(ComboTreeItem& item, const std::string& newPath) {
    const BindingWatch bound(m_binding);
    const long id = item.GetId();
    CVariantValue name;
    if (!m_binding.Enumeration()->GetName(id, name) || !bound)
        return false;
    if (!KeepsText(name)) {
        name = CVariantValue();
        name.Type = DT_String;
    }
    name.Text = newPath;
    if (!m_binding.Enumeration()->SetName(id, name))
        return false;
    if (bound && item.GetParent() && item.IsValue())
        TakeName(item);
    return static_cast<bool>(bound);
}

// A group takes its new label when the enumeration has renamed every entry in it.
bool ComboNames::RenameGroup(ComboTreeItem& group, const std::string& oldPath, const std::string& newPath) {
    const BindingWatch bound(m_binding);
    const char separator = m_binding.Separator();
    if (!bound)
        return false;
    const std::string oldLabel = group.GetLabel();
    std::vector<RenamedEntry> entries;
    for (ComboTreeItem* under = &group; under; under = under->GetNextUnder(group))
        if (under->IsValue())
            entries.push_back({under, newPath + PathOf(*under, separator).substr(oldPath.size())});
    bool all = true;
    try {
        for (RenamedEntry& entry : entries) {
            entry.isRenamed = entry.item->GetParent() && RenameValue(*entry.item, entry.path);
            all = all && entry.isRenamed;
            if (!bound)
                return false;
        }
    } catch (...) {
        if (bound)
            SplitGroup(group, oldLabel, entries);
        throw;
    }
    if (!all)
        SplitGroup(group, oldLabel, entries);
    else if (group.GetParent())
        m_tree.SetLabel(group, 0, Segments(newPath, m_binding.PathSeparator()).back());
    return all;
}

// The entries that were renamed go to their new path; the others stay where they were.
void ComboNames::SplitGroup(ComboTreeItem& group, const std::string& oldLabel,
                            const std::vector<RenamedEntry>& entries) {
    m_tree.SetLabel(group, 0, oldLabel);
    for (const RenamedEntry& entry : entries)
        if (entry.isRenamed && entry.item->GetParent() && entry.item->IsValue())
            MoveToItsPath(*entry.item, entry.item->GetValue());
}

void ComboNames::EntryRenamed(long id) {
    if (ComboTreeItem* item = m_tree.FindValue(id))
        TakeName(*item);
}

// The labels above follow the name as far as it reaches, also where other entries are under them: kept. A
// host that moves one entry of several to another group by its name sees the whole group renamed; an entry
// whose name is shorter now stays in its group. Only a name that is too long for the place moves.
void ComboNames::TakeName(ComboTreeItem& item) {
    const BindingWatch bound(m_binding);
    CVariantValue name;
    if (!m_binding.Enumeration()->GetName(item.GetId(), name) || !bound)
        return;
    std::list<std::string> segments = Segments(name.ToText(), m_binding.PathSeparator());
    if (!item.GetParent() || !item.IsValue())
        return; // the host has taken it away meanwhile
    if (static_cast<int>(segments.size()) > item.GetLevel()) {
        MoveToItsPath(item, name);
        return;
    }
    m_tree.SetValue(item, name);
    SetLabelsUpwards(item, std::move(segments));
}

void ComboNames::SetLabelsUpwards(ComboTreeItem& item, std::list<std::string> segments) {
    for (ComboTreeItem* level = &item; !segments.empty(); level = level->GetParent()) {
        if (level->GetLabel() != segments.back())
            m_tree.SetLabel(*level, 0, std::move(segments.back()));
        segments.pop_back();
    }
}

void ComboNames::MoveToItsPath(ComboTreeItem& item, const CVariantValue& name) {
    const bool isChecked = ComboTree::IsChecked(item);
    ComboTreeItem* moved = m_model.InsertItem(nullptr, item.GetId(), CVariantValue(name));
    if (moved)
        m_tree.SetCheck(*moved, isChecked);
    if (item.GetParent() && item.IsValue())
        m_model.Remove(item);
}

void ComboNames::RefreshLabels() {
    const BindingWatch bound(m_binding);
    const auto separator = m_binding.PathSeparator();
    for (ComboTreeItem* item = &m_tree.Root(); item && bound; item = item->GetNextUnder(m_tree.Root())) {
        if (!item->IsValue() || item->GetValue().Type == DT_Group)
            continue;
        const CVariantValue value = item->GetValue(); // a list asks its host, who may take the entry away
        const std::string text = value.ToText();
        if (bound)
            m_tree.SetLabel(*item, 0, Segments(text, separator).back());
    }
}

} // namespace korvel::internal

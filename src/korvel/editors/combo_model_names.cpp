#include "korvel/editors/combo_model.h"
#include "korvel/editors/path_name.h"

#include <unordered_set>

namespace korvel {

namespace {

bool KeepsText(const CVariantValue& value) {
    return value.Type == DT_String || value.Type == DT_FileName;
}

} // namespace

std::string ComboModel::Path(const ComboTreeItem& item) const {
    const ComboTree::Keep keep(m_tree);
    return PathOf(item, Separator());
}

std::string ComboModel::PathOf(const ComboTreeItem& item, char separator) {
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

std::string ComboModel::UniqueNameUnder(const ComboTreeItem& parent, const std::string& base) const {
    const ComboTree::Keep keep(m_tree);
    const char separator = Separator();
    std::unordered_set<std::string> taken;
    for (const ComboTreeItem* child = parent.GetFirstChild(); child; child = child->GetNextSibling()) {
        std::list<std::string> segments = SplitPathName(child->GetLabel(), separator);
        if (!segments.empty())
            taken.insert(std::move(segments.front()));
    }
    return UniqueName(base, [&](const std::string& name) { return taken.count(name) != 0; });
}

bool ComboModel::RenameLabel(ComboTreeItem& item, const std::string& label) {
    const ComboTree::Keep keep(m_tree);
    const auto separator = PathSeparator();
    const std::list<std::string> parts =
        separator ? SplitPathName(label, *separator) : std::list<std::string>{label};
    if (parts.size() != 1 || label.empty())
        return false;
    const std::string path = Path(item);
    if (!item.GetParent())
        return false; // the host has taken it away meanwhile
    const std::string above = path.substr(0, path.size() - item.GetLabel().size());
    return RenameName(item, path, above + parts.front());
}

bool ComboModel::RenameName(ComboTreeItem& item, const std::string& oldPath, const std::string& newPath) {
    const ComboTree::Keep keep(m_tree);
    return item.IsValue() ? RenameValue(item, newPath) : RenameGroup(item, oldPath, newPath);
}

// What stands under an entry keeps its name, and only seems renamed as long as the rows stand: kept. A name
// that is no text is renamed by the text that the user typed: what it means is the enumeration's affair.
bool ComboModel::RenameValue(ComboTreeItem& item, const std::string& newPath) {
    const unsigned binding = m_binding;
    const long id = item.GetId();
    CVariantValue name;
    if (!m_enumeration->GetName(id, name) || binding != m_binding)
        return false;
    if (!KeepsText(name)) {
        name = CVariantValue();
        name.Type = DT_String;
    }
    name.Text = newPath;
    if (!m_enumeration->SetName(id, name))
        return false;
    if (binding == m_binding && item.GetParent() && item.IsValue())
        RenameTreeItem(item);
    return binding == m_binding;
}

// A group takes its new label when the enumeration has renamed every entry in it.
bool ComboModel::RenameGroup(ComboTreeItem& group, const std::string& oldPath, const std::string& newPath) {
    const unsigned binding = m_binding;
    const char separator = Separator();
    if (binding != m_binding)
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
            if (binding != m_binding)
                return false;
        }
    } catch (...) {
        if (binding == m_binding)
            SplitGroup(group, oldLabel, entries);
        throw;
    }
    if (!all)
        SplitGroup(group, oldLabel, entries);
    else if (group.GetParent())
        m_tree.SetLabel(group, 0, Segments(newPath, PathSeparator()).back());
    return all;
}

// The entries that were renamed go to their new path; the others stay where they were.
void ComboModel::SplitGroup(ComboTreeItem& group, const std::string& oldLabel,
                            const std::vector<RenamedEntry>& entries) {
    m_tree.SetLabel(group, 0, oldLabel);
    for (const RenamedEntry& entry : entries)
        if (entry.isRenamed && entry.item->GetParent() && entry.item->IsValue())
            MoveToItsPath(*entry.item, entry.item->GetValue());
}

void ComboModel::EntryRenamed(long id) {
    const ComboTree::Keep keep(m_tree);
    if (ComboTreeItem* const item = m_tree.FindValue(id))
        RenameTreeItem(*item);
}

// The labels above follow the name as far as it reaches, also where other entries stand under them: kept. A
// host that moves one entry of several to another group by its name sees the whole group renamed; an entry
// whose name is shorter now stays in its group. Only a name that is too long for the place moves.
void ComboModel::RenameTreeItem(ComboTreeItem& item) {
    const unsigned binding = m_binding;
    CVariantValue name;
    if (!m_enumeration->GetName(item.GetId(), name) || binding != m_binding)
        return;
    std::list<std::string> segments = Segments(name.ToText(), PathSeparator());
    if (!item.GetParent() || !item.IsValue())
        return; // the host has taken it away meanwhile
    if (static_cast<int>(segments.size()) > item.GetLevel()) {
        MoveToItsPath(item, name);
        return;
    }
    m_tree.SetValue(item, name);
    RenameGroupItem(item, std::move(segments));
}

void ComboModel::RenameGroupItem(ComboTreeItem& item, std::list<std::string> segments) {
    for (ComboTreeItem* level = &item; !segments.empty(); level = level->GetParent()) {
        if (level->GetLabel() != segments.back())
            m_tree.SetLabel(*level, 0, std::move(segments.back()));
        segments.pop_back();
    }
}

void ComboModel::MoveToItsPath(ComboTreeItem& item, const CVariantValue& name) {
    const bool isChecked = ComboTree::IsChecked(item);
    ComboTreeItem* moved = InsertItem(nullptr, item.GetId(), CVariantValue(name));
    if (moved)
        m_tree.SetCheck(*moved, isChecked);
    if (item.GetParent() && item.IsValue())
        Went(m_tree.RemoveValue(item));
}

} // namespace korvel

#include "korvel/editors/combo_names.h"

#include "korvel/editors/path_name.h"

#include <iterator>
#include <unordered_map>
#include <unordered_set>

namespace korvel::internal {

namespace {

bool KeepsText(const CVariantValue& value) {
    return value.Type == DT_String || value.Type == DT_FileName;
}

std::string Joined(const std::list<std::string>& parts, char separator) {
    std::string path = parts.front();
    for (auto part = std::next(parts.begin()); part != parts.end(); ++part)
        path += separator + *part;
    return path;
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

std::string ComboNames::PathAbove(const ComboTreeItem& item, char separator) {
    const std::string path = PathOf(item, separator);
    return path.substr(0, path.size() - item.GetLabel().size());
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
    if (parts.empty() || parts.front().empty())
        return false;
    const bool hasOthers = !item.IsValue() || item.HasChildren();
    if (separator && hasOthers && parts.back().back() == '\\')
        return false;
    const char joint = m_binding.Separator();
    if (!item.GetParent())
        return false; // the host has taken it away meanwhile
    const std::string above = PathAbove(item, joint);
    return item.IsValue() ? RenameValue(item, above + Joined(parts, joint)) : RenameGroup(item, joint, parts);
}

// What is under an entry keeps its name, and only seems renamed until the list is built anew: kept. A name
// that is no text is renamed by the text that the user typed: what it means is for the enumeration to say.
bool ComboNames::RenameValue(ComboTreeItem& item, const std::string& newPath) {
    const LossWatch bound = m_binding.Watch();
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
bool ComboNames::RenameGroup(ComboTreeItem& group, char separator, const std::list<std::string>& parts) {
    const LossWatch bound = m_binding.Watch();
    const std::string oldLabel = group.GetLabel();
    const std::string above = PathAbove(group, separator);
    const std::string newPath = above + Joined(parts, separator);
    const std::size_t oldSize = above.size() + oldLabel.size();
    std::vector<RenamedEntry> entries;
    for (ComboTreeItem* under = &group; under; under = under->GetNextUnder(group))
        if (under->IsValue())
            entries.push_back({under, newPath + PathOf(*under, separator).substr(oldSize)});
    bool all = false;
    try {
        all = RenameEntries(entries);
    } catch (...) {
        if (bound)
            SplitGroup(group, oldLabel, entries);
        throw;
    }
    if (!bound)
        return false;
    if (!all)
        SplitGroup(group, oldLabel, entries);
    else if (group.GetParent() && parts.size() == 1)
        m_tree.SetLabel(group, 0, parts.front());
    else if (group.GetParent())
        MoveGroup(group, parts);
    return all;
}

bool ComboNames::RenameEntries(std::vector<RenamedEntry>& entries) {
    const LossWatch bound = m_binding.Watch();
    bool all = true;
    for (RenamedEntry& entry : entries) {
        entry.isRenamed = entry.item->GetParent() && RenameValue(*entry.item, entry.path);
        all = all && entry.isRenamed;
        if (!bound)
            break;
    }
    return all;
}

// The entries are at their new path already. What is left are groups without entries, which go there too; a
// group that was moved into itself keeps them.
void ComboNames::MoveGroup(ComboTreeItem& group, const std::list<std::string>& parts) {
    const LossWatch bound = m_binding.Watch();
    ComboTreeItem* target = group.GetParent();
    bool isInItself = false;
    for (const std::string& part : parts) {
        target = bound ? FindOrMakeGroup(target, part) : nullptr;
        isInItself = isInItself || target == &group;
    }
    if (isInItself) {
        if (target)
            m_model.ItemMoved(group, *target);
        return;
    }
    std::vector<ComboTreeItem*> left;
    for (ComboTreeItem* under = group.GetFirstChild(); under; under = under->GetNextUnder(group))
        left.push_back(under);
    std::unordered_map<const ComboTreeItem*, ComboTreeItem*> places = {{&group, target}};
    for (const ComboTreeItem* under : left)
        places[under] = bound ? FindOrMakeGroup(places[under->GetParent()], under->GetLabel()) : nullptr;
    for (const auto& [from, to] : places)
        if (bound && to)
            m_model.ItemMoved(*from, *to);
    const bool hasEntries = group.GetChecked() + group.GetUnchecked() > 0;
    if (bound && group.GetParent() && !hasEntries)
        m_model.Remove(group);
}

// Null for a parent that is gone.
ComboTreeItem* ComboNames::FindOrMakeGroup(ComboTreeItem* parent, const std::string& label) {
    return parent && m_tree.Contains(*parent) ? &m_model.InsertGroup(*parent, label) : nullptr;
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
    const LossWatch bound = m_binding.Watch();
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
    if (moved) {
        m_tree.SetCheck(*moved, isChecked);
        m_model.ItemMoved(item, *moved);
    }
    if (item.GetParent() && item.IsValue())
        m_model.Remove(item);
}

void ComboNames::RefreshLabels() {
    const LossWatch bound = m_binding.Watch();
    const auto separator = m_binding.PathSeparator();
    std::vector<ComboTreeItem*> entries; // the text of a list asks its host, which may take any of them away
    for (ComboTreeItem* item = &m_tree.Root(); item; item = item->GetNextUnder(m_tree.Root()))
        if (item->IsValue() && item->GetValue().Type != DT_Group)
            entries.push_back(item);
    const auto isEntry = [&](const ComboTreeItem& item) { return m_tree.Contains(item) && item.IsValue(); };
    for (ComboTreeItem* item : entries) {
        if (!bound)
            return;
        if (!isEntry(*item))
            continue;
        const CVariantValue value = item->GetValue();
        const std::string text = value.ToText();
        if (bound && isEntry(*item))
            m_tree.SetLabel(*item, 0, Segments(text, separator).back());
    }
}

} // namespace korvel::internal

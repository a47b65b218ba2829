#pragma once

#include "korvel/editors/combo_model.h"

#include <list>
#include <optional>
#include <string>
#include <vector>

namespace korvel::internal {

/// The names of a list's items: paths of labels, free names, and renaming.
///
///     ComboNames names(model);
///     names.Path(item);                 // "fills/sand"
///     names.RenameLabel(item, "clay");  // the enumeration was asked for "fills/clay"
class ComboNames {
public:
    explicit ComboNames(ComboModel& model)
        : m_model(model), m_binding(model.Binding()), m_tree(model.Tree()), m_keep(model.Tree()) {}

    /// The labels from the root down, joined with the separator of the enumeration.
    std::string Path(const ComboTreeItem& item) const;
    /// `base`, or `base` with the first number with which no child of `parent` is called.
    std::string UniqueNameUnder(const ComboTreeItem& parent, const std::string& base) const;

    /// Has the enumeration give the entry, or every entry under the group, the name with this label as its
    /// last part. In a tree the label may be a path itself, and the entries move there. False when the
    /// enumeration refuses one (the entries of a group that it did rename are then under their new path), for
    /// a label without any part, and for a group's label that ends in a backslash: the separator after it
    /// would be text.
    bool RenameLabel(ComboTreeItem& item, const std::string& label);
    /// The enumeration has another name for the entry.
    void EntryRenamed(long id);
    /// All labels anew, with the formats as they are now.
    void RefreshLabels();

private:
    struct RenamedEntry {
        ComboTreeItem* item;
        std::string path;
        bool isRenamed = false;
    };

    static std::string PathOf(const ComboTreeItem& item, char separator);
    /// What comes before the label.
    static std::string PathAbove(const ComboTreeItem& item, char separator);
    /// At least one: a text that has none is one itself.
    static std::list<std::string> Segments(const std::string& text, std::optional<char> separator);
    bool RenameValue(ComboTreeItem& item, const std::string& newPath);
    bool RenameGroup(ComboTreeItem& group, char separator, const std::list<std::string>& parts);
    bool RenameEntries(std::vector<RenamedEntry>& entries);
    void MoveGroup(ComboTreeItem& group, const std::list<std::string>& parts);
    ComboTreeItem* FindOrMakeGroup(ComboTreeItem* parent, const std::string& label);
    void SplitGroup(ComboTreeItem& group, const std::string& oldLabel,
                    const std::vector<RenamedEntry>& entries);
    void TakeName(ComboTreeItem& item);
    void SetLabelsUpwards(ComboTreeItem& item, std::list<std::string> segments);
    void MoveToItsPath(ComboTreeItem& item, const CVariantValue& name);

    ComboModel& m_model;
    ComboBinding& m_binding;
    ComboTree& m_tree;
    const ComboTree::KeepItems m_keep;
};

} // namespace korvel::internal

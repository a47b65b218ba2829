#pragma once

#include "korvel/editors/combo_tree.h"
#include "korvel/values/enum_value.h"

#include <list>
#include <optional>

namespace korvel {

enum EComboListMode {
    eDesignFlat, ///< stands in a dialog; entries can be added, renamed and removed; names stay flat
    eDesignTree, ///< the same; names are split into a tree where the enumeration asks for it
    eDropDown,   ///< drops down under a field; has no context menu
};

/// Hears which rows of a ComboModel came and went, after it happened.
class ComboRowSink {
public:
    virtual void OnRowsCame(ComboTree::RowRange rows) = 0;
    virtual void OnRowsWent(ComboTree::RowRange rows) = 0;

protected:
    ~ComboRowSink() = default;
};

/// What a CComboList decides: the tree of an enumeration's entries, the value that selects some of them,
/// names and paths. It knows no window.
///
/// The enumeration may change, or the model be closed, while it is being asked: what was under way then
/// stops. What it throws passes through, and leaves rows and counts that agree.
class KORVEL_API ComboModel {
public:
    ComboModel(EComboListMode mode, ComboRowSink& sink) : m_mode(mode), m_sink(sink) {}

    // Life.

    /// What the model is about from the next Begin on.
    void SetValue(const CVariantValue& value);
    CVariantValue& Value() { return m_value; }
    const CVariantValue& Value() const { return m_value; }
    IEnumValue* Enumeration() const { return m_enumeration; }
    EComboListMode Mode() const { return m_mode; }
    /// From here on the model is open. The sink hears nothing until all entries are there.
    void Begin();
    /// Makes the tree; expands it down to what the value selects, and answers the last such entry, or null.
    ComboTreeItem* InsertEntries();
    void Close();
    bool IsOpen() const { return m_isOpen; }
    /// Another number after every Close.
    unsigned Binding() const { return m_binding; }
    ComboTree& Tree() { return m_tree; }
    const ComboTree& Tree() const { return m_tree; }
    /// False when it has been removed.
    bool IsInTree(const ComboTreeItem& item) const { return item.GetParent() || &item == &m_tree.Root(); }

    // The enumeration.

    bool HasFlag(EnumFlags flag) const;
    bool IsTable() const;
    /// Names are split into a tree.
    bool IsTreePreview() const { return m_mode != eDesignFlat && HasFlag(ENF_Tree); }
    char Separator() const;

    // Rows.

    void Expand(ComboTreeItem& item);
    void Collapse(ComboTreeItem& item);
    /// The item and everything above it.
    void ExpandParent(ComboTreeItem* item);

    // Entries and groups; a null parent is the root.

    /// Null when the host has ended the binding, or taken the parent away, meanwhile.
    ComboTreeItem* InsertItem(ComboTreeItem* parent, long id, CVariantValue&& value);
    ComboTreeItem* InsertItem(ComboTreeItem* parent, std::string_view name);
    /// Has the enumeration make an entry; answers its item, null when it refuses.
    ComboTreeItem* AddValue(const std::string& name, const std::string& group);
    /// Has the enumeration remove every entry at and under the item, then the groups.
    void DestroySubTree(ComboTreeItem& item);
    /// An entry came (its item, shown), went or was renamed.
    ComboTreeItem* EntryCame(long id);
    void EntryWent(long id);
    void EntryRenamed(long id);

    // Names.

    std::string Path(const ComboTreeItem& item) const;
    std::string UniqueNameUnder(const ComboTreeItem& parent, const std::string& base) const;
    /// Has the enumeration rename the entry, or every entry under the group. False when it refuses one;
    /// the entries of a group that it did rename then stand under their new path.
    bool RenameName(ComboTreeItem& item, const std::string& oldPath, const std::string& newPath);
    /// The same for the last part of the path, as the user typed it. A text that is not one part is false,
    /// and nobody is asked: an entry would leave its group by a slip of the hand.
    bool RenameLabel(ComboTreeItem& item, const std::string& label);
    /// Labels written anew, under the formats of today.
    void RefreshLabels();

    // Choice.

    /// Selects every entry whose name equals that of the item (null: the empty text); in a table, of those
    /// with the same object.
    void Apply(const ComboTreeItem* item);
    void ToggleCheck(ComboTreeItem& item);
    /// Of an entry alone, or of every entry in the group.
    void SetCheck(ComboTreeItem& item, bool check);

private:
    /// Calls `visit(id)` for each entry while this binding lasts.
    template <class Visit>
    void WalkEntries(Visit visit);
    /// What splits names; none where they stay whole.
    std::optional<char> PathSeparator() const;
    static std::string PathOf(const ComboTreeItem& item, char separator);
    /// At least one: a text that has none is one itself.
    static std::list<std::string> Segments(const std::string& text, std::optional<char> separator);
    /// Finds or makes it; `firstNew` becomes the first one made.
    ComboTreeItem& GroupUnder(ComboTreeItem& parent, std::string_view name, ComboTreeItem*& firstNew);
    void RemoveEntry(ComboTreeItem& item);
    bool RenameValue(ComboTreeItem& item, const std::string& newPath);
    bool RenameGroup(ComboTreeItem& group, const std::string& oldPath, const std::string& newPath);
    struct RenamedEntry {
        ComboTreeItem* item;
        std::string path;
        bool isRenamed = false;
    };
    void SplitGroup(ComboTreeItem& group, const std::string& oldLabel,
                    const std::vector<RenamedEntry>& entries);
    void RenameTreeItem(ComboTreeItem& item);
    void RenameGroupItem(ComboTreeItem& item, std::list<std::string> segments);
    void MoveToItsPath(ComboTreeItem& item, const CVariantValue& name);
    void SetCheckUnder(ComboTreeItem& item, bool check);
    void CheckValue(ComboTreeItem& item, bool check);
    void TellHost(const ComboTreeItem& item, bool check);
    void TellNew(const ComboTreeItem& item);
    void Came(ComboTree::RowRange rows);
    void Went(ComboTree::RowRange rows);

    const EComboListMode m_mode;
    ComboRowSink& m_sink;
    IEnumValue* m_enumeration = nullptr;
    CVariantValue m_value;
    ComboTree m_tree;
    bool m_isOpen = false;
    bool m_isBuilding = false;
    unsigned m_binding = 0; // counts on with every end of a binding
};

} // namespace korvel

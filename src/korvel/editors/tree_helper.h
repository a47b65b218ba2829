#pragma once

#include "korvel/values/variant_value.h"

#include <list>
#include <map>
#include <memory>
#include <string>

namespace korvel {

/// Turns flat, path-shaped names into a tree, so that an enumeration can be shown by group.
///
///     CTreeHelper tree(true, '/');
///     tree.Insert(value);                      // value reads "fills/sand"
///     tree.Add(DT_String, "new", "fills");     // a value that reads "fills/new"; the tree stays as it is
///
/// A node made for a value is a leaf until it gets children; a leaf that gets children becomes a group and
/// keeps its value. Copies share the nodes.
class KORVEL_API CTreeHelper {
public:
    struct SNode;
    using SNodePtr = std::shared_ptr<SNode>;
    using NodeMap = std::map<std::string, SNodePtr>; // by name, in byte order

    struct KORVEL_API SNode {
        ~SNode();
        bool m_bIsGroup = false;
        NodeMap m_Children;
        CVariantValue m_Value;
        std::string m_strName;
    };

    /// Without separators, a whole text is one name.
    CTreeHelper(bool useSeparator, char separator);
    CTreeHelper(const CTreeHelper& other);
    CTreeHelper& operator=(const CTreeHelper& other);
    ~CTreeHelper();

    /// Adds a value at the path that its text gives. A later value of the same path wins; a text without any
    /// segment adds nothing.
    void Insert(const CVariantValue& value);

    /// A name below `path` that nothing has yet, made of `base` and a number, as a value of `type`. It is not
    /// inserted. \throws std::string "Error" when the path leads through a value that is no group
    CVariantValue Add(EDataTyps type, const std::string& base, const std::string& path) const;

    /// See SplitPathName.
    std::list<std::string> SplitStringName(const std::string& name, char separator) const;

    const NodeMap& GetRoot() const { return *m_pRoot; }

private:
    void InsertItem(const std::list<std::string>& segments, const CVariantValue& value);
    static SNodePtr& NodeAt(NodeMap& level, const std::string& name);
    static CVariantValue AddNode(EDataTyps type, const std::string& base, const NodeMap* level,
                                 const std::string& prefix);
    void AppendSegment(std::string& path, const std::string& segment) const;

    char m_Separator;
    bool m_bUseSeparator;
    std::unique_ptr<NodeMap> m_pRoot;
};

} // namespace korvel

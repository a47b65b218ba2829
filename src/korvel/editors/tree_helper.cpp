#include "korvel/editors/tree_helper.h"

#include "korvel/editors/path_name.h"

#include <utility>
#include <vector>

namespace korvel {

namespace {

void MoveNodes(CTreeHelper::NodeMap& level, std::vector<CTreeHelper::SNodePtr>& nodes) {
    for (auto& [name, node] : level)
        nodes.push_back(std::move(node));
    level.clear();
}

} // namespace

// Takes the subtree apart level by level: a path of many thousand segments would exhaust the stack.
CTreeHelper::SNode::~SNode() {
    std::vector<SNodePtr> nodes;
    MoveNodes(m_Children, nodes);
    while (!nodes.empty()) {
        const SNodePtr node = std::move(nodes.back());
        nodes.pop_back();
        if (node.use_count() == 1)
            MoveNodes(node->m_Children, nodes);
    }
}

CTreeHelper::CTreeHelper(bool useSeparator, char separator)
    : m_Separator(separator), m_bUseSeparator(useSeparator), m_pRoot(std::make_unique<NodeMap>()) {}

CTreeHelper::CTreeHelper(const CTreeHelper& other)
    : m_Separator(other.m_Separator), m_bUseSeparator(other.m_bUseSeparator),
      m_pRoot(std::make_unique<NodeMap>(*other.m_pRoot)) {}

CTreeHelper& CTreeHelper::operator=(const CTreeHelper& other) {
    CTreeHelper copy(other);
    m_Separator = copy.m_Separator;
    m_bUseSeparator = copy.m_bUseSeparator;
    m_pRoot = std::move(copy.m_pRoot);
    return *this;
}

CTreeHelper::~CTreeHelper() = default;

std::list<std::string> CTreeHelper::SplitStringName(const std::string& name, char separator) const {
    return internal::SplitPathName(name, separator);
}

void CTreeHelper::Insert(const CVariantValue& value) {
    const std::string text = value.ToText();
    InsertItem(m_bUseSeparator ? SplitStringName(text, m_Separator) : std::list<std::string>{text}, value);
}

void CTreeHelper::InsertItem(const std::list<std::string>& segments, const CVariantValue& value) {
    SNode* node = nullptr;
    for (const std::string& segment : segments) {
        if (node)
            node->m_bIsGroup = true;
        node = NodeAt(node ? node->m_Children : *m_pRoot, segment).get();
    }
    if (node)
        node->m_Value = value;
}

CTreeHelper::SNodePtr& CTreeHelper::NodeAt(NodeMap& level, const std::string& name) {
    SNodePtr& node = level[name];
    if (!node) {
        node = std::make_shared<SNode>();
        node->m_strName = name;
    }
    return node;
}

CVariantValue CTreeHelper::Add(EDataTyps type, const std::string& base, const std::string& path) const {
    const NodeMap* level = m_pRoot.get();
    std::string prefix;
    if (m_bUseSeparator) {
        for (const std::string& segment : SplitStringName(path, m_Separator)) {
            if (level) {
                const auto child = level->find(segment);
                if (child != level->end() && !child->second->m_bIsGroup)
                    throw std::string("Error");
                level = child != level->end() ? &child->second->m_Children : nullptr;
            }
            AppendSegment(prefix, segment);
        }
    }
    if (!prefix.empty())
        prefix += m_Separator;
    return AddNode(type, base, level, prefix);
}

void CTreeHelper::AppendSegment(std::string& path, const std::string& segment) const {
    if (!path.empty())
        path += m_Separator;
    path += segment;
}

CVariantValue CTreeHelper::AddNode(EDataTyps type, const std::string& base, const NodeMap* level,
                                   const std::string& prefix) {
    CVariantValue value;
    value.Type = type;
    value.Text = prefix + internal::UniqueName(base, [&](const std::string& name) {
                     return level && level->count(name) != 0;
                 });
    return value;
}

} // namespace korvel

#include "korvel/grid/tree_rows.h"

#include "korvel/grid/tree_walk.h"
#include "korvel/platform/first_failure.h"

#include <algorithm>
#include <new>
#include <utility>

namespace korvel::internal {

TreeRows::TreeRows(RowList& list)
    : m_list(list), m_forest(CTreeItem::MakeForest()), m_nextForest(CTreeItem::MakeForest()) {}

void TreeRows::BeginChange() const {
    if (!m_departing.IsEmpty())
        m_departing.Update(m_list.Count(), ShownCount());
}

int TreeRows::RowOf(const CTreeItem* node) const {
    const int row = Has(node) ? node->row() : -1;
    if (row < 0)
        return -1;
    BeginChange();
    return m_departing.ListRow(row);
}

TreeRows::CTreeItem* TreeRows::NodeAt(int row) const {
    CTreeItem* node = m_list.At(row);
    return (m_departing.IsEmpty() && m_discarded.empty()) || Has(node) ? node : nullptr;
}

grid::NodePtr TreeRows::MakeNode(std::unique_ptr<CItemInfo> info) {
    if (!info)
        info = std::make_unique<CItemInfo>();
    NodePtr node(new CTreeItem(info.get()));
    static_cast<void>(info.release());
    return node;
}

TreeRows::CTreeItem* TreeRows::Link(CTreeItem* parent, std::unique_ptr<CItemInfo> info, int position) {
    return Attach(parent, MakeNode(std::move(info)), position);
}

TreeRows::CTreeItem* TreeRows::Attach(CTreeItem* parent, NodePtr node, int position) {
    BeginChange();
    (parent ? parent : m_forest.get())->InsertChild(position, node.get());
    return node.release();
}

bool TreeRows::Show(const CTreeItem* node) {
    const NodeWatch shown = Watch(node);
    const LossWatch rows = Watch();
    if (const CTreeItem* parent = node->parent(); parent && parent->children().size() == 1)
        m_list.Redraw(RowOf(parent)); // its sign comes
    if (rows && Has(node) && node->row() >= 0)
        InsertRow(const_cast<CTreeItem*>(node));
    return static_cast<bool>(shown);
}

void TreeRows::InsertRow(CTreeItem* node) {
    InsertRows(node->row(), {NodeRun{{&node, 1}, node->indent()}});
}

// The rows come at once; what the host makes of it finds them there.
void TreeRows::InsertRows(int shownRow, const NodeRuns& runs) {
    const int listed = m_list.Count();
    const int count = static_cast<int>(CountOf(runs));
    if (listed < 0 || count == 0)
        return;
    if (m_departing.IsEmpty() && (m_isListOutdated || listed + count != ShownCount())) {
        Rebuild();
        return;
    }
    const int row = m_departing.ListRow(shownRow);
    m_departing.Insert(row, count);
    FirstFailure failure;
    failure.Try([&] { m_list.Insert(row, runs); });
    failure.Try([&] { m_list.Mark(row, row + count); });
    failure.Rethrow();
}

void TreeRows::RemoveRows(int first, int last) {
    last = std::min(last, m_list.Count());
    if (first < 0 || first >= last)
        return;
    const int surplus = m_list.Count() - (last - first) - ShownCount();
    m_departing.Begin(first, last - first);
    FirstFailure failure;
    failure.Try([&] { m_list.Remove(first, last); });
    EndDeparture(failure);
    if (m_departing.IsEmpty() && (m_isListOutdated || m_list.Count() - ShownCount() != surplus))
        failure.Try([&] { Rebuild(); });
    DeleteDiscarded();
    failure.Rethrow();
}

// Whoever heard of a row may have thrown: then the rest leaves without notices.
void TreeRows::EndDeparture(FirstFailure& failure) {
    BeginChange();
    const DepartingRows::Range rest = m_departing.End();
    if (rest.left > 0 && !m_isListOutdated)
        failure.Try([&] { m_list.RemoveQuietly(rest.first, rest.first + rest.left); });
}

int TreeRows::LastRowOf(const CTreeItem& node) const {
    return m_departing.ListRow(node.row() + node.rows() - 1);
}

// Whether a row leads to a node that is shown, or to one below it: also where the host has removed rows by
// itself, which leaves the others in the order of the tree.
bool TreeRows::IsListed(const CTreeItem& node) const {
    const int shownRow = node.row();
    if (shownRow < 0 || !m_departing.IsEmpty())
        return m_list.At(RowOf(&node)) == &node;
    if (m_list.At(shownRow) == &node)
        return true;
    int first = 0;
    for (int last = std::min(shownRow, m_list.Count()); first < last;) {
        const int middle = first + (last - first) / 2;
        const CTreeItem* there = m_list.At(middle);
        if (there && there->row() < shownRow)
            first = middle + 1;
        else
            last = middle;
    }
    const CTreeItem* next = m_list.At(first);
    return next && next->row() >= shownRow && next->row() < shownRow + node.rows();
}

grid::NodePtr TreeRows::Detach(CTreeItem* node) {
    ++m_removals;
    BeginChange();
    CTreeItem* parent = node->parent();
    (parent ? parent : m_forest.get())->RemoveChild(node);
    NodeWatch::UpdateAll(m_lastWatch, *m_forest);
    return NodePtr(node);
}

void TreeRows::Remove(CTreeItem* node) {
    if (!Has(node) || node == m_forest.get())
        return;
    const CTreeItem* parent = node->parent();
    const int first = RowOf(node);
    const int last = first >= 0 && m_list.At(first) == node ? LastRowOf(*node) + 1 : first;
    m_isListOutdated = m_isListOutdated || (first == last && IsListed(*node));
    NodePtr removed = Detach(node);
    const LossWatch rows = Watch();
    FirstFailure failure;
    failure.Try([&] { RemoveRows(first, last); });
    // Whoever heard of the rows may have removed the parent.
    failure.Try([&] { m_list.OnUnlinked(*removed, rows ? parent : nullptr); });
    Discard(std::move(removed));
    failure.Try([&] { RebuildIfNeeded(); });
    if (rows && parent && parent->children().empty())
        failure.Try([&] { m_list.Redraw(RowOf(parent)); }); // its sign goes
    failure.Rethrow();
}

bool TreeRows::Unlink(CTreeItem* node) {
    if (!Has(node) || node == m_forest.get())
        return false;
    const CTreeItem* parent = node->parent();
    m_isListOutdated = m_isListOutdated || IsListed(*node);
    NodePtr removed = Detach(node);
    if (m_departing.IsEmpty() && m_list.Count() > ShownCount())
        m_isListOutdated = true;
    FirstFailure failure;
    failure.Try([&] { m_list.OnUnlinked(*removed, parent); });
    Discard(std::move(removed));
    failure.Rethrow();
    return true;
}

void TreeRows::Discard(NodePtr node) {
    if (m_departing.IsEmpty() && !m_isListOutdated)
        return;
    TreeWalk walk(*node);
    for (CTreeItem* next = node.get(); next; next = walk.Next()) {
        delete std::exchange(next->info, nullptr);
        walk.Enter(*next);
    }
    try {
        m_discarded.push_back(std::move(node));
    } catch (const std::bad_alloc&) { // it goes at once: no row may lead to it
        for (int row = 0; row < m_list.Count(); ++row)
            if (!Has(m_list.At(row)))
                m_list.Rewrite(row, nullptr);
    }
}

void TreeRows::DeleteDiscarded() {
    if (m_departing.IsEmpty() && !m_isListOutdated)
        m_discarded.clear();
}

void TreeRows::Clear() {
    if (!m_nextForest)
        m_nextForest = CTreeItem::MakeForest();
    ++m_removals;
    BeginChange();
    const std::unique_ptr<CTreeItem> former = std::exchange(m_forest, std::move(m_nextForest));
    NodeWatch::UpdateAll(m_lastWatch, *m_forest);
    m_departing.Begin(0, std::max(0, m_list.Count()));
    FirstFailure failure;
    failure.Try([&] { m_list.ChangeMany([&] { m_list.RemoveAll(); }); });
    EndDeparture(failure);
    m_isListOutdated = false;
    failure.Try([&] { RebuildIfNeeded(); });
    failure.Try([&] { m_nextForest = CTreeItem::MakeForest(); });
    DeleteDiscarded();
    failure.Rethrow();
}

int TreeRows::Expand(CTreeItem* node, int row) {
    const int place = RowOf(node);
    if (place < 0)
        return -1;
    if (!node->CanExpand() || !node->collapsed())
        return row;
    node->CollapseBelow(); // a node below may have been left open
    node->SetCollapsed(false);
    const int last = place + node->children().size();
    const LossWatch rows = Watch();
    NodeRuns children;
    TreeWalk walk(*node);
    for (NodeRun run = walk.NextRun(); !run.nodes.empty(); run = walk.NextRun())
        children.push_back(run);
    InsertRows(node->row() + 1, children);
    if (rows)
        m_list.Redraw(RowOf(node));
    return last;
}

void TreeRows::ExpandAll(CTreeItem* node, int* scrollRow) {
    if (node && node->children().empty())
        return;
    Nodes closed; // the families that are shown collapsed, in order
    CTreeItem* lastFamily = nullptr;
    const auto hasOpenFamily = [&](CTreeItem* next) {
        if (next->children().empty())
            return false;
        lastFamily = next;
        if (next->collapsed())
            closed.push_back(next);
        return !next->collapsed();
    };
    if (!node || (RowOf(node) >= 0 && hasOpenFamily(node))) {
        TreeWalk walk(node ? *node : *m_forest);
        while (CTreeItem* next = walk.Next())
            if (hasOpenFamily(next))
                walk.Enter(*next);
    }
    const LossWatch rows = Watch();
    m_list.ChangeMany([&] {
        for (CTreeItem* family : closed)
            if (rows && RowOf(family) >= 0 && family->collapsed()) { // where the host has not been meanwhile
                CTreeItem* last = OpenAll(*family);
                if (family == lastFamily)
                    lastFamily = last;
            }
    });
    if (!scrollRow || !rows)
        return;
    const int row = RowOf(lastFamily);
    const bool hasCome = !closed.empty() && lastFamily && IsWithin(*closed.back(), lastFamily);
    *scrollRow = hasCome && row >= 0 ? row + lastFamily->children().size() : row;
}

// From the last family up, below one that is collapsed still: so no count goes further up than to it.
grid::CTreeItem* TreeRows::OpenAll(CTreeItem& node) {
    node.CollapseBelow();
    NodeRuns shown;
    Nodes families{&node};
    TreeWalk walk(node);
    for (NodeRun run = walk.NextRun(); !run.nodes.empty(); run = walk.NextRun()) {
        shown.push_back(run);
        CTreeItem* next = run.nodes.front();
        if (run.nodes.size() > 1 || next->children().empty()) // of several, none has children
            continue;
        families.push_back(next);
        walk.Enter(*next);
    }
    for (auto family = families.rbegin(); family != families.rend(); ++family)
        (*family)->SetCollapsed(false);
    InsertRows(node.row() + 1, shown);
    return families.back();
}

void TreeRows::Collapse(CTreeItem* node) {
    if (!node || !node->CanExpand())
        return;
    const int row = RowOf(node);
    m_list.ChangeMany([&] { Hide(node, row < 0 ? -1 : row + 1); });
}

void TreeRows::CollapseAll() {
    const Nodes roots(Roots().begin(), Roots().end());
    const LossWatch rows = Watch();
    // From the last root up, so that no rows move that are removed later.
    m_list.ChangeMany([&] {
        for (auto root = roots.rbegin(); root != roots.rend() && rows; ++root)
            Collapse(*root);
    });
}

void TreeRows::Hide(CTreeItem* node, int row) {
    if (!node || node->collapsed() || !node->CanExpand())
        return;
    BeginChange();
    const int hidden = node->rows() - 1;
    const bool isShown = Has(node) && node->row() >= 0;
    int last = row + hidden;
    if (hidden > 0 && !m_departing.IsEmpty()) {
        row = isShown ? m_departing.ListRow(node->row() + 1) : -1;
        last = isShown ? LastRowOf(*node) + 1 : -1;
    } else if (hidden > 0 && m_list.Count() >= 0 &&
               (isShown ? m_list.At(row) != node->children().front() : row >= 0)) {
        m_isListOutdated = true; // these are other rows
    }
    node->SetCollapsed(true);
    node->CollapseBelow();
    if (row >= 0 && hidden > 0)
        RemoveRows(row, last);
}

void TreeRows::RebuildIfNeeded() {
    if (m_isListOutdated || m_list.Count() != ShownCount())
        Rebuild();
}

void TreeRows::Rebuild() {
    if (m_list.Count() >= 0 && m_departing.IsEmpty())
        m_list.ChangeMany([&] { RebuildAll(); });
}

void TreeRows::RebuildAll() {
    Nodes shown;
    shown.reserve(static_cast<std::size_t>(ShownCount()));
    for (CTreeItem* root : Roots())
        TreeWalk::VisitShown(*root, [&](CTreeItem& node) { shown.push_back(&node); });
    const LossWatch rows = Watch();
    const int end = Overwrite(0, shown);
    const int count = m_list.Count();
    const bool hasSurplus = end < count && end == ShownCount();
    for (int row = end; hasSurplus && row < count; ++row)
        m_list.Rewrite(row, nullptr);             // who hears of it must not take it for one of its node
    m_isListOutdated = m_isListOutdated && !rows; // whoever heard of a mark may have removed others
    DeleteDiscarded();
    if (hasSurplus)
        RemoveRows(end, count);
}

int TreeRows::RebuildFrom(CTreeItem* node, int row) {
    if (!node || m_list.Count() < 0 || !m_departing.IsEmpty())
        return row;
    Nodes shown;
    TreeWalk::VisitShown(*node, [&](CTreeItem& next) { shown.push_back(&next); });
    return Overwrite(row, shown);
}

int TreeRows::Overwrite(int row, const Nodes& nodes) {
    const int end = row + static_cast<int>(nodes.size());
    const int common = std::min(end, m_list.Count());
    auto node = nodes.begin();
    for (int next = row; next < common; ++next)
        m_list.Rewrite(next, *node++);
    FirstFailure failure;
    if (node != nodes.end())
        failure.Try([&] { m_list.Insert(std::max(row, common), RunsOf({node, nodes.end()})); });
    failure.Try([&] { m_list.Mark(row, end); });
    failure.Rethrow();
    return end;
}

// Copies get no rows, also below a node that lost its children while expanded.
void TreeRows::AttachChildren(CTreeItem& parent, CTreeItem& former) {
    BeginChange();
    parent.SetCollapsed(true);
    while (!former.children().empty()) {
        NodePtr child(former.children().front());
        former.RemoveChild(child.get());
        parent.InsertChild(-1, child.get());
        static_cast<void>(child.release());
    }
    m_list.Redraw(RowOf(&parent));
}

} // namespace korvel::internal

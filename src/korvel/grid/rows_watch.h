#pragma once

namespace korvel::internal {

/// Says whether a tree still has every node that it had when the watch began. Look after every call of the
/// host (an object, an observer, an overridable operation, a notice to the parent): it may remove any node.
///
///     const RowsWatch rows = WatchRows();
///     const int image = GetIcon(node);
///     if (!rows)
///         return;      // `node` may be deleted
///
/// A node that was removed and one that was added do not make up for each other. Must not outlive the tree.
class RowsWatch {
public:
    /// `removals` counts the removals of the tree.
    explicit RowsWatch(const unsigned& removals) : m_removals(removals), m_before(removals) {}
    RowsWatch(const RowsWatch&) = delete;
    RowsWatch& operator=(const RowsWatch&) = delete;

    explicit operator bool() const { return m_removals == m_before; }

private:
    const unsigned& m_removals;
    const unsigned m_before;
};

} // namespace korvel::internal

#pragma once

namespace korvel::internal {

/// Says whether all is still there that there was when the watch began: every node of a tree, or a binding.
/// Look after every call of the host (an object, an observer, an overridable operation, a notice to the
/// parent): it may remove any node, and end any binding.
///
///     const LossWatch rows = tree.Watch();
///     const int image = GetIcon(node);
///     if (!rows)
///         return;      // `node` may be deleted
///
/// What was removed and what was added do not make up for each other. Must not outlive what it watches.
class LossWatch {
public:
    /// `losses` counts what was removed.
    explicit LossWatch(const unsigned& losses) : m_losses(losses), m_before(losses) {}
    LossWatch(const LossWatch&) = delete;
    LossWatch& operator=(const LossWatch&) = delete;

    explicit operator bool() const { return m_losses == m_before; }

private:
    const unsigned& m_losses;
    const unsigned m_before;
};

} // namespace korvel::internal

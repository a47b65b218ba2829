#pragma once

#include "korvel/grid/family_tally.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace korvel::grid {
class CTreeItem;
}

namespace korvel::internal {

/// A run of siblings, or a run of such blocks. The children of a node lie in a tree of blocks of limited
/// size (a B+ tree), of which each knows what all below it add up to: so a child is inserted, removed and
/// counted anywhere in logarithmic time, and whole blocks are stepped over. No block is empty.
struct ChildBlock {
    /// A block with room for all that it may take, so that filling it does not fail.
    static std::unique_ptr<ChildBlock> MakeRun();
    static std::unique_ptr<ChildBlock> MakeAbove();

    ChildBlock* above = nullptr;                    // null: the topmost
    std::vector<std::unique_ptr<ChildBlock>> parts; // empty: the block is a run of siblings
    std::vector<grid::CTreeItem*> items;
    int size = 0; // children in it
    FamilyTally tally;

    bool IsRun() const { return parts.empty(); }
    bool IsFull() const;
    std::size_t PlaceOf(const ChildBlock& part) const;
    /// The first run of siblings in it.
    const ChildBlock& FirstRun() const;
    ChildBlock& LastRun();
    /// The run of siblings after this one; null after the last.
    const ChildBlock* NextRun() const;

    /// Counts a change of the children in it, for all blocks above, too.
    void Count(int children, const FamilyTally& change);
    /// Puts a part in front of another one, or at the end; what is in it is counted by the caller.
    void Adopt(std::size_t place, std::unique_ptr<ChildBlock> part);
    /// Moves the second half of what is in it to an empty block of its kind.
    void GiveHalf(ChildBlock& half);
};

} // namespace korvel::internal

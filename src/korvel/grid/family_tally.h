#pragma once

namespace korvel::internal {

/// What nodes add up to for the family that they belong to.
struct FamilyTally {
    int rows = 0;     // rows that they take while their parent is expanded
    int open = 0;     // how many are expanded
    int families = 0; // how many have children

    FamilyTally& operator+=(const FamilyTally& other) {
        rows += other.rows;
        open += other.open;
        families += other.families;
        return *this;
    }
    FamilyTally operator-(const FamilyTally& other) const {
        return {rows - other.rows, open - other.open, families - other.families};
    }
    bool operator==(const FamilyTally&) const = default;
};

} // namespace korvel::internal

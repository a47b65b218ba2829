#pragma once

#include "korvel/window/base/types.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

namespace korvel::internal {

/// What a list keeps of one row: 24 bytes, and texts only where the row stores its own.
struct RowRecord {
    static constexpr int DeepestIndent = (1 << 24) - 1;
    static constexpr int DeepestRemoval = (1 << 6) - 1;

    void SetIndent(int depth) { indent = static_cast<std::uint32_t>(std::clamp(depth, 0, DeepestIndent)); }
    bool IsSelected() const { return m_isSelected; }

    LPARAM data = 0;
    /// Entry i belongs to column i. Null: the texts come from the list's text source.
    std::unique_ptr<std::vector<CString>> texts;
    std::int32_t image = -1;
    std::uint32_t indent : 24 = 0;
    /// The number of the removal that will take the row, counted from the outermost one that goes on; 0:
    /// none.
    std::uint32_t removal : 6 = 0;
    bool checked : 1 = false;

private:
    friend class RowBlocks; // counts the selected rows
    bool m_isSelected : 1 = false;
};

static_assert(sizeof(RowRecord) == 24);

} // namespace korvel::internal

#pragma once

#include "korvel/values/observer_grid.h"

namespace korvel {
class CListCtrl;
class CSuperGridCtrl;
} // namespace korvel

namespace korvel::internal {

class AttributeRows;
class WriteFrame;

/// The edit over the name of a row, by which the user renames a member.
class MemberLabelEdit {
public:
    /// All must outlive it; `observer` may be null.
    MemberLabelEdit(const CSuperGridCtrl& grid, const AttributeRows& rows, WriteFrame& frame,
                    IObserverGrid* observer)
        : m_grid(grid), m_rows(rows), m_frame(frame), m_observer(observer) {}

    /// To be called while the edit exists and is not shown yet: puts the label of the member into it, that of
    /// the selected row. False when the member does not let itself be renamed.
    bool Begin();
    /// Renames the member of the row to what was typed, also when that is its label; null: it was cancelled.
    /// False when nothing was renamed. The row gets its name from the sink.
    bool End(int row, const char* text);

private:
    const CSuperGridCtrl& m_grid;
    const AttributeRows& m_rows;
    WriteFrame& m_frame;
    IObserverGrid* m_observer;
};

} // namespace korvel::internal

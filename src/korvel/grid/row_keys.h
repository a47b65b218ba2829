#pragma once

#include "korvel/window/base/types.h"

namespace korvel {
class CSuperGridCtrl;
}

namespace korvel::internal {

class RowWatch;

/// What keys do in a tree grid; for the time of one key.
class RowKeys {
public:
    explicit RowKeys(CSuperGridCtrl& grid) : m_grid(grid) {}

    /// Before the list has the key: moves the column, starts the edit of a cell. True: the key is used up.
    bool Translate(UINT key);
    /// A key that the list had: acts on the selected row. False when there is nothing to do.
    bool Press(UINT key);

private:
    enum class Step { Left = -1, Right = 1 };

    void MoveColumn(Step step);
    bool StartCellEdit();
    void ToggleChecks(const RowWatch& first, int number);
    void Delete(const RowWatch& row, int number);
    void ExpandAll(const RowWatch& row, int number);
    void Expand(const RowWatch& row, int number);
    void Collapse(const RowWatch& row, int number);

    CSuperGridCtrl& m_grid;
};

} // namespace korvel::internal

#pragma once

#include "korvel/editors/grid_option.h"
#include "korvel/values/observer_grid.h"

#include <cstdint>
#include <optional>
#include <string>

namespace korvel {
class CSuperGridCtrl;
class IEnumContainer;
} // namespace korvel

namespace korvel::internal {

class AttributeRows;
class WriteFrame;

/// What a new attribute may be.
struct AttributeOffer {
    IEnumContainer* enumerations; // may be null
    std::uint32_t types;          // a mask
    bool canBeProtected;
    GridOptions options;
};

/// What the user does to the member of the selected row. Changes the object and tells the observer; the rows
/// follow when the host says through the sink what has changed. Without a selected row, and where the object
/// refuses, nothing happens and nothing is said; what the host throws is told to the user.
class MemberOperations {
public:
    /// All must outlive it; `observer` may be null.
    MemberOperations(const CSuperGridCtrl& grid, const AttributeRows& rows, WriteFrame& frame,
                     IObserverGrid* observer)
        : m_grid(grid), m_rows(rows), m_frame(frame), m_observer(observer) {}

    /// Adds a member that a dialog asks for to the object of the selected row, or to the one that owns its
    /// member; without a selected row to the root.
    void Add(const AttributeOffer& offer);
    void Remove();
    void ToggleWriteProtection();
    /// An undoable step.
    void ChangeType(EDataTyps target);
    /// The path that a member names: the Text of a file name, of any other value its user-facing text, which
    /// may be empty. Nothing when it cannot be read.
    std::optional<std::string> FindPath();

private:
    const CSuperGridCtrl& m_grid;
    const AttributeRows& m_rows;
    WriteFrame& m_frame;
    IObserverGrid* m_observer;
};

} // namespace korvel::internal

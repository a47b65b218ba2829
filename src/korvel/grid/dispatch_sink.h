#pragma once

#include "korvel/values/observer_grid.h"

namespace korvel {
class CEditableGrid;
}

namespace korvel::internal {

/// What a host calls to tell a grid of changes to one object that it shows; leads to the grid's operations
/// of the same names. Lives as long as the grid shows the object.
class IOpenGLDispatchSinkImp : public IObserverGridSink {
public:
    IOpenGLDispatchSinkImp(IMemberDispatch* disp, CEditableGrid* grid) : m_disp(disp), m_grid(grid) {}

    void OnChangeIdent(const std::string& name, const std::string& newName) override;
    void OnChange(const std::string& name, const CVariantValue& value) override;
    void OnChangeEditFlag(const std::string& name, const bool& editable) override;
    void OnOperationAdd(const std::string& name, const CVariantValue& value) override;
    void OnOperationInsert(const unsigned long& position, const std::string& name,
                           const CVariantValue& value) override;
    void OnOperationRemove(const std::string& name, const CVariantValue& value) override;
    void OnOperationRename(const std::string& name, const std::string& newName) override;
    void OnOperationChangeType(const std::string& name, EDataTyps type, const CVariantValue& value) override;
    /// `name` carries the text to show.
    void OnOperationChangeTupelPresentation(const std::string& name) override;

private:
    IMemberDispatch* Object() const;

    IMemberDispatch* m_disp; // null: whatever object the grid is bound to
    CEditableGrid* m_grid;
};

} // namespace korvel::internal

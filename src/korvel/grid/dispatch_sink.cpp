#include "korvel/grid/dispatch_sink.h"

#include "korvel/grid/editable_grid.h"

namespace korvel::internal {

IMemberDispatch* IOpenGLDispatchSinkImp::Object() const {
    return m_disp ? m_disp : m_grid->GetRootDisp();
}

void IOpenGLDispatchSinkImp::OnChangeIdent(const std::string& name, const std::string& newName) {
    m_grid->OnChangeIdent(name, newName);
}

void IOpenGLDispatchSinkImp::OnChange(const std::string& name, const CVariantValue& value) {
    m_grid->OnChange(Object(), name, value);
}

void IOpenGLDispatchSinkImp::OnChangeEditFlag(const std::string& name, const bool& editable) {
    m_grid->OnChangeEditFlag(Object(), name, editable);
}

void IOpenGLDispatchSinkImp::OnOperationAdd(const std::string& name, const CVariantValue& value) {
    m_grid->OnOperationAdd(Object(), name, value);
}

void IOpenGLDispatchSinkImp::OnOperationInsert(const unsigned long& position, const std::string& name,
                                               const CVariantValue& value) {
    m_grid->OnOperationInsert(Object(), position, name, value);
}

void IOpenGLDispatchSinkImp::OnOperationRemove(const std::string& name, const CVariantValue& value) {
    m_grid->OnOperationRemove(Object(), name, value);
}

void IOpenGLDispatchSinkImp::OnOperationRename(const std::string& name, const std::string& newName) {
    m_grid->OnOperationRename(Object(), name, newName);
}

void IOpenGLDispatchSinkImp::OnOperationChangeType(const std::string& name, EDataTyps type,
                                                   const CVariantValue& value) {
    m_grid->OnOperationChangeType(Object(), name, type, value);
}

void IOpenGLDispatchSinkImp::OnOperationChangeTupelPresentation(const std::string& name) {
    m_grid->OnOperationChangeTupelPresentation(Object(), name);
}

} // namespace korvel::internal

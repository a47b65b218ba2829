#include "korvel/grid/dispatch_sink.h"

#include "korvel/grid/sink_delivery.h"

namespace korvel::internal {

template <class Record, class... Fields>
void IOpenGLDispatchSinkImp::Send(const Fields&... fields) const {
    SinkDelivery(OwnedSinkRecord(new Record(fields...))).Send(m_window);
}

void IOpenGLDispatchSinkImp::OnChangeIdent(const std::string& name, const std::string& newName) {
    Send<SSS>(SinkChangeIdent, name, newName);
}

void IOpenGLDispatchSinkImp::OnChange(const std::string& name, const CVariantValue& value) {
    Send<SPSV>(SinkChange, m_disp, name, value);
}

void IOpenGLDispatchSinkImp::OnChangeEditFlag(const std::string& name, const bool& editable) {
    Send<SPSb>(SinkChangeEditFlag, m_disp, name, editable);
}

void IOpenGLDispatchSinkImp::OnOperationAdd(const std::string& name, const CVariantValue& value) {
    Send<SPSV>(SinkAdd, m_disp, name, value);
}

void IOpenGLDispatchSinkImp::OnOperationInsert(const unsigned long& position, const std::string& name,
                                               const CVariantValue& value) {
    Send<SPNSV>(SinkInsert, m_disp, position, name, value);
}

void IOpenGLDispatchSinkImp::OnOperationRemove(const std::string& name, const CVariantValue& value) {
    Send<SPSV>(SinkRemove, m_disp, name, value);
}

void IOpenGLDispatchSinkImp::OnOperationRename(const std::string& name, const std::string& newName) {
    Send<SPSS>(SinkRename, m_disp, name, newName);
}

void IOpenGLDispatchSinkImp::OnOperationChangeType(const std::string& name, EDataTyps type,
                                                   const CVariantValue& value) {
    Send<SPSEV>(SinkChangeType, m_disp, name, type, value);
}

void IOpenGLDispatchSinkImp::OnOperationChangeTupelPresentation(const std::string& name) {
    Send<SPS>(SinkChangePresentation, m_disp, name);
}

} // namespace korvel::internal

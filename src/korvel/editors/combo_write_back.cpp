#include "korvel/editors/combo_write_back.h"

#include "korvel/platform/raised_flag.h"

namespace korvel::internal {

void ComboWriteBack::SetMember(IMemberDispatch* object, const std::string& name) {
    m_object = object;
    m_memberName = name;
}

void ComboWriteBack::Forget() {
    m_object = nullptr;
    m_memberName.clear();
    m_isDirty = false;
}

bool ComboWriteBack::Write(IObserverGrid* observer) {
    if (!m_object || m_isWriting)
        return true;
    const RaisedFlag writing(m_isWriting);
    const std::string name = m_memberName; // the host may end the binding meanwhile
    return WriteTo(*m_object, name, observer);
}

bool ComboWriteBack::WriteTo(IMemberDispatch& object, const std::string& name, IObserverGrid* observer) {
    const LossWatch bound = m_binding.Watch();
    const CVariantValue written = m_binding.Value();
    const bool isTaken = object.SetMember(name, written);
    if (!bound)
        return isTaken; // the object need not live any longer
    if (observer)
        observer->OnChange(&object, nullptr, name, written);
    if (!bound)
        return isTaken;
    CVariantValue now = written;
    object.GetMember(name, now);
    if (!bound)
        return isTaken;
    m_binding.Value() = now;
    if (observer && now != written)
        observer->OnChange(&object, nullptr, name, now);
    return isTaken;
}

const bool& ComboWriteBack::IsDirty() {
    m_isDirty = false;
    if (!m_object || m_isWriting)
        return m_isDirty;
    const LossWatch bound = m_binding.Watch();
    const std::string name = m_memberName;
    CVariantValue now;
    if (m_object->GetMember(name, now) && bound)
        m_isDirty = now != m_binding.Value();
    return m_isDirty;
}

} // namespace korvel::internal

#pragma once

#include "korvel/editors/combo_binding.h"
#include "korvel/values/observer_grid.h"

#include <string>

namespace korvel::internal {

/// The member of an object that a list's value comes from and is written back to. It knows no window.
///
///     ComboWriteBack writeBack(binding);
///     writeBack.SetMember(&object, "surface");
///     writeBack.IsDirty();        // the user has chosen something else
///     writeBack.Write(observer);
class ComboWriteBack {
public:
    explicit ComboWriteBack(ComboBinding& binding) : m_binding(binding) {}

    /// The object may be null.
    void SetMember(IMemberDispatch* object, const std::string& name);
    void Forget();
    void Rename(const std::string& name) { m_memberName = name; }
    IMemberDispatch* Object() const { return m_object; }
    const std::string& MemberName() const { return m_memberName; }

    /// Writes the value, notifies the observer (may be null), reads it back, and notifies again when the
    /// object has corrected it. Does nothing without an object and while one is running.
    /// False when the object refuses the value.
    bool Write(IObserverGrid* observer);
    bool IsWriting() const { return m_isWriting; }
    /// Reads the member and compares. False while one is written, and without an object or its member.
    const bool& IsDirty();

private:
    bool WriteTo(IMemberDispatch& object, const std::string& name, IObserverGrid* observer);

    ComboBinding& m_binding;
    IMemberDispatch* m_object = nullptr;
    std::string m_memberName;
    bool m_isDirty = false;
    bool m_isWriting = false;
};

} // namespace korvel::internal

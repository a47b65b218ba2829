#pragma once

#include "korvel/platform/export.h"
#include "korvel/values/member_dispatch.h"

#include <string>

namespace korvel {

/// How a host tells a grid of changes that were made elsewhere; the library implements it, one for each
/// object shown. May be called from any thread. The names of the operations say what has happened to the
/// member.
class KORVEL_API IObserverGridSink {
public:
    virtual void Reserved0() {}
    virtual void OnChangeIdent(const std::string& name, const std::string& newName) = 0;
    virtual void OnChange(const std::string& name, const CVariantValue& value) = 0;
    virtual void OnChangeEditFlag(const std::string& name, const bool& editable) = 0;
    virtual void OnOperationAdd(const std::string& name, const CVariantValue& value) = 0;
    virtual void OnOperationInsert(const unsigned long& position, const std::string& name,
                                   const CVariantValue& value) = 0;
    virtual void OnOperationRemove(const std::string& name, const CVariantValue& value) = 0;
    virtual void OnOperationRename(const std::string& name, const std::string& newName) = 0;
    virtual void OnOperationChangeType(const std::string& name, EDataTyps type,
                                       const CVariantValue& value) = 0;
    virtual void OnOperationChangeTupelPresentation(const std::string& name) = 0;
    virtual ~IObserverGridSink() = default;
};

/// Implemented by the host and given to a grid: told of every change that the user made, after the object was
/// changed. `reserved` is always null.
class KORVEL_API IObserverGrid {
public:
    /// The grid begins to show `disp` (may be null, and may be told twice): changes made elsewhere go to
    /// `sink` from now on.
    virtual void AddSink(IMemberDispatch* disp, IObserverGridSink* sink) = 0;

    /// The grid stops showing `disp`; the object must be valid until this returns.
    virtual void RemoveSink(IMemberDispatch* disp, IObserverGridSink* sink) = 0;

    virtual void Reserved2() {}
    virtual void OnChange(IMemberDispatch* disp, void* reserved, const std::string& name,
                          const CVariantValue& value) = 0;
    virtual void OnRemove(IMemberDispatch* disp, void* reserved, const std::string& name) = 0;
    virtual void OnRename(IMemberDispatch* disp, void* reserved, const std::string& name,
                          const std::string& newName) = 0;
    virtual void OnAdd(IMemberDispatch* disp, void* reserved, const std::string& name,
                       const CVariantValue& value) = 0;
    virtual void Reserved7() {}
    virtual void OnChangeEditFlag(IMemberDispatch* disp, void* reserved, const std::string& name,
                                  const bool& editable) = 0;
    virtual void OnChangeType(IMemberDispatch* disp, void* reserved, const std::string& name, EDataTyps type,
                              const CVariantValue& value) = 0;

protected:
    // Not virtual: the first operation in the order that hosts know is AddSink.
    ~IObserverGrid() = default;
};

} // namespace korvel

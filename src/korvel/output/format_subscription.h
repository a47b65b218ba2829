#pragma once

#include "korvel/platform/export.h"

namespace korvel {

class IObserverGrid;

// Sinks of the exported subscription functions, and implementations that forward to the operations of the
// same names of an owner, which must outlive them.

class KORVEL_API INumberFormatChanged {
public:
    virtual ~INumberFormatChanged() = default;
    virtual void OnChangedNumberInt() = 0;
    virtual void OnChangedNumberLong() = 0;
    virtual void OnChangedNumberFloat() = 0;
    virtual void OnChangedNumberDouble() = 0;
};

class KORVEL_API IAngleFormatChanged {
public:
    virtual ~IAngleFormatChanged() = default;
    virtual void OnChangedAngleFloat() = 0;
    virtual void OnChangedAngleDouble() = 0;
};

class KORVEL_API IDateFormatChanged {
public:
    virtual ~IDateFormatChanged() = default;
    virtual void OnChanged() = 0;
};

template <typename T>
class INumberFormatChangedImp : public INumberFormatChanged {
public:
    explicit INumberFormatChangedImp(T* owner) : m_pOwner(owner) {}
    void OnChangedNumberInt() override { m_pOwner->OnChangedNumberInt(); }
    void OnChangedNumberLong() override { m_pOwner->OnChangedNumberLong(); }
    void OnChangedNumberFloat() override { m_pOwner->OnChangedNumberFloat(); }
    void OnChangedNumberDouble() override { m_pOwner->OnChangedNumberDouble(); }

private:
    T* m_pOwner;
};

template <typename T>
class IAngleFormatChangedImp : public IAngleFormatChanged {
public:
    explicit IAngleFormatChangedImp(T* owner) : m_pOwner(owner) {}
    void OnChangedAngleFloat() override { m_pOwner->OnChangedAngleFloat(); }
    void OnChangedAngleDouble() override { m_pOwner->OnChangedAngleDouble(); }

private:
    T* m_pOwner;
};

template <typename T>
class IDateFormatChangedImp : public IDateFormatChanged {
public:
    explicit IDateFormatChangedImp(T* owner) : m_pOwner(owner) {}
    void OnChanged() override { m_pOwner->OnChanged(); }

private:
    T* m_pOwner;
};

// These do nothing, on purpose: hosts link with them and rely on getting no call.
KORVEL_API void AddNumberFormatChangeSink(INumberFormatChanged* sink);
KORVEL_API void RemoveNumberFormatChangeSink(INumberFormatChanged* sink);
KORVEL_API void AddAngleFormatChangeSink(IAngleFormatChanged* sink);
KORVEL_API void RemoveAngleFormatChangeSink(IAngleFormatChanged* sink);
KORVEL_API void AddDateFormatChangeSink(IDateFormatChanged* sink);
KORVEL_API void RemoveDateFormatChangeSink(IDateFormatChanged* sink);
KORVEL_API void AddSinkNumber(INumberFormatChanged* sink);
KORVEL_API void RemoveSinkNumber(INumberFormatChanged* sink);
KORVEL_API void AddSinkAngle(IAngleFormatChanged* sink);
KORVEL_API void RemoveSinkAngle(IAngleFormatChanged* sink);
KORVEL_API void AddSinkDate(IDateFormatChanged* sink);
KORVEL_API void RemoveSinkDate(IDateFormatChanged* sink);

// Do nothing and return true.
KORVEL_API bool UpdateNumber(IObserverGrid* grid);
KORVEL_API bool UpdateAngle(IObserverGrid* grid);
KORVEL_API bool UpdateDate(IObserverGrid* grid);

} // namespace korvel

#pragma once

#include "korvel/platform/export.h"

namespace korvel {

class IObserverGrid;

/// Reacts to a change of the regional settings; the services of the library do, and a host may. Called on the
/// thread of the windows.
class KORVEL_API ISystemChangedObserver {
public:
    virtual ~ISystemChangedObserver() = default;

    /// The regional settings have been read again; true when something of the observer changed.
    virtual bool OnSystemChanged() = 0;

    /// Called after an `OnSystemChanged` that returned true; `grid` is what the host passed to
    /// `Fire_OnSystemChanged`. The result means nothing.
    virtual bool Update(IObserverGrid* grid) = 0;
};

/// Edit the list of those who react; it does not own them. Adding null or a known observer, or removing an
/// unknown one, has no effect.
KORVEL_API void AddSystemChangedSink(ISystemChangedObserver* observer);
KORVEL_API void RemoveSystemChangedSink(ISystemChangedObserver* observer);

/// To be called by the host when the user has changed the regional settings: reads them again, then calls
/// every observer but `origin` (may be null), and lets those that changed update themselves with `grid` (may
/// be null). Observers may come and go meanwhile. What one of them or a listener of theirs throws keeps no
/// other from following: the first exception goes to the caller after the last observer.
/// \throws Error when the locale's data cannot be read; nothing has changed then
KORVEL_API void Fire_OnSystemChanged(ISystemChangedObserver* origin, IObserverGrid* grid);

/// Base of the services: in the list for as long as it lives, and reacts by `T::FollowSystem`.
template <typename T>
class ISystemChangedObserverImp : public ISystemChangedObserver {
public:
    ISystemChangedObserverImp() { AddSystemChangedSink(this); }
    ~ISystemChangedObserverImp() override { RemoveSystemChangedSink(this); }
    ISystemChangedObserverImp(const ISystemChangedObserverImp&) = delete;
    ISystemChangedObserverImp& operator=(const ISystemChangedObserverImp&) = delete;

    bool OnSystemChanged() override { return static_cast<T*>(this)->FollowSystem(); }
    bool Update(IObserverGrid*) override { return true; }
};

} // namespace korvel

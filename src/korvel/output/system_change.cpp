#include "korvel/output/system_change.h"

#include "korvel/output/system_formats.h"
#include "korvel/platform/first_failure.h"

#include <set>
#include <vector>

namespace korvel {

namespace {

using Observers = std::set<ISystemChangedObserver*>;

Observers& SystemChangeList() {
    static Observers observers;
    return observers;
}

} // namespace

void AddSystemChangedSink(ISystemChangedObserver* observer) {
    if (observer)
        SystemChangeList().insert(observer);
}

void RemoveSystemChangedSink(ISystemChangedObserver* observer) {
    SystemChangeList().erase(observer);
}

void Fire_OnSystemChanged(ISystemChangedObserver* origin, IObserverGrid* grid) {
    internal::RereadSystemSettings();
    const std::vector<ISystemChangedObserver*> observers(SystemChangeList().begin(),
                                                         SystemChangeList().end());
    internal::FirstFailure failure;
    for (ISystemChangedObserver* observer : observers)
        failure.Try([&] {
            if (observer == origin || !SystemChangeList().contains(observer))
                return;
            if (observer->OnSystemChanged() && SystemChangeList().contains(observer))
                observer->Update(grid);
        });
    failure.Rethrow();
}

} // namespace korvel

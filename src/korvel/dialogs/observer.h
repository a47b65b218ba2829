#pragma once

#include <set>

namespace korvel {

/// A base of what has observers: the host puts them in and takes them out. None is owned, and each is in the
/// set once. `I`: the interface that they implement.
template <class I>
class TObserver {
public:
    std::set<I*> m_Observers;
};

} // namespace korvel

#pragma once

#include "korvel/platform/store_problem.h"

#include <mutex>
#include <set>
#include <vector>

namespace korvel::internal {

/// Who hears of stores that cannot be read, and what nobody has heard of yet. May be used from any thread.
class StoreProblemLog {
public:
    using Listener = std::function<void(const platform::StoreProblem&)>;

    static StoreProblemLog& Instance();

    void Listen(Listener listener);

    /// Runs `read`, which reads from the store of a root. False when the store could not be read: the
    /// listener has been told.
    bool ReadOrTell(platform::SettingsRoot root, const std::function<void()>& read);

private:
    void Tell(const platform::StoreProblem& problem);

    std::mutex m_mutex;
    Listener m_listener;
    std::vector<platform::StoreProblem> m_untold;
    std::set<std::filesystem::path> m_known;
};

} // namespace korvel::internal

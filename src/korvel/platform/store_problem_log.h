#pragma once

#include "korvel/platform/store_problem.h"

#include <deque>
#include <mutex>
#include <optional>
#include <set>
#include <utility>

namespace korvel::internal {

/// Who hears of stores that cannot be read, and what nobody has heard of yet. May be used from any thread.
class StoreProblemLog {
public:
    using Listener = std::function<void(const platform::StoreProblem&)>;

    static StoreProblemLog& Instance();

    void Listen(Listener listener);

    /// Runs `read`, which reads from the store of a root and returns what became of that. False when a
    /// setting could not be read: the listener has been told.
    bool ReadOrTell(platform::SettingsRoot root, const std::function<platform::SettingsStatus()>& read);

    /// The file is gone: what is wrong with another one of its name is news again.
    void Forget(const std::filesystem::path& file);

private:
    void Tell(const platform::StoreProblem& problem);
    std::optional<platform::StoreProblem> TakeUntold();

    std::mutex m_mutex;
    Listener m_listener;
    std::deque<platform::StoreProblem> m_untold;
    std::set<std::pair<std::filesystem::path, platform::StoreProblem::Kind>> m_known;
};

} // namespace korvel::internal

#include "korvel/platform/store_problem_log.h"

#include "korvel/platform/store_database.h"

namespace korvel::internal {

using platform::StoreProblem;

StoreProblemLog& StoreProblemLog::Instance() {
    static StoreProblemLog instance;
    return instance;
}

void StoreProblemLog::Listen(Listener listener) {
    {
        const std::lock_guard lock(m_mutex);
        m_listener = listener;
    }
    while (listener) {
        const std::optional<StoreProblem> problem = TakeUntold();
        if (!problem)
            return;
        listener(*problem);
    }
}

std::optional<StoreProblem> StoreProblemLog::TakeUntold() {
    const std::lock_guard lock(m_mutex);
    if (m_untold.empty())
        return std::nullopt;
    StoreProblem first = std::move(m_untold.front());
    m_untold.pop_front();
    return first;
}

bool StoreProblemLog::ReadOrTell(platform::SettingsRoot root, const std::function<void()>& read) {
    StoreProblem problem{root, "", false};
    try {
        read();
        return true;
    } catch (const StoreDamaged& error) {
        problem.text = error.what();
        problem.isDamaged = true;
    } catch (const Error& error) {
        problem.text = error.what();
    }
    Tell(problem);
    return false;
}

void StoreProblemLog::Forget(const std::filesystem::path& file) {
    const std::lock_guard lock(m_mutex);
    m_known.erase({file, true});
    m_known.erase({file, false});
}

void StoreProblemLog::Tell(const StoreProblem& problem) {
    Listener listener;
    {
        const std::lock_guard lock(m_mutex);
        if (!m_known.emplace(platform::StorePath(problem.root), problem.isDamaged).second)
            return;
        listener = m_listener;
        if (!listener)
            m_untold.push_back(problem);
    }
    if (listener)
        listener(problem);
}

} // namespace korvel::internal

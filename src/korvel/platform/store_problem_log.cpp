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

bool StoreProblemLog::ReadOrTell(platform::SettingsRoot root,
                                 const std::function<platform::SettingsStatus()>& read) {
    StoreProblem problem{root, StoreProblem::Kind::OutOfReach, "", ""};
    try {
        if (read() != platform::SettingsStatus::AccessDenied)
            return true;
        problem.text = StoreFailure(platform::StorePath(root), "access is denied");
    } catch (const StoreDamaged& error) {
        problem.kind = StoreProblem::Kind::Damaged;
        problem.text = error.what();
    } catch (const WrongStoreValue& error) {
        problem.kind = StoreProblem::Kind::WrongValue;
        problem.text = error.what();
        problem.valueName = error.ValueName();
    } catch (const Error& error) {
        problem.text = error.what();
    }
    Tell(problem);
    return false;
}

void StoreProblemLog::Forget(const std::filesystem::path& file) {
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_known, [&](const auto& known) { return known.first == file; });
}

void StoreProblemLog::Tell(const StoreProblem& problem) {
    Listener listener;
    {
        const std::lock_guard lock(m_mutex);
        if (!m_known.emplace(platform::StorePath(problem.root), problem.kind).second)
            return;
        listener = m_listener;
        if (!listener)
            m_untold.push_back(problem);
    }
    if (listener)
        listener(problem);
}

} // namespace korvel::internal

#include "korvel/platform/store_problem.h"

#include "korvel/platform/code_page.h"
#include "korvel/platform/error.h"
#include "korvel/platform/set_aside.h"
#include "korvel/platform/store_database.h"
#include "korvel/platform/store_problem_log.h"

#include <utility>

namespace korvel::platform {

void SetStoreProblemListener(std::function<void(const StoreProblem&)> listener) {
    internal::StoreProblemLog::Instance().Listen(std::move(listener));
}

std::filesystem::path SetStoreAside(SettingsRoot root) {
    const std::filesystem::path file = StorePath(root);
    if (!internal::StoreDatabase::IsDamaged(file))
        throw Error("The settings store " + FromUtf8(file.string()).text + " is not known to be damaged");
    std::filesystem::path aside = SetFileAside(file, {"-wal", "-shm", "-journal"});
    internal::StoreProblemLog::Instance().Forget(file);
    return aside;
}

} // namespace korvel::platform

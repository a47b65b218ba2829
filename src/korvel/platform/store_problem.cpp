#include "korvel/platform/store_problem.h"

#include "korvel/platform/code_page.h"
#include "korvel/platform/error.h"
#include "korvel/platform/store_problem_log.h"

#include <system_error>
#include <utility>

namespace korvel::platform {
namespace {

// Files that belong to the store and hold what is not in it yet.
constexpr const char* Companions[] = {"-wal", "-shm", "-journal"};

std::filesystem::path WithSuffix(std::filesystem::path file, const std::string& suffix) {
    return file += suffix;
}

std::filesystem::path FreeNameFor(const std::filesystem::path& file) {
    std::filesystem::path name = WithSuffix(file, ".damaged");
    for (int number = 2; std::filesystem::exists(std::filesystem::symlink_status(name)); ++number)
        name = WithSuffix(file, "." + std::to_string(number) + ".damaged");
    return name;
}

void RenameCompanions(const std::filesystem::path& file, const std::filesystem::path& newName) {
    std::error_code ignored; // most are not there
    for (const char* companion : Companions)
        std::filesystem::rename(WithSuffix(file, companion), WithSuffix(newName, companion), ignored);
}

} // namespace

void SetStoreProblemListener(std::function<void(const StoreProblem&)> listener) {
    internal::StoreProblemLog::Instance().Listen(std::move(listener));
}

std::filesystem::path SetStoreAside(SettingsRoot root) {
    const std::filesystem::path file = StorePath(root);
    std::filesystem::path aside = FreeNameFor(file);
    // Before the file: a new one of its name would take them for its own.
    RenameCompanions(file, aside);
    std::error_code error;
    std::filesystem::rename(file, aside, error);
    if (error) {
        RenameCompanions(aside, file);
        throw Error("The settings store " + FromUtf8(file.string()).text +
                    " cannot be renamed: " + error.message());
    }
    internal::StoreProblemLog::Instance().Forget(file);
    return aside;
}

} // namespace korvel::platform

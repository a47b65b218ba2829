#pragma once

#include "korvel/platform/export.h"
#include "korvel/platform/settings_store.h"

#include <filesystem>
#include <functional>
#include <string>

namespace korvel::platform {

/// A settings store whose settings a text had to be made without, because it could not be read.
///
///     SetStoreProblemListener([](const StoreProblem& problem) {
///         Show(problem.text);
///         if (problem.isDamaged)
///             SetStoreAside(problem.root); // the next setting that is written begins a new one
///     });
struct StoreProblem {
    SettingsRoot root = SettingsRoot::User;
    std::string text;       ///< of the Error, with the name of the file
    bool isDamaged = false; ///< false: locked or out of reach, which may pass
};

/// The listener hears once that a file is damaged, and once that it is out of reach; what comes before there
/// is a listener is kept for it. Called on the thread that reads, or on the caller's for what was kept; an
/// exception of the listener goes to whoever reads, or to the caller, and what is then left is kept for the
/// next listener. Null: none.
KORVEL_API void SetStoreProblemListener(std::function<void(const StoreProblem&)> listener);

/// Renames the file of a root, with its log or journal, as SetFileAside does, and returns the new name.
/// \throws Error when it cannot be renamed, and when it is not damaged, or no longer: another program may
/// have set it aside and begun a new one. Nothing has changed then
KORVEL_API std::filesystem::path SetStoreAside(SettingsRoot root);

} // namespace korvel::platform

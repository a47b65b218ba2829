#pragma once

#include "korvel/platform/export.h"
#include "korvel/platform/settings_store.h"

#include <filesystem>
#include <functional>
#include <string>

namespace korvel::platform {

/// What is wrong with a settings store: texts had to be made without some or all of its settings.
///
///     SetStoreProblemListener([](const StoreProblem& problem) {
///         Show(problem.text);
///         if (problem.kind == StoreProblem::Kind::Damaged)
///             SetStoreAside(problem.root); // the next setting that is written begins a new one
///     });
struct StoreProblem {
    enum class Kind {
        OutOfReach, ///< locked, on a disk that fails, or not for this user: it may pass
        Damaged,    ///< no settings store, or no longer one
        WrongValue, ///< what a value holds is no setting; all others are in force
    };

    SettingsRoot root = SettingsRoot::User;
    Kind kind = Kind::OutOfReach;
    std::string text;      ///< of the Error, with the name of the file
    std::string valueName; ///< of a WrongValue, as the program asked for it; else empty
};

/// The listener hears once of each kind of problem that a file has; what comes before there is a listener is
/// kept for it. Called on the thread that reads, or on the caller's for what was kept; an exception of the
/// listener goes to whoever reads, or to the caller, and what is then left is kept for the next listener.
/// Null: none.
KORVEL_API void SetStoreProblemListener(std::function<void(const StoreProblem&)> listener);

/// Renames the file of a root, with its log or journal, as SetFileAside does, and returns the new name.
/// \throws Error when it cannot be renamed, and when it is not damaged, or no longer: another program may
/// have set it aside and begun a new one. Nothing has changed then
KORVEL_API std::filesystem::path SetStoreAside(SettingsRoot root);

} // namespace korvel::platform

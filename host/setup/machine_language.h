#pragma once

/// The language that set-up chooses for a machine, and where it is kept.
namespace korvel::inspector {

/// Writes the machine's language unless there is one already: German where the machine's locale is German,
/// else English. Without the right to write the machine's settings, it goes to a store in the build folder.
/// \throws Error when neither can be written
void InstallMachineLanguage();

/// Lets a program that runs from its build folder find the language there when the machine's settings hold
/// none. Does nothing when these cannot be read.
void UseBuildFolderSettings();

} // namespace korvel::inspector

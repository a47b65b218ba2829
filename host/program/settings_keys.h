#pragma once

#include "korvel/values/registry.h"

#include <string>

/// Where the inspector keeps what it remembers from run to run, in the user's settings.
namespace korvel::inspector {

/// As the library's dialogs see the program; part of the keys of their state.
inline constexpr const char* HostName = "LandXML Inspector";
inline const std::string MainWindowKey =
    RegistryPath + std::string("\\DlgStates\\") + HostName + "\\MainWindow";
inline const std::string GridKey = MainWindowKey + "\\"; // in which the grid keeps its columns
inline const std::string RecentFilesKey = RegistryPath + std::string("\\") + HostName;
inline const std::string DocumentsKey = RecentFilesKey + "\\Documents\\";

} // namespace korvel::inspector

#pragma once

/// Where the inspector keeps what it remembers from run to run, in the user's settings.
namespace korvel::inspector {

/// As the library's dialogs see the program; part of the keys of their state.
inline constexpr const char* HostName = "LandXML Inspector";
inline constexpr const char* MainWindowKey =
    "SOFTWARE\\Halmond\\Korvel\\DlgStates\\LandXML Inspector\\MainWindow";
inline constexpr const char* RecentFilesKey = "SOFTWARE\\Halmond\\Korvel\\LandXML Inspector";
inline constexpr const char* DocumentsKey = "SOFTWARE\\Halmond\\Korvel\\LandXML Inspector\\Documents\\";

} // namespace korvel::inspector

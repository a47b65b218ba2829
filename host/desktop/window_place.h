#pragma once

class QWidget;

/// Where the main window was when the program ended: its rectangle without the maximizing, and whether it was
/// maximized.
namespace korvel::inspector {

/// Leaves the window as it is where nothing is kept, or what is kept cannot be understood. A place outside of
/// every screen is moved onto one.
void RestorePlace(QWidget& window);
void KeepPlace(const QWidget& window);

} // namespace korvel::inspector

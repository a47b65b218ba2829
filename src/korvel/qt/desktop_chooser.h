#pragma once

class QString;
class QWidget;

namespace korvel::internal {

/// Lets the user choose a program for a file, in the dialog of the desktop's portal; it comes later, and
/// nothing is heard of the choice. False when the desktop has no such dialog. `owner` may be null.
bool OfferPrograms(const QWidget* owner, const QString& path);

} // namespace korvel::internal

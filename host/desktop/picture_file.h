#pragma once

#include <QString>

class QImage;

namespace korvel::inspector {

/// Writes a picture in the format that the name's ending says; PNG without one. A file that is there stays,
/// unless it is a picture of this program: then the next free name is taken, "plan-2.png" for "plan.png".
/// Returns the name that was taken. Throws Error. Formats that hold no texts cannot say whose they are, so
/// they never replace a file.
QString SavePicture(QImage image, const QString& name);

} // namespace korvel::inspector

#include "program/file_chooser.h"

#include "korvel/dialogs/file_container.h"

namespace korvel::inspector {

IFileValue& FileChooser() {
    constexpr std::uint32_t OnlyChosen = 1; // else the path can be typed, too
    IFileValue& chooser = *GetFileContainer().GetFileValue(0);
    chooser.SetFileType(chooser.GetFileType() & ~OnlyChosen);
    return chooser;
}

} // namespace korvel::inspector

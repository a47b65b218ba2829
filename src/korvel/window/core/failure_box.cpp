#include "korvel/window/core/display.h"
#include "korvel/window/core/uncaught.h"
#include "korvel/window/core/window.h"

namespace korvel::internal {
namespace {

// A window that throws whenever it is painted would put a box on the box.
bool ShowFailureBox(const CString& text) {
    if (Display().IsHeadless())
        return false;
    static thread_local bool showing = false;
    if (showing)
        return true;
    struct Showing {
        Showing() { showing = true; }
        ~Showing() { showing = false; }
    } const scope;
    MessageBoxA(nullptr, text, "Korvel", MB_ICONERROR);
    return true;
}

[[maybe_unused]] const bool Registered = SetFailureViewer(ShowFailureBox);

} // namespace
} // namespace korvel::internal

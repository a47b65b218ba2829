#include "korvel/qt/embed.h"

#include "korvel/platform/error.h"
#include "korvel/qt/embed_frame.h"
#include "korvel/qt/qt_display.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/display/window_view.h"

namespace korvel::qt {

QWidget* Embed(HWND window) {
    auto* display = dynamic_cast<QtDisplay*>(&Display());
    if (!display)
        throw Error("A window is embedded while no Qt display is in force.");
    if (!display->WidgetOf(window) || (view::Style(window) & WS_CHILD))
        throw Error("Only a top-level window can be embedded.");
    return new internal::EmbedFrame(*display, window);
}

} // namespace korvel::qt

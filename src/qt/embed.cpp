#include "qt/embed.h"

#include "platform/error.h"
#include "qt/embed_frame.h"
#include "qt/qt_display.h"
#include "window/messages.h"
#include "window/window_view.h"

namespace korvel::qt {

QWidget* Embed(HWND window) {
    auto* display = dynamic_cast<QtDisplay*>(&Display());
    if (!display)
        throw Error("A window is embedded while no Qt display is in force.");
    if (!display->WidgetOf(window) || (view::Style(window) & WS_CHILD))
        throw Error("Only a top-level window can be embedded.");
    return new EmbedFrame(*display, window);
}

} // namespace korvel::qt

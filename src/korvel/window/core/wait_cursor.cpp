#include "korvel/window/core/wait_cursor.h"

#include "korvel/window/core/display_thread.h"

namespace korvel {

using namespace internal;

namespace {

// Touched by the display's thread only.
int& Depth() {
    static int depth = 0;
    return depth;
}

} // namespace

void BeginWaitCursor() {
    OnDisplayThread([](IDisplay& display) {
        if (Depth()++ == 0)
            display.SetCursor(IDC_WAIT);
    });
}

void EndWaitCursor() {
    OnDisplayThread([](IDisplay& display) {
        if (Depth() > 0 && --Depth() == 0)
            display.SetCursor(IDC_ARROW);
    });
}

void RestoreWaitCursor() {
    OnDisplayThread([](IDisplay& display) {
        if (Depth() > 0)
            display.SetCursor(IDC_WAIT);
    });
}

CWaitCursor::CWaitCursor() {
    BeginWaitCursor();
}

CWaitCursor::~CWaitCursor() {
    EndWaitCursor();
}

void CWaitCursor::Restore() {
    RestoreWaitCursor();
}

} // namespace korvel

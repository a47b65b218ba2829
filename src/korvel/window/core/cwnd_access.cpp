#include "korvel/window/core/cwnd_access.h"

#include "korvel/window/core/current_message.h"
#include "korvel/window/core/cwnd.h"
#include "korvel/window/core/dc.h"

namespace korvel::internal {

namespace {

LRESULT ObjectProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const RecordRef record = Find(window);
    if (!record)
        return 0;
    if (!record->object)
        return CallWindowProcA(record->superProcedure, window, message, wParam, lParam);
    const MSG current{window, message, wParam, lParam};
    const CurrentMessageScope scope(current);
    return record->object->WindowProc(message, wParam, lParam);
}

HWND SenderOf(UINT message, LPARAM lParam) {
    if (message == WM_COMMAND)
        return reinterpret_cast<HWND>(lParam);
    if (lParam == 0)
        return nullptr;
    return message == WM_NOTIFY ? reinterpret_cast<const NMHDR*>(lParam)->hwndFrom
                                : reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->hwndItem;
}

} // namespace

void WindowAccess::Attach(CWnd& object, WindowRecord& record) {
    object.m_hWnd = record.handle;
    record.object = &object;
    record.handleInObject = &object.m_hWnd;
    // An object that was here before leaves its procedure in place while hooks are above it.
    if (!record.superProcedure) {
        record.superProcedure = record.procedure;
        record.procedure = ObjectProcedure;
    }
    object.PreSubclassWindow();
}

void WindowAccess::RestoreProcedure(WindowRecord& record) {
    if (record.procedure == ObjectProcedure)
        record.procedure = std::exchange(record.superProcedure, nullptr);
}

bool WindowAccess::OfferToControl(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    CWnd* control = CWnd::FromHandlePermanent(SenderOf(message, lParam));
    return control && control->OnChildNotify(message, wParam, lParam, result);
}

} // namespace korvel::internal

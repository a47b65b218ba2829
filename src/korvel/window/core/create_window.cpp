#include "korvel/window/core/create_window.h"

#include "korvel/window/core/client_area.h"
#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/own_windows.h"
#include "korvel/window/core/window_class.h"
#include "korvel/window/core/window_rectangle.h"
#include "korvel/window/core/window_tree.h"

namespace korvel {

using namespace internal;

namespace {

using Attach = std::function<void(WindowRecord&)>;

void Link(WindowRecord& record, HWND parent) {
    if (record.style & WS_CHILD) {
        record.parent = parent;
        Find(parent)->children.push_back(record.handle);
    } else if (parent) {
        record.owner = RootOf(parent); // owners are top-level themselves
        Find(record.owner)->owned.push_back(record.handle);
    }
}

RecordRef MakeRecord(const CREATESTRUCTA& parameters, const WindowClass& windowClass) {
    RecordRef record = AddOwnWindow();
    record->id = parameters.id;
    record->className = windowClass.name;
    record->style = parameters.style & ~WS_VISIBLE; // it is shown once it is made
    record->exStyle = parameters.exStyle;
    record->rect = Placeable(parameters.rect);
    record->text = parameters.text ? parameters.text : "";
    record->procedure = windowClass.procedure;
    Link(*record, parameters.parent);
    if (windowClass.makeControl)
        record->control = windowClass.makeControl(*record);
    return record;
}

// False when the window refused to live, or did not survive its own creation.
bool Introduce(WindowRecord& record, const CREATESTRUCTA& parameters, const Attach& attach) {
    try {
        if (IsOnDisplay(record))
            Display().Created(record.handle);
        if (attach)
            attach(record);
        const LRESULT answer =
            SendMessageA(record.handle, WM_CREATE, 0, reinterpret_cast<LPARAM>(&parameters));
        if (answer != -1)
            return IsWindow(record.handle);
    } catch (...) {
        DestroyWindow(record.handle);
        throw;
    }
    DestroyWindow(record.handle);
    return false;
}

HWND CreateHere(const CREATESTRUCTA& parameters, const Attach& attach) {
    const auto windowClass = FindWindowClass(parameters.className);
    const RecordRef parent = Find(parameters.parent);
    const bool parentFits = parent ? !parent->destroying : !parameters.parent;
    if (!windowClass || !parentFits || (!parent && (parameters.style & WS_CHILD)))
        return nullptr;
    const RecordRef record = MakeRecord(parameters, *windowClass);
    if (!Introduce(*record, parameters, attach))
        return nullptr;
    TellSize(*record);
    TellMove(*record);
    if (parameters.style & WS_VISIBLE)
        ShowWindow(record->handle, SW_SHOW);
    return IsWindow(record->handle) ? record->handle : nullptr;
}

} // namespace

HWND CreateWindowExA(UINT exStyle, const char* className, const char* text, UINT style, const CRect& rect,
                     HWND parent, int id, void* param) {
    return CreateRecordedWindow({exStyle, className, text, style, rect, parent, id, param}, nullptr);
}

namespace internal {

HWND CreateRecordedWindow(const CREATESTRUCTA& parameters, const Attach& attach) {
    if (!parameters.className)
        return nullptr;
    // A tree of windows belongs to one thread: what is created below a window is created there.
    if (parameters.parent)
        return OnOwner(parameters.parent, [&](WindowRecord&) { return CreateHere(parameters, attach); });
    return CreateHere(parameters, attach);
}

} // namespace internal
} // namespace korvel

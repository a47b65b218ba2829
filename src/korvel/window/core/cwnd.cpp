#include "korvel/window/core/cwnd.h"

#include "korvel/window/core/current_message.h"
#include "korvel/window/core/cwnd_access.h"
#include "korvel/window/core/window_life.h"
#include "korvel/window/display/uncaught.h"

namespace korvel {

using namespace internal;

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
    // An object that was here before leaves its procedure in place while hooks stand above it.
    if (!record.superProcedure) {
        record.superProcedure = record.procedure;
        record.procedure = ObjectProcedure;
    }
    object.PreSubclassWindow();
}

void WindowAccess::Detach(WindowRecord& record) {
    if (CWnd* object = std::exchange(record.object, nullptr))
        object->m_hWnd = nullptr;
}

bool WindowAccess::OfferToControl(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    CWnd* control = CWnd::FromHandlePermanent(SenderOf(message, lParam));
    return control && control->OnChildNotify(message, wParam, lParam, result);
}

CWnd::~CWnd() {
    if (!m_hWnd)
        return;
    const HWND window = m_hWnd;
    Guarded(Uncaught::ToNextPump, [&] { korvel::DestroyWindow(window); });
    // A window that is ending already ends without its object.
    OnOwner(window, [&](WindowRecord& record) {
        if (record.object == this)
            WindowAccess::Detach(record);
    });
}

bool CWnd::CreateEx(UINT exStyle, const char* className, const char* text, UINT style, const CRect& rect,
                    CWnd* parent, int id) {
    if (m_hWnd)
        return false;
    const HWND parentWindow = parent ? parent->m_hWnd : nullptr;
    return CreateRecordedWindow({exStyle, className, text, style, rect, parentWindow, id, nullptr}, this) !=
           nullptr;
}

bool CWnd::SubclassWindow(HWND window) {
    return !m_hWnd && OnOwner(
                          window,
                          [&](WindowRecord& record) {
                              if (record.object || record.destroying)
                                  return false;
                              WindowAccess::Attach(*this, record);
                              return true;
                          });
}

bool CWnd::SubclassDlgItem(int id, CWnd* parent) {
    return parent && SubclassWindow(GetDlgItem(parent->m_hWnd, id));
}

HWND CWnd::UnsubclassWindow() {
    const HWND window = m_hWnd;
    OnOwner(window, [](WindowRecord& record) {
        WindowAccess::Detach(record);
        if (record.procedure == ObjectProcedure)
            record.procedure = std::exchange(record.superProcedure, nullptr);
    });
    return window;
}

bool CWnd::DestroyWindow() {
    return korvel::DestroyWindow(m_hWnd);
}

CWnd* CWnd::FromHandlePermanent(HWND window) {
    return OnOwner(
        window, [](WindowRecord& record) { return record.object; });
}

void CWnd::ModifyStyle(UINT remove, UINT add) {
    SetWindowLongPtrA(m_hWnd, GWL_STYLE, (GetStyle() & ~remove) | add);
}

void CWnd::ModifyStyleEx(UINT remove, UINT add) {
    const auto style = static_cast<UINT>(GetWindowLongPtrA(m_hWnd, GWL_EXSTYLE));
    SetWindowLongPtrA(m_hWnd, GWL_EXSTYLE, (style & ~remove) | add);
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = m_hWnd;
    LRESULT result = 0;
    if (message == WM_COMMAND && OnCommand(wParam, lParam))
        return 1;
    if (message == WM_NOTIFY && OnNotify(wParam, lParam, &result))
        return result;
    if (message == WM_DRAWITEM && WindowAccess::OfferToControl(message, wParam, lParam, &result))
        return result;
    // A handler may have destroyed this object although it declined.
    return FromHandlePermanent(window) == this ? DefWindowProc(message, wParam, lParam) : 0;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return OnOwner(
        m_hWnd,
        [&](WindowRecord& record) {
            return CallWindowProcA(record.superProcedure, record.handle, message, wParam, lParam);
        });
}

bool CWnd::PreTranslateMessage(MSG&) {
    return false;
}

bool CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    return WindowAccess::OfferToControl(WM_COMMAND, wParam, lParam, &result);
}

bool CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    return WindowAccess::OfferToControl(WM_NOTIFY, wParam, lParam, result);
}

bool CWnd::OnChildNotify(UINT, WPARAM, LPARAM, LRESULT*) {
    return false;
}

LRESULT CWnd::Default() {
    const MSG current = GetCurrentMessage();
    return DefWindowProc(current.message, current.wParam, current.lParam);
}

} // namespace korvel

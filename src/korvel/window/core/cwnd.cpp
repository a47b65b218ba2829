#include "korvel/window/core/cwnd.h"

#include "korvel/window/core/create_window.h"
#include "korvel/window/core/current_message.h"
#include "korvel/window/core/cwnd_access.h"
#include "korvel/window/core/thread_queue.h"

namespace korvel {

using namespace internal;

CWnd::~CWnd() {
    if (!m_hWnd)
        return;
    const HWND window = m_hWnd;
    GuardedUntilRun([&] { korvel::DestroyWindow(window); });
    // A window that is ending already ends without its object.
    OnOwner(window, [&](WindowRecord& record) {
        if (record.object == this)
            record.DetachObject();
    });
}

bool CWnd::CreateEx(UINT exStyle, const char* className, const char* text, UINT style, const CRect& rect,
                    CWnd* parent, int id) {
    if (m_hWnd)
        return false;
    const HWND parentWindow = parent ? parent->m_hWnd : nullptr;
    return CreateRecordedWindow({exStyle, className, text, style, rect, parentWindow, id, nullptr},
                                [&](WindowRecord& record) { WindowAccess::Attach(*this, record); }) !=
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
    return parent && SubclassWindow(korvel::GetDlgItem(parent->m_hWnd, id));
}

HWND CWnd::UnsubclassWindow() {
    const HWND window = m_hWnd;
    OnOwner(window, [this](WindowRecord& record) {
        if (record.object != this)
            return;
        record.DetachObject();
        WindowAccess::RestoreProcedure(record);
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

CWnd* CWnd::FromHandle(HWND window) {
    return OnOwner(
        window,
        [](WindowRecord& record) {
            if (record.object)
                return record.object;
            if (!record.temporary) {
                const auto object = std::make_shared<CWnd>();
                object->m_hWnd = record.handle;
                record.handleInTemporary = {object, &object->m_hWnd};
                record.temporary = object.get();
            }
            return record.temporary;
        });
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

MSG CWnd::GetCurrentMessage() {
    return CurrentMessageScope::Current();
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

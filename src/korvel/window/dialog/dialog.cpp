#include "korvel/window/dialog/dialog.h"

#include "korvel/window/app/app.h"
#include "korvel/window/app/find_resource.h"
#include "korvel/window/core/cwnd_access.h"
#include "korvel/window/dialog/create_dialog.h"
#include "korvel/window/dialog/dialog_items.h"
#include "korvel/window/dialog/dialog_keyboard.h"
#include "korvel/window/dialog/dialog_procedure.h"
#include "korvel/window/dialog/modal_loop.h"

namespace korvel {

using namespace internal;

namespace {

HWND ParentWindow(const CWnd* parent) {
    const CWnd* chosen = parent ? parent : GetMainWnd();
    return chosen ? chosen->m_hWnd : nullptr;
}

auto AttachTo(CDialog& dialog) {
    return [&dialog](WindowRecord& record) { WindowAccess::Attach(dialog, record); };
}

bool CreateModeless(CDialog& dialog, const DialogTemplate* found, const CWnd* parent) {
    return !dialog.m_hWnd && found &&
           CreateDialogWindow(*found, ParentWindow(parent), DialogMode::Modeless, AttachTo(dialog));
}

} // namespace

bool CDialog::Create(UINT templateId, CWnd* parent) {
    return CreateModeless(*this, FindDialogTemplate(templateId), parent);
}

bool CDialog::Create(const char* templateName, CWnd* parent) {
    return CreateModeless(*this, FindDialogTemplate(templateName), parent);
}

const DialogTemplate* CDialog::FindTemplate() const {
    return m_templateName.empty() ? FindDialogTemplate(m_templateId)
                                  : FindDialogTemplate(m_templateName.c_str());
}

std::intptr_t CDialog::Run(const DialogTemplate* found) {
    return found && !m_hWnd ? RunModal(*found, ParentWindow(m_parent), AttachTo(*this)) : -1;
}

std::intptr_t CDialog::DoModal() {
    return Run(FindTemplate());
}

std::intptr_t CDialog::DoModalOfLibrary() {
    const auto find = [this] {
        const ModuleStateGuard library;
        return FindTemplate();
    };
    return Run(find());
}

void CDialog::EndDialog(int result) {
    korvel::EndDialog(m_hWnd, result);
}

void CDialog::MapDialogRect(CRect* rect) const {
    if (rect)
        korvel::MapDialogRect(m_hWnd, *rect);
}

UINT CDialog::GetDefID() const {
    return LOWORD(static_cast<WPARAM>(SendMessageA(DM_GETDEFID)));
}

void CDialog::SetDefID(UINT id) {
    SendMessageA(DM_SETDEFID, id);
}

void CDialog::NextDlgCtrl() const {
    SendMessageA(WM_NEXTDLGCTL, 0, 0);
}

void CDialog::PrevDlgCtrl() const {
    SendMessageA(WM_NEXTDLGCTL, 1, 0);
}

void CDialog::GotoDlgCtrl(CWnd* control) const {
    if (control)
        SendMessageA(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control->m_hWnd), 1);
}

bool CDialog::PreTranslateMessage(MSG& message) {
    return CWnd::PreTranslateMessage(message) || IsDialogMessageA(m_hWnd, message);
}

LRESULT CDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return message == WM_INITDIALOG ? OnInitDialog() : CWnd::WindowProc(message, wParam, lParam);
}

void CDialog::OnOK() {
    EndDialog(IDOK);
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

bool CDialog::OnCommand(WPARAM wParam, LPARAM lParam) {
    const HWND window = m_hWnd;
    if (CWnd::OnCommand(wParam, lParam))
        return true;
    if (FromHandlePermanent(window) != this || HIWORD(wParam) != BN_CLICKED)
        return false;
    switch (static_cast<int>(LOWORD(wParam))) {
    case IDOK:
        OnOK();
        return true;
    case IDCANCEL:
        OnCancel();
        return true;
    default:
        return false;
    }
}

} // namespace korvel

#include "korvel/dialogs/dialog_text.h"

#include "korvel/dialogs/dialog_ids.h"

namespace korvel {

using namespace internal;

CDialogText::CDialogText(CWnd* parent) : CDialog(TextTemplateId, parent) {}

std::intptr_t CDialogText::DoModal() {
    return DoModalOfLibrary();
}

const bool& CDialogText::GetIsDirty() const {
    return m_isDirty;
}

const std::string& CDialogText::GetText() const {
    return m_text;
}

void CDialogText::SetCaption(const std::string& caption) {
    m_caption = caption;
}

void CDialogText::SetText(const std::string& text) {
    m_text = text;
}

BOOL CDialogText::OnInitDialog() {
    CDialog::OnInitDialog();
    SetWindowTextA(m_caption);
    m_editText.SubclassDlgItem(TextEditId, this);
    m_editText.SetEventMask(m_editText.GetEventMask() | ENM_CHANGE);
    m_editText.SetWindowTextA(m_text);
    m_isDirty = false;
    return 1;
}

void CDialogText::OnOK() {
    if (m_isDirty)
        m_text = m_editText.GetWindowTextA();
    CDialog::OnOK();
}

bool CDialogText::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (HIWORD(wParam) == EN_CHANGE && LOWORD(wParam) == TextEditId)
        m_isDirty = true;
    return CDialog::OnCommand(wParam, lParam);
}

} // namespace korvel

#include "korvel/dialogs/dialog_edit_code_list.h"

#include "korvel/dialogs/dialog_ids.h"
#include "korvel/values/replace_first.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/dialog/dialog_items.h"

namespace korvel {

using namespace internal;

CDialogEditCodeList::CDialogEditCodeList(CWnd* parent) : CDialog(EditCodeListTemplateId, parent) {}

std::intptr_t CDialogEditCodeList::DoModal() {
    return DoModalOfLibrary();
}

const bool& CDialogEditCodeList::GetIsDirty() const {
    return m_isDirty;
}

const std::string& CDialogEditCodeList::GetCaption() const {
    return m_caption;
}

const std::string& CDialogEditCodeList::GetPlaceholder() const {
    return m_placeholder;
}

const std::string& CDialogEditCodeList::GetCode() const {
    return m_code;
}

const std::string& CDialogEditCodeList::GetValue() const {
    return m_value;
}

void CDialogEditCodeList::SetCaption(const std::string& caption) {
    m_caption = caption;
}

void CDialogEditCodeList::SetPlaceholder(const std::string& placeholder) {
    m_placeholder = placeholder;
}

void CDialogEditCodeList::SetCode(const std::string& code) {
    m_code = code;
}

void CDialogEditCodeList::SetValue(const std::string& value) {
    m_value = value;
}

BOOL CDialogEditCodeList::OnInitDialog() {
    CDialog::OnInitDialog();
    SetWindowTextA(m_caption);
    std::string label = GetDlgItemTextA(m_hWnd, ValueLabelId);
    ReplaceFirst(label, "$PLACEHOLDER", m_placeholder);
    SetDlgItemTextA(m_hWnd, ValueLabelId, label);
    SetDlgItemTextA(m_hWnd, CodeEditId, m_code);
    SetDlgItemTextA(m_hWnd, ValueEditId, m_value);
    m_isDirty = false; // last, as filling the fields counts as a change too
    return 1;
}

void CDialogEditCodeList::OnOK() {
    m_code = GetDlgItemTextA(m_hWnd, CodeEditId);
    m_value = GetDlgItemTextA(m_hWnd, ValueEditId);
    CDialog::OnOK();
}

bool CDialogEditCodeList::OnCommand(WPARAM wParam, LPARAM lParam) {
    const unsigned id = LOWORD(wParam);
    if (HIWORD(wParam) == EN_CHANGE && (id == CodeEditId || id == ValueEditId))
        m_isDirty = true;
    return CDialog::OnCommand(wParam, lParam);
}

} // namespace korvel

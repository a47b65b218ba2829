#include "korvel/dialogs/dialog_code_list.h"

#include "korvel/dialogs/code_list_text.h"
#include "korvel/dialogs/dialog_edit_code_list.h"
#include "korvel/dialogs/dialog_ids.h"
#include "korvel/values/text_table.h"
#include "korvel/window/app/app.h"

#include <set>

namespace korvel {

using namespace internal;

namespace {

constexpr int CodeColumn = 0;
constexpr int ValueColumn = 1;

// Rows of the Text table.
constexpr int CodeHeaderText = 123;
constexpr int AddText = 125;
constexpr int EditText = 126;

struct ValueWords {
    CodeType::Enum type;
    int header;
    int label;
};

constexpr ValueWords WordsOfTypes[] = {{CodeType::Epsg, 124, 124}, {CodeType::Height, 130, 131}};

// Empty for a type that is unknown.
std::string WordOf(CodeType::Enum type, int ValueWords::*word) {
    for (const ValueWords& words : WordsOfTypes)
        if (words.type == type)
            return Text(words.*word);
    return "";
}

CodePair PairOf(const CListCtrl& list, int row) {
    return {list.GetItemText(row, CodeColumn), list.GetItemText(row, ValueColumn)};
}

void InsertPair(CListCtrl& list, int row, const CodePair& pair) {
    list.InsertRow(row, {pair.code, {pair.value}});
}

std::vector<CodePair> AllPairs(const CListCtrl& list) {
    std::vector<CodePair> pairs;
    pairs.reserve(static_cast<std::size_t>(list.GetItemCount()));
    for (int row = 0; row < list.GetItemCount(); ++row)
        pairs.push_back(PairOf(list, row));
    return pairs;
}

// -1: none.
int FirstSelected(const CListCtrl& list) {
    return list.GetNextItem(-1, LVNI_SELECTED);
}

void DeleteQuietly(CListCtrl& list, int row) noexcept {
    try {
        list.DeleteItem(row);
    } catch (...) { // what came first is told
    }
}

// `before` is counted while the row is still at its former place. After an exception the pair is there once.
void MoveRow(CListCtrl& list, int row, int before) {
    constexpr UINT Current = LVIS_SELECTED | LVIS_FOCUSED;
    const int count = list.GetItemCount();
    try {
        InsertPair(list, before, PairOf(list, row));
        list.DeleteItem(before <= row ? row + 1 : row);
    } catch (...) {
        if (list.GetItemCount() > count)
            DeleteQuietly(list, before);
        throw;
    }
    list.SetItemState(before <= row ? before : before - 1, Current, Current);
    list.SetFocus();
}

void SelectAll(CListCtrl& list) {
    if (list.GetSelectionMark() < 0)
        list.SetSelectionMark(0);
    for (int row = 0; row < list.GetItemCount(); ++row)
        list.SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
}

} // namespace

CDialogCodeList::CDialogCodeList(CWnd* parent) : CDialog(CodeListTemplateId, parent) {}

std::intptr_t CDialogCodeList::DoModal() {
    return DoModalOfLibrary();
}

const bool& CDialogCodeList::GetIsDirty() const {
    return m_isDirty;
}

const std::string& CDialogCodeList::GetCodeList() const {
    return m_codeList;
}

const CodeType::Enum& CDialogCodeList::GetCodeType() const {
    return m_codeType;
}

const SelectionMode::Enum& CDialogCodeList::GetSelectionMode() const {
    return m_selectionMode;
}

const std::string& CDialogCodeList::GetSelectedCodes() const {
    return m_selectedCodes;
}

void CDialogCodeList::SetCaption(const std::string& caption) {
    m_caption = caption;
}

void CDialogCodeList::SetCodeList(const std::string& codeList) {
    m_codeList = codeList;
}

void CDialogCodeList::SetCodeType(const CodeType::Enum& codeType) {
    m_codeType = codeType;
}

void CDialogCodeList::SetSelectionMode(const SelectionMode::Enum& selectionMode) {
    m_selectionMode = selectionMode;
}

void CDialogCodeList::SetSelectedCodes(const std::string& selectedCodes) {
    m_selectedCodes = selectedCodes;
}

BOOL CDialogCodeList::OnInitDialog() {
    CDialog::OnInitDialog();
    SetWindowTextA(m_caption);
    AttachControls();
    m_listCodes.SetExtendedStyle(m_listCodes.GetExtendedStyle() | LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP);
    const int half = m_listCodes.GetClientRect().Width() / 2;
    m_listCodes.InsertColumn(CodeColumn, Text(CodeHeaderText), half);
    m_listCodes.InsertColumn(ValueColumn, WordOf(m_codeType, &ValueWords::header), half);
    for (const CodePair& pair : ParseCodeList(m_codeList))
        InsertPair(m_listCodes, m_listCodes.GetItemCount(), pair);
    m_buttonEditCodes.EnableWindow(false);
    m_buttonRemoveCodes.EnableWindow(false);
    if (m_selectionMode == SelectionMode::Single) {
        m_buttonMoveUpCode.ShowWindow(SW_HIDE);
        m_buttonMoveDownCode.ShowWindow(SW_HIDE);
    } else if (m_selectionMode == SelectionMode::Multiple) {
        m_buttonMoveUpCode.EnableWindow(false);
        m_buttonMoveDownCode.EnableWindow(false);
    }
    m_isDirty = false;
    return 1;
}

void CDialogCodeList::AttachControls() {
    struct ButtonPicture {
        CMFCButton& button;
        int id;
        int picture;
    };
    const ModuleStateGuard library; // the pictures are its own
    m_listCodes.SubclassDlgItem(CodeListId, this);
    for (const auto& [button, id, picture] : {ButtonPicture{m_buttonAddCodes, AddCodesId, AddPicture},
                                              {m_buttonEditCodes, EditCodesId, EditPicture},
                                              {m_buttonRemoveCodes, RemoveCodesId, RemovePicture},
                                              {m_buttonMoveUpCode, MoveUpCodeId, MoveUpPicture},
                                              {m_buttonMoveDownCode, MoveDownCodeId, MoveDownPicture}}) {
        button.SubclassDlgItem(id, this);
        button.SetImage(picture);
    }
}

void CDialogCodeList::OnBnClickedButtonAddCodes() {
    OnAddCodes();
}

void CDialogCodeList::OnBnClickedButtonEditCodes() {
    OnEditCodes();
}

void CDialogCodeList::OnBnClickedButtonRemoveCodes() {
    OnRemoveCodes();
}

void CDialogCodeList::OnBnClickedButtonMoveUpCode() {
    OnMoveUpCode();
}

void CDialogCodeList::OnBnClickedButtonMoveDownCode() {
    OnMoveDownCode();
}

// Of several rows that change at once, the buttons follow the last: kept.
void CDialogCodeList::OnLvnItemchangedListCodes(NMHDR* notice, LRESULT* result) {
    *result = 0;
    const auto& change = *reinterpret_cast<const NMLISTVIEW*>(notice);
    if ((change.uChanged & LVIF_STATE) == 0)
        return;
    const bool selected = m_listCodes.GetItemState(change.iItem, LVIS_SELECTED) != 0;
    m_buttonEditCodes.EnableWindow(selected);
    m_buttonRemoveCodes.EnableWindow(selected);
    m_buttonMoveUpCode.EnableWindow(selected && change.iItem > 0);
    m_buttonMoveDownCode.EnableWindow(selected && change.iItem < m_listCodes.GetItemCount() - 1);
    if (m_selectionMode == SelectionMode::Single)
        m_isDirty = true;
}

void CDialogCodeList::OnLvnKeydownListCodes(NMHDR* notice, LRESULT* result) {
    *result = 0;
    switch (reinterpret_cast<const NMLVKEYDOWN*>(notice)->wVKey) {
    case VK_INSERT:
        OnAddCodes();
        break;
    case VK_DELETE:
        OnRemoveCodes();
        break;
    case 'A':
        if (IsKeyDown(VK_CONTROL))
            SelectAll(m_listCodes);
        break;
    default:
        break;
    }
}

// The dirty flag rises in every case, also after Cancel, here and in OnEditCodes: kept.
void CDialogCodeList::OnAddCodes() {
    m_isDirty = true;
    CDialogEditCodeList dialog(this);
    dialog.SetCaption(Text(AddText));
    dialog.SetPlaceholder(WordOf(m_codeType, &ValueWords::label));
    if (dialog.DoModal() == IDOK && dialog.GetIsDirty())
        InsertPair(m_listCodes, m_listCodes.GetItemCount(), {dialog.GetCode(), dialog.GetValue()});
}

void CDialogCodeList::OnEditCodes() {
    const int row = FirstSelected(m_listCodes);
    if (row < 0)
        return;
    m_isDirty = true;
    const CodePair pair = PairOf(m_listCodes, row);
    CDialogEditCodeList dialog(this);
    dialog.SetCaption(Text(EditText));
    dialog.SetPlaceholder(WordOf(m_codeType, &ValueWords::label));
    dialog.SetCode(pair.code);
    dialog.SetValue(pair.value);
    if (dialog.DoModal() == IDOK && dialog.GetIsDirty()) {
        m_listCodes.SetItemText(row, CodeColumn, dialog.GetCode());
        m_listCodes.SetItemText(row, ValueColumn, dialog.GetValue());
    }
}

void CDialogCodeList::OnRemoveCodes() {
    std::set<int> rows;
    for (int row = -1; (row = m_listCodes.GetNextItem(row, LVNI_SELECTED)) >= 0;)
        rows.insert(rows.end(), row);
    if (rows.empty())
        return;
    m_isDirty = true;
    for (auto row = rows.rbegin(); row != rows.rend(); ++row)
        m_listCodes.DeleteItem(*row);
    if (!korvel::IsWindowEnabled(GetFocus())) // the button that was pressed
        m_listCodes.SetFocus();
}

// The dirty flag rises although the first row cannot move up, and the last one not down: kept.
void CDialogCodeList::OnMoveUpCode() {
    const int row = FirstSelected(m_listCodes);
    if (row < 0)
        return;
    m_isDirty = true;
    if (row > 0)
        MoveRow(m_listCodes, row, row - 1);
}

void CDialogCodeList::OnMoveDownCode() {
    const int row = FirstSelected(m_listCodes);
    if (row < 0)
        return;
    m_isDirty = true;
    if (row < m_listCodes.GetItemCount() - 1)
        MoveRow(m_listCodes, row, row + 2);
}

void CDialogCodeList::OnOK() {
    if (m_isDirty) {
        const std::vector<CodePair> pairs = AllPairs(m_listCodes);
        m_codeList = WriteCodeList(pairs);
        const int selected = FirstSelected(m_listCodes);
        if (m_selectionMode == SelectionMode::Multiple)
            m_selectedCodes = m_codeList;
        else if (m_selectionMode == SelectionMode::Single && selected >= 0)
            m_selectedCodes = WriteCodeList({&pairs[selected], 1});
    }
    CDialog::OnOK();
}

bool CDialogCodeList::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (HIWORD(wParam) != BN_CLICKED)
        return CDialog::OnCommand(wParam, lParam);
    switch (static_cast<int>(LOWORD(wParam))) {
    case AddCodesId:
        OnBnClickedButtonAddCodes();
        return true;
    case EditCodesId:
        OnBnClickedButtonEditCodes();
        return true;
    case RemoveCodesId:
        OnBnClickedButtonRemoveCodes();
        return true;
    case MoveUpCodeId:
        OnBnClickedButtonMoveUpCode();
        return true;
    case MoveDownCodeId:
        OnBnClickedButtonMoveDownCode();
        return true;
    default:
        return CDialog::OnCommand(wParam, lParam);
    }
}

bool CDialogCodeList::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    auto* notice = reinterpret_cast<NMHDR*>(lParam);
    if (notice->hwndFrom == m_listCodes.m_hWnd && notice->code == LVN_ITEMCHANGED)
        return OnLvnItemchangedListCodes(notice, result), true;
    if (notice->hwndFrom == m_listCodes.m_hWnd && notice->code == LVN_KEYDOWN)
        return OnLvnKeydownListCodes(notice, result), true;
    return CDialog::OnNotify(wParam, lParam, result);
}

} // namespace korvel

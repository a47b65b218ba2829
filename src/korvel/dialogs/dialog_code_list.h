#pragma once

#include "korvel/dialogs/code_list_types.h"
#include "korvel/window/controls/mfc_button.h"
#include "korvel/window/dialog/dialog.h"
#include "korvel/window/list/list_ctrl.h"

namespace korvel {

/// Shows a code list in a table of two columns, to edit it or to pick from it.
///
///     CDialogCodeList dialog(&frame);
///     dialog.SetCaption("Codes");
///     dialog.SetCodeType(CodeType::Height);
///     dialog.SetSelectionMode(SelectionMode::Single);
///     dialog.SetCodeList("T12:0.35;T13:0.4");     // see code_list_text.h
///     if (dialog.DoModal() == IDOK)
///         Use(dialog.GetSelectedCodes());         // "T12:0.35"
///
/// The user's changes are in GetCodeList after IDOK. Nothing is checked: what the text cannot hold changes
/// its meaning when it is read again. Insert adds a pair, Delete removes those that are selected, Ctrl+A
/// selects all.
///
/// The dirty flag is what hosts know it to be: after Add, Edit and both moves it is set also when the user
/// cancelled or nothing moved, and with SelectionMode::Single at each change of the selection. While it is
/// not set, OK leaves both texts as they were.
class KORVEL_API CDialogCodeList : public CDialog {
public:
    explicit CDialogCodeList(CWnd* parent = nullptr);

    std::intptr_t DoModal() override;

    virtual const bool& GetIsDirty() const;
    virtual const std::string& GetCodeList() const;
    virtual const CodeType::Enum& GetCodeType() const;
    virtual const SelectionMode::Enum& GetSelectionMode() const;
    /// After IDOK with changes: with SelectionMode::Single the first selected pair (the former text when none
    /// is selected), with SelectionMode::Multiple the whole list.
    virtual const std::string& GetSelectedCodes() const;
    virtual void SetCaption(const std::string& caption);
    virtual void SetCodeList(const std::string& codeList);
    /// Another value leaves the second column without a title.
    virtual void SetCodeType(const CodeType::Enum& codeType);
    /// Another value leaves the buttons for moving as the template has them, and the selected codes alone.
    virtual void SetSelectionMode(const SelectionMode::Enum& selectionMode);
    /// Selects no row.
    virtual void SetSelectedCodes(const std::string& selectedCodes);

    BOOL OnInitDialog() override;

protected:
    // What the controls send.
    virtual void OnBnClickedButtonAddCodes();
    virtual void OnBnClickedButtonEditCodes();
    virtual void OnBnClickedButtonRemoveCodes();
    virtual void OnBnClickedButtonMoveUpCode();
    virtual void OnBnClickedButtonMoveDownCode();
    virtual void OnLvnItemchangedListCodes(NMHDR* notice, LRESULT* result);
    virtual void OnLvnKeydownListCodes(NMHDR* notice, LRESULT* result);

    // What the buttons and keys do: a derived dialog replaces an action here.
    virtual void OnAddCodes();
    virtual void OnEditCodes();
    virtual void OnRemoveCodes();
    virtual void OnMoveUpCode();
    virtual void OnMoveDownCode();

    void OnOK() override;
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;
    bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

    bool m_isDirty = false;
    std::string m_caption;
    std::string m_codeList;
    std::string m_selectedCodes;
    CodeType::Enum m_codeType = CodeType::Epsg;
    SelectionMode::Enum m_selectionMode = SelectionMode::Multiple;
    CListCtrl m_listCodes; ///< the rows as the user edits them
    CMFCButton m_buttonAddCodes;
    CMFCButton m_buttonEditCodes;
    CMFCButton m_buttonRemoveCodes;
    CMFCButton m_buttonMoveUpCode;
    CMFCButton m_buttonMoveDownCode;

private:
    void AttachControls();
};

} // namespace korvel

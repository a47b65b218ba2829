#pragma once

#include "korvel/window/core/cwnd.h"

#include <cstdint>
#include <string>

namespace korvel {

struct DialogTemplate;

/// A dialog made of a template (app/dialog_template.h), modal or modeless.
///
///     class RenameDialog : public CDialog {
///     public:
///         explicit RenameDialog(CWnd* parent) : CDialog(300, parent) {}
///         CString name;
///         BOOL OnInitDialog() override {
///             CDialog::OnInitDialog();
///             SetDlgItemTextA(m_hWnd, 11, name);
///             return 1;
///         }
///     protected:
///         void OnOK() override {
///             name = GetDlgItemTextA(m_hWnd, 11);
///             CDialog::OnOK();
///         }
///     };
///     RenameDialog dialog(&frame);
///     if (dialog.DoModal() == IDOK)
///         Rename(dialog.name);
///
/// The template is looked up at creation, in the module state in force then. A parent that is not named is
/// the main window (CWinApp::m_pMainWnd). A template with WS_CHILD makes a page: it lies inside its parent,
/// leaves the focus where it is, and has its keys handled by the dialog around it. A dialog with a control of
/// an unknown class is not made. The keyboard is told in dialog/dialog_keyboard.h.
class KORVEL_API CDialog : public CWnd {
public:
    CDialog() = default;
    /// For DoModal. `parent` is not owned and must live until then.
    explicit CDialog(UINT templateId, CWnd* parent = nullptr) : m_templateId(templateId), m_parent(parent) {}
    explicit CDialog(const char* templateName, CWnd* parent = nullptr)
        : m_templateName(templateName ? templateName : ""), m_parent(parent) {}

    /// Makes a modeless dialog, shown if its template has WS_VISIBLE. False, and no window, when there is one
    /// already, there is no such template, or it cannot be made. An exception of OnInitDialog comes out.
    virtual bool Create(UINT templateId, CWnd* parent = nullptr);
    virtual bool Create(const char* templateName, CWnd* parent = nullptr);
    /// Shows the dialog until EndDialog and returns its result, or -1 when it cannot be made, is destroyed or
    /// the application's event loop ends. An application that closes its windows before it ends cancels the
    /// dialog (IDCANCEL); it goes on where the dialog stays open. The top-level window around the parent is
    /// disabled meanwhile: of an embedded window, the host's whole window. What a handler throws comes out
    /// where it is not taken by the exception handler; the owner is enabled then too.
    virtual std::intptr_t DoModal();
    /// See dialog/dialog_procedure.h.
    void EndDialog(int result);

    /// WM_INITDIALOG: all controls exist, nothing is shown. 1: the first tab stop gets the focus; 0: the
    /// handler has set it.
    virtual BOOL OnInitDialog() { return 1; }

    void MapDialogRect(CRect* rect) const;
    /// The button that Return presses: DM_GETDEFID and DM_SETDEFID.
    UINT GetDefID() const;
    void SetDefID(UINT id);
    /// WM_NEXTDLGCTL: moves the focus as Tab does, or to a control (null: nothing).
    void NextDlgCtrl() const;
    void PrevDlgCtrl() const;
    void GotoDlgCtrl(CWnd* control) const;

    bool PreTranslateMessage(MSG& message) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    /// DoModal of a dialog of this library: its template is the library's own, while what the host does
    /// meanwhile finds the host's module state in force.
    std::intptr_t DoModalOfLibrary();
    /// The command IDOK: ends the dialog with IDOK.
    virtual void OnOK();
    /// The command IDCANCEL, also of Escape and of the close button: ends the dialog with IDCANCEL.
    virtual void OnCancel();
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;

private:
    const DialogTemplate* FindTemplate() const;
    std::intptr_t Run(const DialogTemplate* found);

    UINT m_templateId = 0;
    std::string m_templateName; // empty: the id counts
    CWnd* m_parent = nullptr;
};

} // namespace korvel

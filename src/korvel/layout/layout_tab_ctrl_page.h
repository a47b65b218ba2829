#pragma once

#include "korvel/layout/dlg_state.h"
#include "korvel/layout/layout_manager.h"
#include "korvel/window/dialog/dialog.h"

namespace korvel {

/// A page of a tab control or of another host: lays out its controls, scrolls them where its host enables
/// that, and keeps its state from run to run.
///
///     class CPlanPage : public CLayoutTabCtrlPage {
///     public:
///         CPlanPage() : CLayoutTabCtrlPage(4711, "Plan") {}
///         BOOL OnInitDialog() override {
///             CLayoutTabCtrlPage::OnInitDialog();   // the children hear of their state here
///             InitializeLayout();
///             ... build `root` (layout/layout_manager.h)
///             return 1;
///         }
///     };
///     CPlanPage page;
///     page.Create(page.GetTemplateID(), &tabs);
///     ...
///     page.DestroyWindow();   // saves; a page that is deleted with its window saves nothing
///
/// The rectangle is remembered and not applied: the host places its page. A page that is made inside an entry
/// point of the library, so under another application object than the host's, keeps its state under the
/// library's name, at its end too.
class KORVEL_API CLayoutTabCtrlPage : public CDialog,
                                      public TDlgState<CLayoutTabCtrlPage>,
                                      public CLayoutManager<CLayoutTabCtrlPage> {
public:
    explicit CLayoutTabCtrlPage(UINT templateId, CString title = {});

    BOOL OnInitDialog() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    virtual UINT GetTemplateID() const { return m_templateId; }
    virtual CString GetTitle() const { return m_title; }
    /// (0, 0) unless a derived page sets it.
    virtual CSize GetSize() const { return m_pageSize; }

protected:
    void SetSize(CSize size) { m_pageSize = size; }

private:
    void OnCreate();
    void OnDestroy();
    LRESULT OnScroll(UINT message, WPARAM wParam, LPARAM lParam);

    UINT m_templateId;
    CSize m_pageSize;
    bool m_useOwnModuleState = true; // false: the state is kept under the library's name
    CString m_title;
};

} // namespace korvel

#pragma once

#include "korvel/layout/layout_tab_ctrl_page.h"

namespace korvel {

/// A page that a host of tabs shows.
///
///     CFormatsPage page;      // derived from it
///     page.AttachTo(&tabs);   // true: made as a modeless child of `tabs`, after the page's own template
class KORVEL_API CConfigurationTabCtrlPage : public CLayoutTabCtrlPage {
public:
    using CLayoutTabCtrlPage::CLayoutTabCtrlPage;

    /// Makes the page inside `host`, which must outlive it and is not owned. False without a window of the
    /// host, and where the template cannot be made.
    bool AttachTo(CWnd* host);
    /// Null before.
    CWnd* GetHost() const { return m_host; }

private:
    CWnd* m_host = nullptr;
};

} // namespace korvel

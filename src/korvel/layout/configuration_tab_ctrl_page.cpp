#include "korvel/layout/configuration_tab_ctrl_page.h"

namespace korvel {

bool CConfigurationTabCtrlPage::AttachTo(CWnd* host) {
    m_host = host;
    return host && IsWindow(host->GetSafeHwnd()) && Create(GetTemplateID(), host);
}

} // namespace korvel

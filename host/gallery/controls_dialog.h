#pragma once

#include "korvel/window/app/app.h"
#include "korvel/window/app/dialog_template.h"
#include "korvel/window/app/resource_module.h"
#include "korvel/window/base/image_list.h"
#include "korvel/window/controls/mfc_button.h"
#include "korvel/window/controls/tab_ctrl.h"
#include "korvel/window/dialog/dialog.h"
#include "korvel/window/list/list_ctrl.h"

#include <string>
#include <vector>

namespace korvel::gallery {

/// Shows each kind of control in the states that look different.
class ControlsDialog final : public CDialog {
public:
    ControlsDialog();

    std::intptr_t DoModal() override;
    BOOL OnInitDialog() override;

    // What drops down.
    static constexpr int ChoiceId = 20;
    static constexpr int DateId = 21;

private:
    void FillCombos();
    void FillRanges();
    void FillList();

    std::vector<std::string> m_texts; // to which the items point
    std::vector<DialogItem> m_items;
    DialogTemplate m_template;
    ResourceModule m_resources;
    CWinApp m_host;
    CMFCButton m_pictureButton;
    CTabCtrl m_tabs;
    CImageList m_images;
    CListCtrl m_list;
};

} // namespace korvel::gallery

#pragma once

#include "korvel/dialogs/file_value_imp.h"
#include "korvel/editors/wnd_item.h"
#include "korvel/window/app/app.h"
#include "korvel/window/app/dialog_template.h"
#include "korvel/window/app/resource_module.h"
#include "korvel/window/dialog/dialog.h"
#include "landxml/landxml_enumeration.h"

#include <array>
#include <string>
#include <vector>

namespace korvel::gallery {

/// Shows an item window for each kind of value, and beside it the same disabled.
class ValuesDialog final : public CDialog {
public:
    ValuesDialog();

    std::intptr_t DoModal() override;
    BOOL OnInitDialog() override;

    static constexpr int KindCount = 13;
    // What opens.
    static constexpr int NumberId = 100;
    static constexpr int ListId = 101;

private:
    static constexpr int FirstId = NumberId;

    std::vector<CVariantValue> Values();

    inspector::LandXmlEnumeration m_words{"left|right|both"};
    CFileValueImp m_file;
    std::vector<std::string> m_labels; // to which the items point
    std::vector<DialogItem> m_controls;
    DialogTemplate m_template;
    ResourceModule m_resources;
    CWinApp m_host;
    std::array<CWndItem, 2 * std::size_t{KindCount}> m_items; // after what they show
};

} // namespace korvel::gallery

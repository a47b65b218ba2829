#include "korvel/grid/group_texts.h"

#include "korvel/grid/member_reads.h"
#include "korvel/values/enum_value.h"
#include "korvel/values/group_presentation.h"

namespace korvel::internal {

namespace {

// The kind of a presentation that shows texts.
constexpr unsigned char TextKind = 1;

GroupPresentation* PresentationOf(const IMemberDispatch& disp) {
    return dynamic_cast<GroupPresentation*>(disp.m_pEnumValue);
}

std::string ReadText(GroupPresentation& presentation, const char* column) {
    return ReadOr(
        std::string(), [&] { return presentation.GetPresentationText(column); });
}

} // namespace

bool ShowsTexts(const IMemberDispatch& disp) {
    GroupPresentation* presentation = PresentationOf(disp);
    return presentation && ReadOr(false, [&] { return presentation->GetPresentationKind() == TextKind; });
}

void ShowTexts(const IMemberDispatch& disp, const RowLayout& layout, const LossWatch& rows, CItemInfo& info) {
    const std::map<int, std::string> columns = layout.GetColumns(); // the host may set others meanwhile
    const bool rowsAreObjects = layout.RowsAreObjects();
    if (!ShowsTexts(disp) || !rows)
        return;
    // The object may give its presentation up whenever that is asked.
    GroupPresentation* presentation = PresentationOf(disp);
    if (presentation && !rowsAreObjects) {
        info.SetSubItem(0, ReadText(*presentation, nullptr));
        info.SetControlType(0, CItemInfo::ctButton);
        return;
    }
    for (const auto& [column, name] : columns) {
        if (column == 0)
            continue;
        presentation = rows ? PresentationOf(disp) : nullptr;
        if (!presentation)
            return;
        info.SetSubItem(info.GetSubItemCount(), ReadText(*presentation, name.c_str()));
        // Kept: the cell that is greyed is the next one, so the first value cell stays plain.
        info.SetCellEnabled(column, false);
        info.SetControlType(column, CItemInfo::ctEdit);
    }
}

} // namespace korvel::internal

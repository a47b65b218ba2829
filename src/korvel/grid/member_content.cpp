#include "korvel/grid/member_content.h"

#include "korvel/editors/cell_conversion.h"
#include "korvel/grid/member_reads.h"

#include <utility>

namespace korvel::internal {

std::optional<MemberContent> MemberContent::Read(AttributeTree& tree, IMemberDispatch& disp,
                                                 const std::string& name, const CVariantValue& value,
                                                 const LossWatch& rows) {
    std::optional<MemberContent> content(std::in_place);
    content->cell = ReadCell(tree, disp, name, value, rows);
    if (rows)
        content->isEditable = ReadMemberEditable(disp, name);
    if (rows)
        content->service = ReadService(value);
    if (!rows)
        content.reset();
    return content;
}

CellContent MemberContent::ReadCell(AttributeTree& tree, IMemberDispatch& disp, const std::string& name,
                                    const CVariantValue& value, const LossWatch& rows) {
    return ReadOr(
        CellContent(),
        [&] {
            CellContent shown;
            tree.ConvertToOutput(&disp, name, value, shown.text, shown.control);
            if (rows)
                UnescapeDashes(value, shown.text);
            if (CItemInfo::IsSwatch(shown.control))
                shown.color = value.Value.UInt;
            return shown;
        });
}

FormatService MemberContent::ReadService(const CVariantValue& value) {
    return ReadOr(
        FormatService::None, [&] { return FormatServiceOf(value); });
}

} // namespace korvel::internal

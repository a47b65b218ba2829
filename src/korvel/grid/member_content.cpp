#include "korvel/grid/member_content.h"

#include "korvel/grid/cell_conversion.h"
#include "korvel/grid/member_reads.h"

#include <utility>

namespace korvel::internal {

std::optional<MemberContent> MemberContent::Read(AttributeTree& tree, IMemberDispatch& disp,
                                                 const std::string& name, const CVariantValue& value,
                                                 const LossWatch& rows) {
    MemberContent content;
    content.cell = ReadCell(tree, disp, name, value, rows);
    if (rows)
        content.isEditable = ReadMemberEditable(disp, name);
    if (rows)
        content.service = ReadService(value);
    if (!rows)
        return std::nullopt;
    return content;
}

CellContent MemberContent::ReadCell(AttributeTree& tree, IMemberDispatch& disp, const std::string& name,
                                    const CVariantValue& value, const LossWatch& rows) {
    return ReadOr(
        CellContent(),
        [&] {
            CellContent cell;
            tree.ConvertToOutput(&disp, name, value, cell.text, cell.control);
            if (rows)
                UnescapeDashes(value, cell.text);
            if (CItemInfo::IsSwatch(cell.control))
                cell.color = value.Value.UInt;
            return cell;
        });
}

FormatService MemberContent::ReadService(const CVariantValue& value) {
    return ReadOr(
        FormatService::None, [&] { return FormatServiceOf(value); });
}

} // namespace korvel::internal

#pragma once

#include "korvel/grid/attribute_tree.h"
#include "korvel/grid/cell_content.h"
#include "korvel/output/format_notification.h"
#include "korvel/window/base/loss_watch.h"

#include <optional>
#include <string>

namespace korvel::internal {

/// What is shown of a member.
struct MemberContent {
    CellContent cell;
    bool isEditable = false;
    FormatService service = FormatService::None; // whose change of format puts the text out of date

    /// Asks the tree and the object; no value when `rows` were lost meanwhile.
    static std::optional<MemberContent> Read(AttributeTree& tree, IMemberDispatch& disp,
                                             const std::string& name, const CVariantValue& value,
                                             const LossWatch& rows);
    /// The empty cell for a value that throws when it is converted.
    static CellContent ReadCell(AttributeTree& tree, IMemberDispatch& disp, const std::string& name,
                                const CVariantValue& value, const LossWatch& rows);
    /// None for a value that throws.
    static FormatService ReadService(const CVariantValue& value);
};

} // namespace korvel::internal

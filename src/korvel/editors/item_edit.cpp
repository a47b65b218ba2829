#include "korvel/editors/item_edit.h"

#include "korvel/editors/choose_color.h"
#include "korvel/editors/dice.h"
#include "korvel/editors/item_cell.h"
#include "korvel/platform/error.h"
#include "korvel/values/file_value.h"
#include "korvel/values/refusal_text.h"

#include <chrono>

namespace korvel::internal {

namespace {

std::optional<CVariantValue> UnlessEqual(const CVariantValue& edited, const CVariantValue& value) {
    return edited == value ? std::nullopt : std::optional(edited);
}

} // namespace

std::optional<CVariantValue> EditAtOnce(const CVariantValue& value, CWnd* parent) {
    CVariantValue edited = value;
    switch (ItemEditorOf(value)) {
    case ItemEditor::Flag:
        edited.Value.Bool = !value.Value.Bool;
        break;
    case ItemEditor::Color:
        edited = ChooseColor(value, parent).value_or(value);
        break;
    case ItemEditor::File: {
        const char* path = value.EnumContext->Choose(value.Text.c_str(), parent);
        edited.Text = path ? path : "";
        break;
    }
    default:
        break;
    }
    return UnlessEqual(edited, value);
}

std::optional<CVariantValue> Roll(const CVariantValue& value) {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(now).count();
    CVariantValue rolled = value;
    rolled.Type = DT_RandomUInt; // kept: also for a value that was signed
    rolled.Value.UInt = RollDice(static_cast<std::uint32_t>(seconds));
    if (rolled.Value.UInt == value.Value.UInt)
        return std::nullopt;
    return rolled;
}

void EndField(CGridCtrlEdit& field, EDataTyps type) {
    const std::string typed = field.GetWindowTextA();
    try {
        field.End(true);
    } catch (const std::exception& failure) {
        if (*failure.what() != '\0')
            throw;
        throw Error(RefusalText({}, typed, type));
    }
}

} // namespace korvel::internal

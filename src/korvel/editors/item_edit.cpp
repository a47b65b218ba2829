#include "korvel/editors/item_edit.h"

#include "korvel/editors/choose_color.h"
#include "korvel/editors/choose_file.h"
#include "korvel/editors/item_cell.h"
#include "korvel/platform/error.h"
#include "korvel/values/refusal_text.h"

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
    case ItemEditor::File:
        edited = ChooseFile(value, parent).value_or(value);
        break;
    default:
        break;
    }
    return UnlessEqual(edited, value);
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

#include "korvel/editors/choose_file.h"

#include "korvel/values/file_value.h"

namespace korvel::internal {

std::optional<CVariantValue> ChooseFile(const CVariantValue& path, CWnd* parent) {
    const char* chosen = path.EnumContext ? path.EnumContext->Choose(path.Text.c_str(), parent) : nullptr;
    if (!chosen)
        return std::nullopt;
    CVariantValue value = path;
    value.Type = DT_FileName;
    value.Text = chosen;
    return value;
}

} // namespace korvel::internal

#include "korvel/editors/choose_color.h"

#include "korvel/editors/color_aplha_dlg.h"
#include "korvel/editors/color_dialog.h"

namespace korvel::internal {

namespace {

constexpr COLORREF Opaque = 0xFF000000;

std::optional<COLORREF> ChooseWord(const CVariantValue& color, CWnd* parent) {
    const COLORREF word = color.Value.UInt;
    if (color.Type == DT_ColorARGB) {
        CColorAplhaDlg dialog(word, parent);
        return dialog.DoModal() == IDOK ? std::optional(dialog.GetColorWord()) : std::nullopt;
    }
    CColorDialog dialog(word, 0, parent);
    return dialog.DoModal() == IDOK ? std::optional(dialog.GetColor() | Opaque) : std::nullopt;
}

} // namespace

std::optional<CVariantValue> ChooseColor(const CVariantValue& color, CWnd* parent) {
    const auto word = ChooseWord(color, parent);
    if (!word)
        return std::nullopt;
    CVariantValue chosen = color;
    chosen.Value.UInt = *word;
    return chosen;
}

} // namespace korvel::internal

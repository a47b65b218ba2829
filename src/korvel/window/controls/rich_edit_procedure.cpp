#include "korvel/window/controls/edit_procedure.h"
#include "korvel/window/controls/edit_text.h"
#include "korvel/window/controls/rich_edit_ctrl.h"
#include "korvel/window/core/window_class.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace korvel::internal {

namespace {

constexpr int DefaultRichLimit = 32767;
constexpr LPARAM LimitForZero = 0x10000;

class RichEditState : public EditState {
public:
    explicit RichEditState(WindowRecord& window) : EditState(window) { limit = DefaultRichLimit; }

    bool Tells(UINT notice) const override {
        return (eventMask & (notice == EN_CHANGE ? ENM_CHANGE : ENM_UPDATE)) != 0;
    }

    UINT eventMask = ENM_NONE;
};

LRESULT SetRichText(const RichEditState& edit, WPARAM wParam, LPARAM lParam) {
    const HWND window = edit.record.handle;
    const LRESULT result = EditProcedure(window, WM_SETTEXT, wParam, lParam);
    for (const UINT notice : {EN_UPDATE, EN_CHANGE})
        if (edit.HasStyle(ES_MULTILINE) && edit.Tells(notice))
            NotifyParentCommand(window, notice);
    return result;
}

LRESULT SelectRange(RichEditState& edit, LPARAM range) {
    if (const auto* wanted = reinterpret_cast<const CHARRANGE*>(range))
        Select(edit, wanted->cpMin, wanted->cpMax);
    return SelectionOf(edit).end;
}

LRESULT CopyRange(const RichEditState& edit, LPARAM range) {
    const TextRange selection = SelectionOf(edit);
    if (range)
        *reinterpret_cast<CHARRANGE*>(range) = {selection.start, selection.end};
    return 0;
}

std::optional<LRESULT> HandleMessage(RichEditState& edit, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case EM_SETEVENTMASK:
        return std::exchange(edit.eventMask, static_cast<UINT>(lParam));
    case EM_GETEVENTMASK:
        return edit.eventMask;
    case EM_EXSETSEL:
        return SelectRange(edit, lParam);
    case EM_EXGETSEL:
        return CopyRange(edit, lParam);
    case EM_EXLIMITTEXT:
        lParam = lParam == 0 ? LimitForZero : std::clamp<LPARAM>(lParam, 1, NoTextLimit);
        return SendMessageA(edit.record.handle, EM_LIMITTEXT, static_cast<WPARAM>(lParam), 0);
    case WM_SETTEXT:
        return SetRichText(edit, wParam, lParam);
    default:
        return std::nullopt;
    }
}

LRESULT RichEditProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const ControlOf<RichEditState> edit(window);
    const auto answer = edit ? HandleMessage(*edit, message, wParam, lParam) : std::nullopt;
    return answer ? *answer : EditProcedure(window, message, wParam, lParam);
}

template <class... Names>
bool Register(Names... names) {
    return (RegisterControlClass<RichEditState>(names, RichEditProcedure) && ...);
}

[[maybe_unused]] const bool Registered = Register("RICHEDIT50W", "RichEdit20W", "RichEdit20A");

} // namespace

} // namespace korvel::internal

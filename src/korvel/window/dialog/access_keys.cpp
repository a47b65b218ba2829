#include "korvel/window/dialog/access_keys.h"

#include "korvel/platform/code_page.h"
#include "korvel/window/base/access_mark.h"
#include "korvel/window/core/dialog_controls.h"
#include "korvel/window/core/window.h"
#include "korvel/window/dialog/dialog_focus.h"
#include "korvel/window/dialog/dialog_state.h"

#include <algorithm>

namespace korvel::internal {
namespace {

void CollectReachable(HWND dialog, std::vector<HWND>& controls) {
    const RecordRef record = Find(dialog);
    if (!record)
        return;
    for (const HWND child : record->children) {
        const RecordRef childRecord = Find(child);
        if (!childRecord || !childRecord->IsShown() || !childRecord->IsSwitchedOn())
            continue;
        controls.push_back(child);
        if (childRecord->exStyle & WS_EX_CONTROLPARENT)
            CollectReachable(child, controls);
    }
}

bool HasAccessKey(HWND control, const CString& key) {
    const LRESULT code = DialogCodeOf(control);
    const bool isLabel = (code & DLGC_STATIC) != 0;
    const bool isPlain =
        isLabel && !(code & DLGC_BUTTON) && (GetWindowLongPtrA(control, GWL_STYLE) & SS_NOPREFIX);
    return (isLabel || (code & DLGC_BUTTON)) && !isPlain && AccessKeyOf(GetWindowTextA(control)) == key;
}

void Activate(HWND dialog, HWND control, bool isOnlyOne) {
    if (DialogCodeOf(control) & DLGC_STATIC) {
        if (const HWND next = GetNextDlgTabItem(dialog, control, false))
            FocusControl(next);
        return;
    }
    FocusControl(control);
    if (isOnlyOne)
        SendMessageA(control, BM_CLICK, 0, 0);
}

} // namespace

bool PressAccessKey(HWND dialog, const CString& character) {
    std::vector<HWND> controls;
    CollectReachable(dialog, controls);
    const auto focus = std::ranges::find(controls, GetFocus());
    if (focus != controls.end())
        std::rotate(controls.begin(), focus + 1, controls.end());
    const CString folded = platform::FoldCase(character);
    std::erase_if(controls, [&](HWND control) { return !HasAccessKey(control, folded); });
    if (controls.empty())
        return false;
    Activate(dialog, controls.front(), controls.size() == 1);
    return true;
}

} // namespace korvel::internal

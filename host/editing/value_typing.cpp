#include "editing/value_typing.h"

#include "korvel/editors/grid_ctrl_date_time.h"
#include "korvel/editors/grid_ctrl_edit.h"
#include "korvel/platform/code_page.h"
#include "korvel/platform/error.h"
#include "korvel/values/enum_value.h"
#include "korvel/window/core/input.h"
#include "korvel/window/display/headless_display.h"
#include "landxml/value_reading.h"
#include "texts/messages.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <optional>
#include <string_view>

namespace korvel::inspector {

namespace {

constexpr const char* NoDate = "GDT_NONE";

[[noreturn]] void Refuse(const Message& reason) {
    throw Error(platform::FromUtf8(Say(reason)).text);
}

std::string Quoted(const std::string& libraryText) {
    return InQuotes(platform::ToUtf8(libraryText));
}

void Press(UINT key, const std::string& characters = {}) {
    if (const HWND window = GetFocus()) {
        input::Key(window, WM_KEYDOWN, key, characters);
        input::Key(window, WM_KEYUP, key, {});
    }
}

// Without the codes of keys, which depend on a keyboard: a field takes the characters.
void TypeCharacters(const std::string& text) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = platform::CharacterAt(text, at).length;
        Press(0, text.substr(at, length));
        at += length;
    }
}

// Opens the cell, whose control is of this class.
template <typename Control>
Control& OpenCell() {
    Press(VK_F2);
    auto* control = dynamic_cast<Control*>(CWnd::FromHandlePermanent(GetFocus()));
    if (!control)
        Refuse("the value cannot be edited");
    return *control;
}

void TypeText(const std::string& text) {
    OpenCell<CGridCtrlEdit>().SetSel(0, -1);
    if (text.empty())
        Press(VK_DELETE);
    TypeCharacters(text);
    Press(VK_RETURN, "\r");
}

void ChooseDate(const std::string& text) {
    double moment = std::numeric_limits<double>::quiet_NaN();
    if (!text.empty()) {
        const TypedValue date = ReadValue({Meaning::Date}, {platform::ToUtf8(text)}, {UnitSet()});
        constexpr std::size_t PlainLength = std::string_view("2026-03-04").size();
        if (date.value.Type != DT_Date || text.size() != PlainLength)
            Refuse({"%1 is no date, which is written like 2026-03-04", {Quoted(text)}});
        moment = date.value.Value.Double;
    }
    input::Value(OpenCell<CGridCtrlDateTime>().m_hWnd, moment);
    Press(VK_RETURN, "\r");
}

void ChooseColor(const std::string& text) {
    const TypedValue color = ReadValue({Meaning::Color}, {platform::ToUtf8(text)}, {UnitSet()});
    auto* display = dynamic_cast<HeadlessDisplay*>(&Display());
    if (color.value.Type != DT_ColorRGB || !display)
        Refuse({"%1 is no color, which is written like 75,75,0", {Quoted(text)}});
    display->AnswerNextColor(color.value.Value.UInt);
    Press(VK_F2);
}

void ToggleTo(const std::string& text, bool isOn) {
    if (text != "true" && text != "false")
        Refuse({"%1 is neither true nor false", {Quoted(text)}});
    if (isOn != (text == "true"))
        Press(VK_SPACE, " ");
}

// How many entries come before the one of that name; nothing without one.
std::optional<int> PlaceOfEntry(IEnumValue& entries, const std::string& text) {
    int place = 0;
    for (auto position = entries.GetFirstPosition(); position; ++place) {
        CVariantValue name;
        if (entries.GetName(entries.GetNext(position), name) && name.ToText() == text)
            return place;
    }
    return std::nullopt;
}

void ChooseEntry(const CVariantValue& value, const std::string& text) {
    const std::optional<int> place = value.EnumValue ? PlaceOfEntry(*value.EnumValue, text) : std::nullopt;
    if (!place)
        Refuse({"%1 is none of the list", {Quoted(text)}});
    input::Key(GetFocus(), WM_SYSKEYDOWN, VK_DOWN, {});
    Press(VK_HOME);
    for (int step = 0; step < *place; ++step)
        Press(VK_DOWN);
    Press(VK_RETURN, "\r");
}

} // namespace

void TypeValue(GridPane& pane, const std::string& text) {
    const auto isControl = [](char c) { return (c >= 0 && c < ' ') || c == 0x7F; };
    if (std::any_of(text.begin(), text.end(), isControl))
        Refuse("control characters cannot be typed"); // they are keys
    IMemberDispatch* object = pane.SelectedObject();
    const std::string name = pane.SelectedName();
    CVariantValue before;
    if (!object || !object->IsMemberEditable(name) || !object->GetMember(name, before))
        Refuse("the value cannot be edited");
    std::string failure;
    pane.SetFailureHook([&](const std::string& message) { failure = message; });
    const std::unique_ptr<GridPane, void (*)(GridPane*)> end(
        &pane, [](GridPane* hooked) { hooked->SetFailureHook({}); });
    pane.SetFocus();
    if (before.Type == DT_Bool)
        ToggleTo(text, before.Value.Bool);
    else if (before.Type & TypeBitList)
        ChooseEntry(before, text);
    else if (before.Type == DT_Date)
        ChooseDate(text);
    else if (before.Type == DT_ColorRGB)
        ChooseColor(text);
    else
        TypeText(text);
    if (!failure.empty())
        throw Error(failure);
    if ((before.Type & TypeBitList) && pane.SelectedText() != text)
        Refuse({"%1 is none of the list", {Quoted(text)}});
    CVariantValue after;
    const bool hasNoDate = before.Type == DT_Date && text.empty();
    if (hasNoDate && (!object->GetMember(name, after) || after.Type != DT_Date || after.Text != NoDate))
        Refuse("the value cannot be edited");
}

} // namespace korvel::inspector

#include "korvel/window/controls/edit_keyboard.h"

#include "korvel/platform/code_page.h"
#include "korvel/window/core/display.h"

#include <algorithm>
#include <optional>

namespace korvel::internal {

namespace {

constexpr char Backspace = '\b';
constexpr char Return = '\r';
constexpr unsigned char FirstPrintable = ' ';
constexpr unsigned char DeleteCharacter = 0x7F;

enum class Direction { Back = -1, Forward = 1 };

// Letters of code page 1252 begin at 0xC0; a character outside the page counts as one.
bool IsWordCharacter(const CString& text, int place) {
    const auto at = static_cast<std::size_t>(place);
    const auto byte = static_cast<unsigned char>(text[at]);
    if (platform::CharacterAt(text, at).length > 1)
        return true;
    const bool isLetter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte >= 0xC0;
    return isLetter || (byte >= '0' && byte <= '9') || byte == '_';
}

int Next(const CString& text, int place) {
    return static_cast<int>(platform::NextCharacter(text, static_cast<std::size_t>(place)));
}

int Previous(const CString& text, int place) {
    return static_cast<int>(platform::PreviousCharacter(text, static_cast<std::size_t>(place)));
}

int LineStart(const CString& text, int place) {
    const auto end = text.rfind('\n', static_cast<std::size_t>(std::max(place - 1, 0)));
    return place == 0 || end == CString::npos ? 0 : static_cast<int>(end) + 1;
}

int LineEnd(const CString& text, int place) {
    return static_cast<int>(
        std::min(text.find_first_of("\r\n", static_cast<std::size_t>(place)), text.size()));
}

// A line break of two bytes is one step.
int Step(const CString& text, int place, Direction direction) {
    const auto step = direction == Direction::Back ? Previous : Next;
    const int next = step(text, place);
    const bool isInBreak =
        next > 0 && next < static_cast<int>(text.size()) && text[next - 1] == '\r' && text[next] == '\n';
    return isInBreak ? step(text, next) : next;
}

int WordStep(const CString& text, int place, Direction direction) {
    const int last = static_cast<int>(text.size());
    const auto isWord = [&](int at) { return IsWordCharacter(text, at); };
    if (direction == Direction::Back) {
        while (place > 0 && !isWord(Previous(text, place)))
            place = Previous(text, place);
        while (place > 0 && isWord(Previous(text, place)))
            place = Previous(text, place);
    } else {
        while (place < last && isWord(place))
            place = Next(text, place);
        while (place < last && !isWord(place))
            place = Next(text, place);
    }
    return place;
}

// The place after as many characters of the line above or below.
int LineStep(const CString& text, int place, Direction direction) {
    const int start = LineStart(text, place);
    if (direction == Direction::Back && start == 0)
        return place;
    const auto feed = text.find('\n', static_cast<std::size_t>(place));
    if (direction == Direction::Forward && feed == CString::npos)
        return place;
    const int target = direction == Direction::Back ? LineStart(text, start - 1) : static_cast<int>(feed) + 1;
    const int end = LineEnd(text, target);
    int at = target;
    for (int passed = start; passed < place && at < end; passed = Next(text, passed))
        at = Next(text, at);
    return at;
}

std::optional<int> TargetOf(const EditState& edit, UINT key) {
    const CString& text = edit.record.text;
    const int place = BorderAt(edit, edit.caret);
    const auto step = IsKeyDown(VK_CONTROL) ? WordStep : Step;
    switch (key) {
    case VK_LEFT:
        return step(text, place, Direction::Back);
    case VK_RIGHT:
        return step(text, place, Direction::Forward);
    case VK_UP:
        return LineStep(text, place, Direction::Back);
    case VK_DOWN:
        return LineStep(text, place, Direction::Forward);
    case VK_HOME:
        return IsKeyDown(VK_CONTROL) ? 0 : LineStart(text, place);
    case VK_END:
        return IsKeyDown(VK_CONTROL) ? LengthOf(edit) : LineEnd(text, place);
    default:
        return std::nullopt;
    }
}

// What Ctrl with a letter asks the field for; a message, so that a procedure can drop it.
UINT MessageOf(UINT key) {
    switch (key) {
    case 'C':
        return WM_COPY;
    case 'X':
        return WM_CUT;
    case 'V':
        return WM_PASTE;
    case 'Z':
        return WM_UNDO;
    default:
        return 0;
    }
}

int PlaceAt(const EditState& edit, CPoint point) {
    const CString& text = edit.record.text;
    int low = 0;
    int high = LengthOf(edit);
    while (low < high) {
        const int middle = (low + high + 1) / 2;
        const auto border = platform::CharacterBorder(text, static_cast<std::size_t>(middle));
        if (edit.leftMargin + Display().TextWidth(text.substr(0, border)) <= point.x)
            low = middle;
        else
            high = middle - 1;
    }
    return static_cast<int>(platform::CharacterBorder(text, static_cast<std::size_t>(low)));
}

// Empty for a character that types nothing.
CString TextOfCharacter(const EditState& edit, const CString& character) {
    const auto byte = static_cast<unsigned char>(character.front());
    if (character.front() == Return && edit.HasStyle(ES_MULTILINE))
        return "\r\n";
    return byte >= FirstPrintable && byte != DeleteCharacter ? character : CString();
}

} // namespace

bool PressKey(EditState& edit, UINT key) {
    const bool withControl = IsKeyDown(VK_CONTROL);
    const UINT message = withControl ? MessageOf(key) : 0;
    const auto target = TargetOf(edit, key);
    if (withControl && key == 'A') {
        Select(edit, 0, -1);
    } else if (message != 0) {
        SendMessageA(edit.record.handle, message, 0, 0);
    } else if (key == VK_DELETE) {
        const int place = SelectionOf(edit).end;
        EraseByUser(edit, {place, Step(edit.record.text, place, Direction::Forward)});
    } else if (target) {
        Select(edit, IsKeyDown(VK_SHIFT) ? edit.anchor : *target, *target);
    } else {
        return false;
    }
    return true;
}

bool IsUndoKey(UINT key) {
    return key == 'Z' && IsKeyDown(VK_CONTROL) && !IsKeyDown(VK_SHIFT) && !IsKeyDown(VK_MENU);
}

CString TextOfCharacters(const EditState& edit, const CString& characters) {
    CString text;
    for (std::size_t at = 0; at < characters.size();) {
        const std::size_t next = platform::NextCharacter(characters, at);
        text += TextOfCharacter(edit, characters.substr(at, next - at));
        at = next;
    }
    return text;
}

bool TypeCharacter(EditState& edit, const CString& character) {
    const CString text = TextOfCharacter(edit, character);
    if (character.front() == Backspace) {
        const int place = SelectionOf(edit).start;
        EraseByUser(edit, {Step(edit.record.text, place, Direction::Back), place});
    } else if (!text.empty()) {
        TypeText(edit, text);
    } else {
        return false;
    }
    return true;
}

void PressMouse(EditState& edit, CPoint point, bool extend) {
    const int place = PlaceAt(edit, point);
    Select(edit, extend ? edit.anchor : place, place);
}

void DragMouse(EditState& edit, CPoint point) {
    Select(edit, edit.anchor, PlaceAt(edit, point));
}

void SelectWordAt(EditState& edit, CPoint point) {
    const CString& text = edit.record.text;
    int start = PlaceAt(edit, point);
    int end = start;
    while (start > 0 && IsWordCharacter(text, Previous(text, start)))
        start = Previous(text, start);
    while (end < LengthOf(edit) && IsWordCharacter(text, end))
        end = Next(text, end);
    Select(edit, start, end);
}

} // namespace korvel::internal

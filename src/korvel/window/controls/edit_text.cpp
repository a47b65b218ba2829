#include "korvel/window/controls/edit_text.h"

#include "korvel/platform/code_page.h"
#include "korvel/window/core/display.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_changes.h"

#include <algorithm>
#include <utility>

namespace korvel::internal {

namespace {

void Tell(const EditState& edit, UINT notice) {
    if (edit.Tells(notice))
        NotifyParentCommand(edit.record.handle, notice);
}

void TellChange(const EditState& edit) {
    Tell(edit, EN_UPDATE);
    Tell(edit, EN_CHANGE);
}

// EN_CHANGE a second time, as in the window model.
void TellUndone(const EditState& edit) {
    Tell(edit, EN_CHANGE);
}

void PutText(EditState& edit, CString text, int anchor, int caret) {
    edit.record.text = std::move(text);
    edit.anchor = anchor;
    edit.caret = caret;
    edit.isModified = true;
    TellDisplay(edit.record, Aspect::Text | Aspect::State);
    TellChange(edit);
}

EditUndo Remember(const EditState& edit) {
    return {edit.record.text, edit.anchor, edit.caret, true, false};
}

CString Allowed(const EditState& edit, CString text) {
    if (edit.HasStyle(ES_NUMBER))
        std::erase_if(text, [](char character) { return character < '0' || character > '9'; });
    if (!edit.HasStyle(ES_MULTILINE))
        text.resize(std::min(text.find_first_of("\r\n"), text.size()));
    return text;
}

// The bytes that the limit leaves in place of a part of the text.
std::size_t RoomFor(const EditState& edit, TextRange range) {
    const int kept = LengthOf(edit) - (range.end - range.start);
    return static_cast<std::size_t>(std::max(edit.limit - kept, 0));
}

// Cuts before a character or a line break rather than inside it.
void CutAt(CString& text, std::size_t length) {
    if (length >= text.size())
        return;
    length = platform::CharacterBorder(text, length);
    const bool cutsBreak = length > 0 && text[length - 1] == '\r' && text[length] == '\n';
    text.resize(cutsBreak ? length - 1 : length);
}

CString CutToRoom(EditState& edit, CString text) {
    if (text.size() <= RoomFor(edit, SelectionOf(edit)))
        return text;
    NotifyParentCommand(edit.record.handle, EN_MAXTEXT);
    CutAt(text, RoomFor(edit, SelectionOf(edit))); // a handler may have made room
    return text;
}

void Replace(EditState& edit, TextRange range, const CString& text) {
    CString whole = edit.record.text;
    whole.replace(static_cast<std::size_t>(range.start), static_cast<std::size_t>(range.end - range.start),
                  text);
    const int caret = range.start + static_cast<int>(text.size());
    PutText(edit, std::move(whole), caret, caret);
}

struct TextChange {
    TextRange replaced;
    CString inserted;
};

bool IsBorder(const CString& text, std::size_t place) {
    return platform::CharacterBorder(text, place) == place;
}

// The smallest replacement, in whole characters, that turns `before` into `after`. Where several would do
// ("a" to "aa"), the one that ends at the caret.
TextChange ChangeOf(const CString& before, const CString& after, int caret) {
    const auto caretByte = std::min(static_cast<std::size_t>(std::max(caret, 0)), after.size());
    const auto bytesAfterCaret = after.size() - caretByte;
    std::size_t kept = 0; // at the end
    while (kept < std::min(before.size(), bytesAfterCaret) &&
           before[before.size() - 1 - kept] == after[after.size() - 1 - kept])
        ++kept;
    std::size_t start = 0;
    while (start < std::min(before.size(), after.size()) - kept && before[start] == after[start])
        ++start;
    while (!IsBorder(before, start) || !IsBorder(after, start))
        --start;
    while (!IsBorder(before, before.size() - kept) || !IsBorder(after, after.size() - kept))
        --kept;
    return {{static_cast<int>(start), static_cast<int>(before.size() - kept)},
            after.substr(start, after.size() - kept - start)};
}

} // namespace

view::EditView EditState::Edit() const {
    const TextRange selection = SelectionOf(*this);
    return {selection.start, selection.end, HasStyle(ES_READONLY), undo.isKnown, leftMargin, rightMargin};
}

// The native widget has the text already, and an undo of its own. It knows no limit: when the text is too
// long, the change is made again by the window, as far as it fits.
void EditState::Edited(const CString& text, int selectionStart, int selectionEnd) {
    if (text == record.text) {
        undo.isTyping = undo.isTyping && anchor == selectionStart && caret == selectionEnd;
        anchor = selectionStart;
        caret = selectionEnd;
        return;
    }
    const bool isUndone = std::exchange(isUndoLeft, false);
    const TextChange change = ChangeOf(record.text, text, selectionEnd);
    if (!isUndone && change.inserted.size() > RoomFor(*this, change.replaced)) {
        anchor = change.replaced.start;
        caret = change.replaced.end;
        return ReplaceSelection(*this, change.inserted, TextOrigin::User);
    }
    const bool isTyping = !isUndone && change.replaced.IsEmpty() &&
                          platform::NextCharacter(change.inserted, 0) == change.inserted.size();
    if (!isTyping || !undo.isTyping)
        undo = Remember(*this);
    undo.isTyping = isTyping;
    record.text = text;
    anchor = selectionStart;
    caret = selectionEnd;
    isModified = true;
    TellChange(*this);
    if (isUndone)
        TellUndone(*this);
}

int LengthOf(const EditState& edit) {
    return static_cast<int>(edit.record.text.size());
}

int BorderAt(const EditState& edit, int place) {
    const auto at = static_cast<std::size_t>(std::clamp(place, 0, LengthOf(edit)));
    return static_cast<int>(platform::CharacterBorder(edit.record.text, at));
}

TextRange SelectionOf(const EditState& edit) {
    const int anchor = BorderAt(edit, edit.anchor);
    const int caret = BorderAt(edit, edit.caret);
    return {std::min(anchor, caret), std::max(anchor, caret)};
}

void Select(EditState& edit, int start, int end) {
    if (start < 0)
        start = end = SelectionOf(edit).end;
    edit.anchor = BorderAt(edit, start);
    edit.caret = end < 0 ? LengthOf(edit) : BorderAt(edit, end);
    edit.undo.isTyping = false;
    TellDisplay(edit.record, Aspect::State);
}

void ReplaceSelection(EditState& edit, CString text, TextOrigin origin) {
    const bool isErasure = text.empty();
    if (origin == TextOrigin::User) {
        if (edit.HasStyle(ES_READONLY))
            return;
        text = Allowed(edit, std::move(text));
    }
    text = CutToRoom(edit, std::move(text));
    const TextRange selection = SelectionOf(edit);
    if (text.empty() && (!isErasure || selection.IsEmpty()))
        return;
    edit.undo = Remember(edit);
    Replace(edit, selection, text);
}

bool HasRoomFor(const EditState& edit, const CString& text) {
    return edit.HasStyle(ES_READONLY) || Allowed(edit, text).size() <= RoomFor(edit, SelectionOf(edit));
}

void TypeText(EditState& edit, const CString& text) {
    if (edit.HasStyle(ES_READONLY))
        return;
    const CString typed = CutToRoom(edit, Allowed(edit, text));
    if (typed.empty())
        return;
    if (!edit.undo.isTyping || !SelectionOf(edit).IsEmpty())
        edit.undo = Remember(edit);
    edit.undo.isTyping = true;
    Replace(edit, SelectionOf(edit), typed);
}

void EraseByUser(EditState& edit, TextRange range) {
    const TextRange selection = SelectionOf(edit);
    const TextRange erased = selection.IsEmpty() ? range : selection;
    if (edit.HasStyle(ES_READONLY) || erased.IsEmpty())
        return;
    edit.undo = Remember(edit);
    Replace(edit, erased, {});
}

LRESULT SetText(EditState& edit, WPARAM wParam, LPARAM lParam) {
    const HWND window = edit.record.handle;
    edit.anchor = edit.caret = 0;
    edit.undo = {};
    edit.isModified = false;
    const LRESULT result = DefWindowProcA(window, WM_SETTEXT, wParam, lParam);
    if (!edit.HasStyle(ES_MULTILINE))
        TellChange(edit);
    return result;
}

bool Undo(EditState& edit) {
    if (!edit.undo.isKnown)
        return false;
    const EditUndo back = std::exchange(edit.undo, Remember(edit)); // undone twice: as before
    PutText(edit, back.text, back.anchor, back.caret);
    TellUndone(edit);
    return true;
}

bool Copy(const EditState& edit) {
    const TextRange selection = SelectionOf(edit);
    if (selection.IsEmpty() || edit.HasStyle(ES_PASSWORD))
        return false;
    const CString text = edit.record.text.substr(static_cast<std::size_t>(selection.start),
                                                 static_cast<std::size_t>(selection.end - selection.start));
    return Display().SetClipboardText(text).IsSet();
}

void Cut(EditState& edit) {
    if (Copy(edit)) // a text that is nowhere else stays
        EraseByUser(edit, {});
}

void Paste(EditState& edit) {
    if (const auto text = Display().ClipboardText(); text && !text->empty())
        ReplaceSelection(edit, *text, TextOrigin::User);
}

} // namespace korvel::internal

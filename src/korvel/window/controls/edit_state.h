#pragma once

#include "korvel/window/core/window.h"
#include "korvel/window/core/window_record.h"

namespace korvel::internal {

/// What one undo brings back.
struct EditUndo {
    CString text;
    int anchor = 0;
    int caret = 0;
    bool isKnown = false;
    bool isTyping = false; // characters typed one after the other are undone together
};

/// The numbers of the window model: what a new field takes at most, and what means no limit.
inline constexpr int DefaultTextLimit = 30000;
inline constexpr int NoTextLimit = 0x7FFFFFFE;

/// The state of a text field; its text is the window's. Places are bytes of the text.
class EditState : public ControlState {
public:
    explicit EditState(WindowRecord& window) : record(window) {}

    view::Kind Kind() const override { return view::Kind::Edit; }
    view::EditView Edit() const override;
    void Edited(const CString& text, int selectionStart, int selectionEnd) override;

    /// Whether the parent wants to hear EN_CHANGE or EN_UPDATE.
    virtual bool Tells(UINT /*notice*/) const { return true; }
    bool HasStyle(UINT bits) const { return (record.style & bits) != 0; }

    WindowRecord& record;
    int anchor = 0; // where the selection began
    int caret = 0;  // where it ends and where typing goes on
    int limit = DefaultTextLimit;
    int leftMargin = 0;
    int rightMargin = 0;
    bool isModified = false;
    EditUndo undo;
    bool isUndoLeft = false; // Ctrl+Z is left to the native widget, whose next change is no typing
};

} // namespace korvel::internal

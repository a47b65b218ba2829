#pragma once

#include "korvel/window/base/control_view.h"
#include "korvel/window/base/types.h"

namespace korvel::internal {

/// The state of a control beyond its window: rows and columns, selection, check. Made by the class at
/// creation, freed with the record. What a display reads and reports about it passes here, so that a new
/// kind of control is one class and one line of registration (core/window_class.h).
class ControlState {
public:
    virtual ~ControlState() = default;

    virtual view::Kind Kind() const { return view::Kind::Painted; }
    virtual view::EditView Edit() const { return {}; }
    virtual view::ScrollView Scroll() const { return {}; }
    virtual view::ButtonView Button() const { return {}; }
    virtual view::RangeView Range() const { return {}; }
    virtual view::ChoiceView Choice() const { return {}; }
    virtual CString ChoiceText(int /*index*/) const { return {}; }
    virtual view::DateView Date() const { return {}; }
    /// What a display shows while the pointer rests at a client point; empty: nothing.
    virtual CString Tip(CPoint /*point*/) { return {}; }
    /// What scroll bars take from the client area on each side, of a window that has that size inside its
    /// border.
    virtual CRect ClientInsets(CSize /*insideBorder*/) const { return {}; }

    /// What the user did in a native widget (see window/core/input.h). Called for enabled windows only.
    virtual void Edited(const CString&, int /*selectionStart*/, int /*selectionEnd*/) {}
    virtual void Value(double) {}
    virtual void Stepped(UINT /*code*/) {}
    virtual void Scrolled(int /*x*/, int /*row*/) {}
    virtual void Dropped(bool /*isOpen*/) {}

    /// A display begins to paint the window: what changes from now on needs another paint.
    virtual void PaintBegins() {}
};

} // namespace korvel::internal

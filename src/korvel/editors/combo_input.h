#pragma once

#include "korvel/editors/combo_preview.h"
#include "korvel/editors/combo_view.h"
#include "korvel/editors/combo_write_back.h"
#include "korvel/window/list/type_ahead.h"

#include <memory>
#include <optional>

namespace korvel {
class IGridCtrlComboBoxInputState;
}

namespace korvel::internal {

/// What the user does in a list: hands mouse and keys to the state that gives them their meaning, finds rows
/// by typed letters, and shows the pictures of entries.
class ComboInput {
public:
    ComboInput(ComboView& view, const ComboWriteBack& writeBack);

    /// Makes the state that the enumeration asks for; none for no such mode, which then takes no events.
    void Begin();
    /// The rows are gone.
    void End();
    /// Null between End and Begin. Whoever calls it holds it: the host may end the binding meanwhile.
    std::shared_ptr<IGridCtrlComboBoxInputState> State() const { return m_state; }

    /// -1: none.
    int CurrentRow() const;
    /// Selects the row and brings it into view; for no such row, none is current.
    void SetCurrentRow(int row);
    /// The user chose a row without pressing it: as with an arrow key that leads there. False for no such row.
    bool Choose(int row);

    /// The result of a message of the user, or none for other messages.
    std::optional<LRESULT> Handle(UINT message, WPARAM wParam, LPARAM lParam);

    bool IsPreviewShown() const { return m_preview.IsShown(); }
    void DismissPreview();
    /// The picture is hidden now if it was dismissed while the value was written back.
    void OnWrittenBack();

private:
    LRESULT HandleButton(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleMouseMove(WPARAM wParam, LPARAM lParam);
    LRESULT HandleWheel(WPARAM wParam, LPARAM lParam);
    LRESULT HandleKey(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleCharacter(WPARAM wParam, LPARAM lParam);
    LRESULT HandleFocus(UINT message, WPARAM wParam, LPARAM lParam);
    void TakeForwardedCharacters(UINT key, LPARAM data);
    /// False: a control character, or there are no rows to find.
    bool TakeCharacter(const CString& character);

    ComboView& m_view;
    CListCtrl& m_control;
    const ComboWriteBack& m_writeBack;
    std::shared_ptr<IGridCtrlComboBoxInputState> m_state;
    TypeAhead m_typeAhead;
    ComboPreview m_preview;
    bool m_dismissesAfterWriting = false;
};

} // namespace korvel::internal

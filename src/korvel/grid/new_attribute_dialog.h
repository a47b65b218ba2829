#pragma once

#include "korvel/dialogs/dlg_edit_attributs.h"
#include "korvel/grid/object_watch.h"

namespace korvel::internal {

/// The dialog for a new attribute of an object that a grid shows; it is cancelled by what the user does next
/// when the grid does not show the object any more.
class NewAttributeDialog final : public CDlgEditAttributs {
public:
    template <class... Arguments>
    explicit NewAttributeDialog(const ObjectWatch& object, Arguments&&... arguments)
        : CDlgEditAttributs(std::forward<Arguments>(arguments)...), m_object(object) {}

protected:
    void OnOK() override {
        if (m_object)
            CDlgEditAttributs::OnOK();
        else
            OnCancel();
    }
    bool OnCommand(WPARAM wParam, LPARAM lParam) override {
        if (m_object || LOWORD(wParam) == IDCANCEL)
            return CDlgEditAttributs::OnCommand(wParam, lParam);
        return OnCancel(), true;
    }

private:
    const ObjectWatch& m_object;
};

} // namespace korvel::internal

#pragma once

#include "korvel/dialogs/dlg_edit_attributs.h"
#include "korvel/grid/object_watch.h"

namespace korvel::internal {

/// The dialog for a new attribute of an object that a grid shows. OK adds it; what the object refuses is said in
/// the dialog. It is cancelled by what the user does next when the grid does not show the object any more.
class NewAttributeDialog final : public CDlgEditAttributs {
public:
    template <class... Arguments>
    explicit NewAttributeDialog(const ObjectWatch& object, Arguments&&... arguments)
        : CDlgEditAttributs(std::forward<Arguments>(arguments)...), m_object(object) {}

    bool IsAdded() const { return m_isAdded; }

protected:
    // The object may have gone when it was asked about the name.
    void Accept() override {
        m_isAdded = m_object && m_pDisp->AddMember(GetName(), !IsWriteProtected(), GetValue());
    }
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
    bool m_isAdded = false;
};

} // namespace korvel::internal

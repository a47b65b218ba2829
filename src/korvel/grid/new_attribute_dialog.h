#pragma once

#include "korvel/dialogs/dlg_edit_attributs.h"
#include "korvel/grid/object_watch.h"
#include "korvel/platform/first_failure.h"

namespace korvel::internal {

/// The dialog for a new attribute of an object that a grid shows. OK adds it; what the object refuses is said in
/// the dialog. It is cancelled by what the user does next when the grid does not show the object any more.
class NewAttributeDialog final : public CDlgEditAttributs {
public:
    template <class... Arguments>
    explicit NewAttributeDialog(const ObjectWatch& object, Arguments&&... arguments)
        : CDlgEditAttributs(std::forward<Arguments>(arguments)...), m_object(object) {}

    /// What the observer threw when it was told of the member, which is there all the same.
    void RethrowOfObserver() { m_observerFailure.Rethrow(); }

protected:
    // The observer is told at once: when the dialog closes, the host may bind the grid anew. The object may have
    // gone when it was asked about the name.
    void Accept() override {
        if (m_object && m_pDisp->AddMember(GetName(), !IsWriteProtected(), GetValue()) && m_object &&
            m_pObserver)
            m_observerFailure.Try([this] { m_pObserver->OnAdd(m_pDisp, nullptr, GetName(), GetValue()); });
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
    FirstFailure m_observerFailure;
};

} // namespace korvel::internal

#pragma once

#include "korvel/platform/export.h"

namespace korvel {

/// How a drop-down list reaches the window that hosts it.
class KORVEL_API IComboBoxParent {
public:
    virtual ~IComboBoxParent() = default;

    virtual const int& GetDroppedState() const = 0;
    virtual void SetDroppedState(int state) = 0;

    /// An arrow key that the list passes on; `down` is false for the upward one.
    virtual void OnArrowKey(bool down) = 0;

    /// The user has confirmed a selection: tell the owner's parent, then end the edit.
    virtual void OnOK() = 0;

    /// The user has given up the selection: tell the owner's parent, then end the edit.
    virtual void OnCancel() = 0;
};

/// Forwards to the operations of the same names of its owner, which must outlive it.
template <typename T>
class CComboBoxParentImp : public IComboBoxParent {
public:
    explicit CComboBoxParentImp(T* owner) : m_pOwner(owner) {}

    const int& GetDroppedState() const override { return m_pOwner->GetDroppedState(); }
    void SetDroppedState(int state) override { m_pOwner->SetDroppedState(state); }
    void OnArrowKey(bool down) override { m_pOwner->OnArrowKey(down); }
    void OnOK() override { m_pOwner->OnOK(); }
    void OnCancel() override { m_pOwner->OnCancel(); }

private:
    T* m_pOwner;
};

} // namespace korvel

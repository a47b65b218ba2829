#pragma once

#include "korvel/platform/export.h"

namespace korvel {

/// How a drop-down list and its text field reach the control that they belong to. They do not own it, and it
/// must outlive them. Called on the thread of the windows.
class KORVEL_API IComboBoxParent {
public:
    virtual ~IComboBoxParent() = default;

    /// 0 while the list is closed.
    virtual const int& GetDroppedState() const = 0;

    /// Opens the list, or closes it with 0.
    virtual void SetDroppedState(int state) = 0;

    /// The user has pressed an arrow key in the text field: the downward one if `down`, else the upward one.
    virtual void OnArrowKey(bool down) = 0;

    /// The user has confirmed a selection: notify the owner's parent, then end the edit.
    virtual void OnOK() = 0;

    /// The user has given up the selection: notify the owner's parent, then end the edit. Not called yet.
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

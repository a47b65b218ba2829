#pragma once

#include "korvel/window/dialog/dialog.h"

namespace korvel {

/// Edits one pair of a code list.
///
///     CDialogEditCodeList dialog(&frame);
///     dialog.SetCaption(Text(126));
///     dialog.SetPlaceholder(Text(131));   // labels the value "Height value:"
///     dialog.SetCode("T12");
///     dialog.SetValue("0.35");
///     if (dialog.DoModal() == IDOK && dialog.GetIsDirty())
///         Store(dialog.GetCode(), dialog.GetValue());
///
/// Nothing is checked: what a code list cannot hold (CanHoldPair) is taken too.
class KORVEL_API CDialogEditCodeList : public CDialog {
public:
    explicit CDialogEditCodeList(CWnd* parent = nullptr);

    std::intptr_t DoModal() override;

    /// True when the user has changed something, also after Cancel.
    virtual const bool& GetIsDirty() const;
    virtual const std::string& GetCaption() const;
    virtual const std::string& GetPlaceholder() const;
    virtual const std::string& GetCode() const;
    virtual const std::string& GetValue() const;
    virtual void SetCaption(const std::string& caption);
    /// The word before the colon of the value's label; empty: the colon alone.
    virtual void SetPlaceholder(const std::string& placeholder);
    virtual void SetCode(const std::string& code);
    virtual void SetValue(const std::string& value);

    BOOL OnInitDialog() override;

protected:
    void OnOK() override;
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;

    bool m_isDirty = false;
    std::string m_caption;
    std::string m_placeholder;
    std::string m_code;
    std::string m_value;
};

} // namespace korvel

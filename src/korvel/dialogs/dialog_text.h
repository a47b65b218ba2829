#pragma once

#include "korvel/window/controls/rich_edit_ctrl.h"
#include "korvel/window/dialog/dialog.h"

namespace korvel {

/// Edits a text of several lines.
///
///     CDialogText dialog(&frame);
///     dialog.SetCaption("Description");
///     dialog.SetText("Axis 3\nfrom the bridge");
///     if (dialog.DoModal() == IDOK && dialog.GetIsDirty())
///         Store(dialog.GetText());
///
/// The bytes that the user leaves alone stay what they are, line ends too; a line that is typed ends with
/// "\r\n".
class KORVEL_API CDialogText : public CDialog {
public:
    explicit CDialogText(CWnd* parent = nullptr);

    std::intptr_t DoModal() override;

    /// True when the user has changed something, also after Cancel.
    virtual const bool& GetIsDirty() const;
    virtual const std::string& GetText() const;
    virtual void SetCaption(const std::string& caption);
    virtual void SetText(const std::string& text);

    BOOL OnInitDialog() override;

protected:
    void OnOK() override;
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;

    bool m_isDirty = false;
    std::string m_caption;
    std::string m_text;
    CRichEditCtrl m_editText;
};

} // namespace korvel

#pragma once

#include "korvel/window/base/types.h"

#include <cstdint>

namespace korvel {

/// Asks the user for a folder.
///
///     CSelectFolderDlg dialog("Target", "/home/me/plans", frame.m_hWnd);
///     if (dialog.DoModal() == IDOK)
///         Use(dialog.GetFolder());
///
/// Any thread; the focus leaves meanwhile and comes back.
class KORVEL_API CSelectFolderDlg {
public:
    /// `parent` owns the chooser; null: none.
    explicit CSelectFolderDlg(HWND parent);
    CSelectFolderDlg(const CString& title, HWND parent);
    CSelectFolderDlg(const CString& title, const CString& startFolder, HWND parent);

    /// IDOK or IDCANCEL. Shows the desktop's chooser, or the plain one where that cannot be made. A start
    /// folder that does not exist is ignored.
    std::int64_t DoModal();

    /// The chosen folder; what it was before unless DoModal returned IDOK.
    const CString& GetFolder() const { return m_folder; }
    const CString& GetTitle() const { return m_title; }
    const CString& GetStartFolder() const { return m_startFolder; }
    HWND GetParent() const { return m_parent; }
    void SetTitle(const CString& title) { m_title = title; }
    void SetStartFolder(const CString& startFolder) { m_startFolder = startFolder; }
    void SetParent(HWND parent) { m_parent = parent; }

private:
    CString m_title;
    CString m_startFolder;
    CString m_folder;
    HWND m_parent;
};

} // namespace korvel

#include "korvel/dialogs/select_folder_dlg.h"

#include "korvel/window/base/messages.h"
#include "korvel/window/core/ask_user.h"

namespace korvel {

using namespace internal;

CSelectFolderDlg::CSelectFolderDlg(HWND parent) : m_parent(parent) {}

CSelectFolderDlg::CSelectFolderDlg(const CString& title, HWND parent) : m_title(title), m_parent(parent) {}

CSelectFolderDlg::CSelectFolderDlg(const CString& title, const CString& startFolder, HWND parent)
    : m_title(title), m_startFolder(startFolder), m_parent(parent) {}

// A chooser that the user cancelled does not lead to the plain one: only one that cannot be made does.
std::int64_t CSelectFolderDlg::DoModal() {
    const FolderAnswer answer = AskUser([this](IDisplay& display) {
        FolderQuery query{m_title, m_startFolder};
        FolderAnswer given = display.ChooseFolder(m_parent, query);
        if (given.outcome == FolderAnswer::Outcome::CannotBeMade) {
            query.chooser = FolderQuery::Chooser::Plain;
            given = display.ChooseFolder(m_parent, query);
        }
        return given;
    });
    if (answer.outcome != FolderAnswer::Outcome::Chosen || answer.path.empty())
        return IDCANCEL;
    m_folder = answer.path;
    return IDOK;
}

} // namespace korvel

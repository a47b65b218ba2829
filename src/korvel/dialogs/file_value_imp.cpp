#include "korvel/dialogs/file_value_imp.h"

#include "korvel/dialogs/file_dialog.h"
#include "korvel/values/text_table.h"
#include "korvel/window/core/cwnd.h"

namespace korvel {

namespace {

constexpr int AllFilesText = 10;
constexpr unsigned long HideReadOnlyAndPromptOnOverwrite = 0x6;

} // namespace

const char* CFileValueImp::Choose(const char* path, CWnd* parent) {
    m_strPath = path ? path : "";
    const std::string filter = (m_bAppendAllFiles ? Text(AllFilesText) : "") + m_strFilter + "|";
    doModalFileDialog(m_strPath, m_bOpen, m_strDefaultExtension.c_str(), m_strPath.c_str(),
                      HideReadOnlyAndPromptOnOverwrite, filter.c_str(),
                      parent ? parent->GetSafeHwnd() : nullptr, 0, 1);
    return m_strPath.c_str();
}

} // namespace korvel

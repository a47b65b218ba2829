#include "korvel/dialogs/file_value_imp.h"

#include "korvel/values/text_table.h"
#include "korvel/window/core/cwnd.h"
#include "korvel/window/core/display.h"

namespace korvel {

namespace {

constexpr int AllFilesText = 10;

} // namespace

const char* CFileValueImp::Choose(const char* path, CWnd* parent) {
    m_strPath = path ? path : "";
    FileQuery query;
    query.open = m_bOpen != 0;
    query.path = m_strPath;
    query.defaultExtension = m_strDefaultExtension;
    query.filter = (m_bAppendAllFiles ? Text(AllFilesText) : "") + m_strFilter + "|";
    query.promptOnOverwrite = true;
    if (const auto chosen = Display().ChooseFile(parent ? parent->GetSafeHwnd() : nullptr, query))
        m_strPath = *chosen;
    return m_strPath.c_str();
}

} // namespace korvel

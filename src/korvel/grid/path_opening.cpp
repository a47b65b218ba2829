#include "korvel/grid/path_opening.h"

#include "korvel/values/replace_first.h"
#include "korvel/values/text_table.h"
#include "korvel/window/core/window.h"

#include <algorithm>
#include <iterator>

namespace korvel::internal {

namespace {

constexpr int ErrorText = 26;
constexpr int NoText = 0;

struct Failure {
    int result;
    int fileText;
    int folderText;
};

// Other results say nothing.
constexpr Failure Failures[] = {
    {SE_ERR_FNF, 87, 88},
    {SE_ERR_ACCESSDENIED, 89, 90},
    {SE_ERR_OOM, 91, 91},
};

int FailureText(int result, OpenAs as) {
    const auto* found = std::find_if(std::begin(Failures), std::end(Failures),
                                     [=](const Failure& row) { return row.result == result; });
    if (found == std::end(Failures))
        return NoText;
    return as == OpenAs::Folder ? found->folderText : found->fileText;
}

} // namespace

bool OpenOnDesktop(HWND owner, const std::string& path, OpenAs as) {
    const int result = path.empty() ? SE_ERR_FNF : OpenPath(owner, path, as);
    if (result > OpenPathFailed)
        return true;
    if (result == SE_ERR_NOASSOC && as == OpenAs::File) {
        OpenPath(owner, path, OpenAs::FileByChoice);
        return true; // kept: whatever the user chooses then
    }
    if (const int text = FailureText(result, as); text != NoText) {
        std::string message = Text(text);
        ReplaceFirst(message, "$1", path);
        MessageBoxA(owner, message, Text(ErrorText), MB_OK | MB_ICONERROR);
    }
    return false;
}

std::string FolderOf(const std::string& path) {
    const std::size_t separator = path.find_last_of("/\\");
    if (separator == std::string::npos)
        return path.empty() ? "" : ".";
    return path.substr(0, std::max<std::size_t>(separator, 1));
}

} // namespace korvel::internal

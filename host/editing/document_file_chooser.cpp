#include "editing/document_file_chooser.h"

#include "korvel/dialogs/file_container.h"
#include "korvel/platform/code_page.h"
#include "program/absolute_path.h"

#include <filesystem>
#include <string_view>

namespace korvel::inspector {

namespace {

namespace fs = std::filesystem;

bool IsRelative(std::string_view path) {
    return !path.empty() && path.front() != '/' && path.find("://") == std::string_view::npos;
}

} // namespace

void DocumentFileChooser::SetDocument(const std::string& path) {
    const fs::path folder = fs::path(AbsolutePath(path)).lexically_normal().parent_path();
    m_folder = platform::FromUtf8((folder / "").string()).text;
}

std::string DocumentFileChooser::Absolute(const std::string& path) const {
    constexpr std::string_view FileScheme = "file://";
    if (path.starts_with(FileScheme))
        return path.substr(FileScheme.size());
    return IsRelative(path) ? m_folder + path : path;
}

const char* DocumentFileChooser::Choose(const char* path, CWnd* parent) {
    const std::string old = path ? path : "";
    const std::string begin = old.empty() ? m_folder : Absolute(old);
    const std::string chosen = GetFileContainer().GetFileValue(0)->Choose(begin.c_str(), parent);
    const std::string below = fs::path(chosen).lexically_normal().lexically_relative(m_folder).string();
    const bool staysRelative = IsRelative(old) && !below.empty() && !below.starts_with("..");
    m_chosen = chosen == begin ? old : staysRelative ? below : chosen;
    return m_chosen.c_str();
}

} // namespace korvel::inspector

#include "editing/document_file_chooser.h"

#include "korvel/dialogs/file_container.h"
#include "korvel/platform/code_page.h"
#include "program/absolute_path.h"

#include <filesystem>
#include <string_view>
#include <system_error>

namespace korvel::inspector {

namespace {

namespace fs = std::filesystem;

bool IsRelative(std::string_view path) {
    return !path.empty() && path.front() != '/' && path.find("://") == std::string_view::npos;
}

int DigitOf(char digit) {
    constexpr std::string_view Digits = "0123456789abcdef";
    const auto value =
        Digits.find(digit >= 'A' && digit <= 'F' ? static_cast<char>(digit - 'A' + 'a') : digit);
    return value == std::string_view::npos ? -1 : static_cast<int>(value);
}

// In bytes of the file system. What is no byte in this form stays, so does the byte that no path can hold.
std::string WithoutPercents(const std::string& path) {
    std::string plain;
    for (std::size_t i = 0; i < path.size(); ++i) {
        const bool isByte = path[i] == '%' && i + 2 < path.size();
        const int high = isByte ? DigitOf(path[i + 1]) : -1;
        const int low = isByte ? DigitOf(path[i + 2]) : -1;
        const bool isMeant = high >= 0 && low >= 0 && high + low > 0;
        plain += isMeant ? static_cast<char>(high * 16 + low) : path[i];
        i += isMeant ? 2 : 0;
    }
    return plain;
}

std::string AsText(const std::string& bytes) {
    return platform::FromUtf8(bytes).text;
}

} // namespace

void DocumentFileChooser::SetDocument(const std::string& path) {
    const fs::path folder = fs::path(AbsolutePath(path)).lexically_normal().parent_path();
    m_folder = platform::FromUtf8((folder / "").string()).text;
}

std::string DocumentFileChooser::Absolute(const std::string& path) const {
    constexpr std::string_view FileScheme = "file://";
    if (path.starts_with(FileScheme)) {
        const std::string address = platform::ToUtf8(path);
        const std::size_t root = address.find('/', FileScheme.size()); // after the name of a machine
        return root == std::string::npos ? path : AsText(WithoutPercents(address.substr(root)));
    }
    std::string absolute = IsRelative(path) ? m_folder + path : path;
    if (path.find('%') == std::string::npos || path.find("://") != std::string::npos)
        return absolute;
    std::error_code failure;
    const std::string bytes = platform::ToUtf8(absolute);
    const std::string plain = WithoutPercents(bytes);
    return !fs::exists(bytes, failure) && fs::exists(plain, failure) ? AsText(plain) : absolute;
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

#include "korvel/dialogs/file_dialog.h"

#include "korvel/platform/code_page.h"
#include "korvel/values/language.h"
#include "korvel/values/replace_first.h"
#include "korvel/values/text_table.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/core/ask_user.h"
#include "korvel/window/core/window.h"

#include <filesystem>

namespace korvel {

using namespace internal;

namespace {

namespace fs = std::filesystem;

// The bits that count, with the platform's numbers.
constexpr unsigned long OverwritePrompt = 0x2;
constexpr unsigned long PathMustExist = 0x800;
constexpr unsigned long FileMustExist = 0x1000;

// Rows of the Text table.
constexpr int OpenText = 74;
constexpr int FileNotFoundText = 87;
constexpr int FolderNotFoundText = 88;

std::string TextWithName(int text, const std::string& name) {
    std::string said = Text(text);
    ReplaceFirst(said, "$1", name);
    return said;
}

// What is wrong with a chosen path; empty: nothing.
std::string ComplaintOf(const std::string& chosen, unsigned long flags) {
    std::error_code ignored; // what cannot be looked at does not exist for the user
    const fs::path path(platform::ToUtf8(chosen));
    const fs::path folder = path.has_parent_path() ? path.parent_path() : ".";
    if ((flags & (PathMustExist | FileMustExist)) && !fs::is_directory(folder, ignored))
        return TextWithName(FolderNotFoundText, platform::FromUtf8(folder.string()).text);
    if ((flags & FileMustExist) && !fs::exists(path, ignored))
        return TextWithName(FileNotFoundText, chosen);
    return "";
}

// The title that a desktop gives its chooser.
std::string TitleOf(const FileQuery& query) {
    static constexpr const char* SaveTitles[] = {"Save As", "Speichern unter", ""}; // by language
    return query.open ? Text(OpenText) : SaveTitles[GetLanguage().column];
}

} // namespace

bool doModalFileDialog(std::string& path, int openFile, const char* defaultExtension, const char* fileName,
                       unsigned long flags, const char* filter, HWND parent, unsigned long, int) {
    FileQuery query;
    query.open = openFile != 0;
    query.path = fileName ? fileName : "";
    query.defaultExtension = defaultExtension ? defaultExtension : "";
    query.filter = filter ? filter : "";
    query.promptOnOverwrite = (flags & OverwritePrompt) != 0;
    query.fileMustExist = (flags & FileMustExist) != 0;
    const auto ask = [&] {
        return AskUser([&](IDisplay& display) { return display.ChooseFile(parent, query); });
    };
    while (const auto chosen = ask()) {
        const std::string complaint = ComplaintOf(*chosen, flags);
        if (complaint.empty()) {
            path = *chosen;
            return true;
        }
        MessageBoxA(parent, complaint, TitleOf(query), MB_OK | MB_ICONWARNING);
        query.path = *chosen;
    }
    return false;
}

} // namespace korvel

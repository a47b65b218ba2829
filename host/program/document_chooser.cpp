#include "program/document_chooser.h"

#include "korvel/dialogs/file_dialog.h"
#include "korvel/platform/code_page.h"
#include "texts/program_texts.h"

namespace korvel::inspector {

std::string AskForDocument(FileUse use, const std::string& begin, const CWnd& owner) {
    constexpr unsigned long FileMustExist = 0x1000;
    constexpr unsigned long PromptOnOverwrite = 2;
    const std::string filter = InCodePage(TheProgramTexts.landXmlFiles) +
                               "|*.xml;*.landxml;*.xml.gz;*.landxml.gz|" +
                               InCodePage(TheProgramTexts.allFiles) + "|*.*|";
    const bool isToOpen = use == FileUse::Open;
    std::string path;
    const bool isChosen =
        doModalFileDialog(path, isToOpen, isToOpen ? nullptr : "xml", platform::FromUtf8(begin).text.c_str(),
                          isToOpen ? FileMustExist : PromptOnOverwrite, filter.c_str(), owner.m_hWnd, 0, 1);
    return isChosen ? platform::ToUtf8(path) : std::string();
}

} // namespace korvel::inspector

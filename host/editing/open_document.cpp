#include "editing/open_document.h"

#include "korvel/documents/xml_encoding.h"
#include "korvel/platform/utf8.h"

namespace korvel::inspector {

namespace {

ReadingOptions WithChooser(ReadingOptions options, IFileValue& chooser) {
    if (!options.fileChooser)
        options.fileChooser = &chooser;
    return options;
}

} // namespace

OpenDocument::OpenDocument(const std::string& path, const ReadingOptions& options, EditObserver& observer,
                           ReadingProgress* progress)
    : m_chooser(path), m_document(path, WithChooser(options, m_chooser), progress),
      m_editing(m_document, observer), m_extras(m_document, observer), m_file(path, m_document) {
    m_editing.SetStepsHook([this](const DocumentEditing::Changed& changed) {
        const bool areFiguresOld = m_extras.Statistics().Follow(changed);
        if (m_stepsHook)
            m_stepsHook(changed, areFiguresOld);
    });
    m_document.SetCharacterTest([encoding = m_document.Form().encoding](char32_t character) {
        std::string utf8;
        platform::AppendUtf8(utf8, character);
        return EncodeXml(utf8, encoding).has_value();
    });
}

void OpenDocument::Save() {
    if (m_document.IsReadOnly())
        return;
    m_file.Write(m_document.Tree().EditedSource());
    m_editing.MarkSaved();
}

void OpenDocument::SaveAs(const std::string& path) {
    if (m_document.IsReadOnly()) {
        m_file.CopyTo(path);
    } else {
        m_file.WriteAs(path, m_document.Tree().EditedSource());
        m_editing.MarkSaved();
    }
    m_chooser.SetDocument(path);
}

} // namespace korvel::inspector

#pragma once

#include "editing/document_editing.h"
#include "editing/document_extras.h"
#include "editing/document_file.h"
#include "editing/document_file_chooser.h"
#include "landxml/landxml_document.h"

#include <string>

namespace korvel::inspector {

/// A document that is open: its objects, the steps by which they were changed, and its file.
///
///     OpenDocument open("road.xml", {}, observer);
///     grid.Initialize(&open.Document().Root(), "Name", "Value", 0);
///     ...
///     if (open.HasUnsavedChanges())
///         open.Save();
class OpenDocument {
public:
    /// `observer` is that of the grids that will show it, and must outlive it; no grid may show it after its
    /// end. File names are chosen from the folder of the file, unless `options` names another chooser. Throws
    /// DocumentError, and ReadingCancelled when `progress` does. It may be made in any thread, and belongs to
    /// that of the grids afterwards.
    OpenDocument(const std::string& path, const ReadingOptions& options, EditObserver& observer,
                 ReadingProgress* progress = nullptr);

    LandXmlDocument& Document() { return m_document; }
    DocumentEditing& Editing() { return m_editing; }
    DocumentExtras& Extras() { return m_extras; }
    const DocumentFile& File() const { return m_file; }
    /// Says what the relative paths in the document mean.
    const DocumentFileChooser& FileChooser() const { return m_chooser; }

    /// As DocumentEditing has it; `areFiguresOld`: statistics of a former state were removed.
    using StepsHook = std::function<void(const DocumentEditing::Changed& changed, bool areFiguresOld)>;
    void SetStepsHook(StepsHook hook) { m_stepsHook = std::move(hook); }

    bool HasUnsavedChanges() const { return !m_editing.Steps().IsClean(); }
    /// Both throw DocumentError when the file cannot be written; the changes are unsaved still. The file of a
    /// document that can only be read is left alone, or copied as it is.
    void Save();
    void SaveAs(const std::string& path);

private:
    DocumentFileChooser m_chooser;
    LandXmlDocument m_document;
    DocumentEditing m_editing;
    DocumentExtras m_extras;
    DocumentFile m_file;
    StepsHook m_stepsHook;
};

} // namespace korvel::inspector

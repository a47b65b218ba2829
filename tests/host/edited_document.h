#pragma once

#include "editing/document_editing.h"
#include "host/shown_rows.h"
#include "korvel/window/core/registered_messages.h"
#include "support/german_machine.h"

#include <fstream>
#include <memory>

namespace korvel::inspector {

/// The object of an element by names from the root: "Units/Metric".
inline IMemberDispatch& ObjectAt(LandXmlDocument& document, const std::string& path) {
    IMemberDispatch* object = &document.Root();
    std::istringstream names(path);
    for (std::string name; std::getline(names, name, '/');) {
        CVariantValue value;
        EXPECT_TRUE(object->GetMember(name, value)) << name;
        EXPECT_EQ(value.Type, DT_Group) << name;
        object = value.Value.Dispatch;
    }
    return *object;
}

/// A document that a grid shows and edits.
class EditedDocumentTest : public GermanMachine {
protected:
    LandXmlDocument& Open(const std::string& xml, const ReadingOptions& options = {}) {
        const std::string path = m_folder.Path() / "document.xml";
        std::ofstream(path, std::ios::binary) << xml;
        m_rows.reset();
        m_editing.reset();
        m_document = std::make_unique<LandXmlDocument>(path, options);
        m_editing = std::make_unique<DocumentEditing>(*m_document, m_observer);
        m_rows = std::make_unique<ShownRows>(*m_document, m_observer);
        return *m_document;
    }

    LandXmlDocument& Document() { return *m_document; }
    DocumentEditing& Editing() { return *m_editing; }
    EditObserver& Observer() { return m_observer; }
    ShownRows& Rows() { return *m_rows; }
    std::string Text() const { return m_document->Tree().EditedSource(); }

    IMemberDispatch& At(const std::string& path) { return ObjectAt(*m_document, path); }

    void OpenFrame(const char* title) {
        EXPECT_TRUE(m_editing->OnMessage(WM_HISTORY, 1, reinterpret_cast<LPARAM>(title)));
    }
    void CloseFrame() { EXPECT_TRUE(m_editing->OnMessage(WM_HISTORY, 0, 0)); }
    void RollBack() { EXPECT_TRUE(m_editing->OnMessage(WM_HISTORY_ROLLBACK, 1, 0)); }

    /// What an action throws; "no" for nothing.
    template <class Action>
    static std::string RefusalOf(Action action) {
        try {
            action();
            return "no";
        } catch (const Error& error) {
            return error.what();
        }
    }

private:
    platform::ScratchFolder m_folder;
    EditObserver m_observer;
    std::unique_ptr<LandXmlDocument> m_document;
    std::unique_ptr<DocumentEditing> m_editing;
    std::unique_ptr<ShownRows> m_rows;
};

} // namespace korvel::inspector

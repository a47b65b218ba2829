#include "korvel/dialogs/file_container.h"

#include "korvel/dialogs/file_value_imp.h"
#include "korvel/values/text_table.h"

#include <map>
#include <string>

namespace korvel {

namespace {

constexpr int DocumentsKind = 4;
constexpr int NoKind = -1;

// The rows of the Text table that make the filter of the one kind: documents, texts, XML, images, videos, X,
// REB, DTM.
constexpr int DocumentFilters[] = {2, 3, 4, 8, 9, 5, 6, 7};

class CIFileDialogsImp final : public IFileContainer {
public:
    CIFileDialogsImp() {
        FileKind& documents = m_kinds[DocumentsKind];
        documents.kind = DocumentsKind;
        for (const int id : DocumentFilters)
            documents.value.m_strFilter += Text(id);
    }

    int GetFileKind(IFileValue* value) override {
        for (const auto& [kind, entry] : m_kinds)
            if (&entry.value == value)
                return entry.kind;
        return NoKind;
    }

    IFileValue* GetFileValue(int) override { return &m_kinds.begin()->second.value; }

private:
    struct FileKind {
        int kind = NoKind;
        std::string title;
        std::string extension;
        CFileValueImp value;
    };

    std::map<int, FileKind> m_kinds;
};

} // namespace

IFileContainer& GetFileContainer() {
    static CIFileDialogsImp container;
    return container;
}

} // namespace korvel

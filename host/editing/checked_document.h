#pragma once

#include "editing/open_document.h"
#include "landxml/document_check.h"

#include <memory>
#include <string>

namespace korvel::inspector {

/// A document that was just read, and what is wrong in it.
struct CheckedDocument {
    std::unique_ptr<OpenDocument> document;
    Findings findings;
};

/// In any thread; see OpenDocument. Throws DocumentError, and ReadingCancelled when `progress` does.
inline CheckedDocument ReadAndCheck(const std::string& path, const ReadingOptions& options,
                                    EditObserver& observer, ReadingProgress* progress) {
    CheckedDocument read;
    read.document = std::make_unique<OpenDocument>(path, options, observer, progress);
    read.findings = Check(read.document->Document(), progress);
    return read;
}

} // namespace korvel::inspector

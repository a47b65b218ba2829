#pragma once

#include <string>

namespace korvel {
class CWnd;
}

/// The library's dialogs for what the user notes about a document (see DocumentNotes). Each shows what was
/// kept, else what the document says, and keeps what the user changed. What cannot be kept is told, and the
/// dialog opens again with it. They throw Error when the settings cannot be read.
namespace korvel::inspector {

class LandXmlDocument;

/// The codes of points and features, each with a height that is added. Codes that a list cannot hold are left
/// out, and the user is told how many.
void EditCodes(const LandXmlDocument& document, const std::string& file, CWnd& owner);
/// The description of the whole document; the one of its project is offered until another is kept.
void EditDescription(const LandXmlDocument& document, const std::string& file, CWnd& owner);

} // namespace korvel::inspector

#pragma once

#include <optional>
#include <string>

namespace korvel::inspector {

/// What the user has written about a document: kept in the user's settings under the file's path, the file
/// stays as it is. In the library's texts.
///
///     DocumentNotes notes("road.xml");
///     notes.Keep(DocumentNotes::Description, "Axis 3");
///     DocumentNotes("../here/road.xml").Find(DocumentNotes::Description);   // "Axis 3"
///
/// All throw Error, in the language of the process, when the settings cannot be read or written; a damaged
/// store is set aside (run_settings.h).
class DocumentNotes {
public:
    static constexpr const char* Codes = "Codes"; // as CDialogCodeList has them
    static constexpr const char* Description = "Description";

    explicit DocumentNotes(const std::string& file);

    /// Nothing when the user has written none.
    std::optional<std::string> Find(const char* note) const;
    void Keep(const char* note, const std::string& text) const;

private:
    std::string m_key;
};

} // namespace korvel::inspector

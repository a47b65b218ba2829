#pragma once

#include "landxml/landxml_document.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace korvel::inspector {

/// The file of an open document: writes it whole or not at all, in the form in which it was read, and sees
/// when somebody else has changed it.
///
///     DocumentFile file("road.xml.gz", document);
///     if (file.GetState() != DocumentFile::State::Changed || AskWhetherToOverwrite())
///         file.Write(text);       // packed again
///     file.WriteAs("copy.xml", text);
class DocumentFile {
public:
    /// `document` is just read from `path`.
    DocumentFile(const std::string& path, const LandXmlDocument& document);

    const std::string& Path() const { return m_path; }
    /// As it was read or written here last.
    const FileStamp& Stamp() const { return m_stamp; }

    enum class State {
        AsKnown, ///< as it was read or written here last
        Changed, ///< by somebody else; also when it cannot be read
        Gone
    };
    State GetState() const;

    /// Writes a document's text, in UTF-8, over whatever the file holds by now. A file that holds that
    /// already is left alone. Throws DocumentError when it cannot be written or its encoding lacks a
    /// character; the file is as before then.
    void Write(std::string_view utf8);
    /// The same into another file, which is the document's file from then on; packed when its name ends in
    /// ".gz", or when it is the document's packed file itself.
    /// Where the text is that of the former file, its bytes are copied, packed ones too.
    void WriteAs(const std::string& path, std::string_view utf8);
    /// Copies the file as it is, and goes on with the copy.
    void CopyTo(const std::string& path);

private:
    std::string Encode(std::string_view utf8) const;
    void Put(const std::string& path, std::string_view content, std::size_t hash);

    std::string m_path;
    FileForm m_form;
    FileStamp m_stamp;
    std::size_t m_hash; // of the unpacked bytes
};

} // namespace korvel::inspector

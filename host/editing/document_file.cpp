#include "editing/document_file.h"

#include "korvel/documents/xml_encoding.h"
#include "korvel/platform/code_page.h"
#include "korvel/platform/file_error.h"
#include "korvel/platform/replace_file.h"
#include "source/document_error.h"
#include "source/gzip.h"
#include "texts/system_reason.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <optional>
#include <sstream>

namespace korvel::inspector {

namespace {

bool IsNameOfPacked(const std::string& path) {
    const std::string ending = path.substr(path.size() - std::min<std::size_t>(path.size(), 3));
    return platform::FoldCase(ending) == ".gz";
}

// As they are; nothing where they cannot be read.
std::optional<std::string> BytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    if (file.peek() != std::ifstream::traits_type::eof()) // to write nothing counts as a failure
        bytes << file.rdbuf();
    return file && bytes ? std::optional(std::move(bytes).str()) : std::nullopt;
}

} // namespace

DocumentFile::DocumentFile(const std::string& path, const LandXmlDocument& document)
    : m_path(path), m_form(document.Form()), m_stamp(document.Stamp()), m_hash(document.HashOfFile()) {}

DocumentFile::State DocumentFile::GetState() const {
    const std::optional<FileStamp> stamp = StampOf(m_path);
    if (!stamp)
        return State::Gone;
    if (*stamp == m_stamp)
        return State::AsKnown;
    try {
        return HashOf(ReadSourceFile(m_path).bytes) == m_hash ? State::AsKnown : State::Changed;
    } catch (const DocumentError&) {
        return State::Changed;
    }
}

std::string DocumentFile::Encode(std::string_view utf8) const {
    std::optional<std::string> bytes = EncodeXml(utf8, m_form.encoding, m_form.hasByteOrderMark);
    if (!bytes)
        throw DocumentError(m_path,
                            {"the text holds a character that the encoding %1 lacks", {m_form.encoding}});
    return *std::move(bytes);
}

void DocumentFile::Write(std::string_view utf8) {
    const std::string bytes = Encode(utf8);
    if (HashOf(bytes) != m_hash || GetState() != State::AsKnown)
        Put(m_path, m_form.isPacked ? Pack(bytes) : bytes, HashOf(bytes));
}

void DocumentFile::WriteAs(const std::string& path, std::string_view utf8) {
    const std::string bytes = Encode(utf8);
    const bool isOwn = StampOf(path) == m_stamp;
    const bool isPacked = IsNameOfPacked(path) || (isOwn && m_form.isPacked);
    std::optional<std::string> former;
    if (isPacked && m_form.isPacked && HashOf(bytes) == m_hash && GetState() == State::AsKnown)
        former = BytesOf(m_path);
    Put(path, former ? *former : isPacked ? Pack(bytes) : bytes, HashOf(bytes));
    m_path = path;
    m_form.isPacked = isPacked;
}

void DocumentFile::CopyTo(const std::string& path) {
    const std::optional<std::string> bytes = BytesOf(m_path);
    if (!bytes)
        throw DocumentError(m_path, SystemReason(errno));
    Put(path, *bytes, m_hash);
    m_path = path;
}

void DocumentFile::Put(const std::string& path, std::string_view content, std::size_t hash) {
    try {
        platform::ReplaceFile(path, content);
    } catch (const FileError& error) {
        throw DocumentError(path, SystemReason(error.SystemReason()));
    }
    m_stamp = StampOf(path).value_or(FileStamp());
    m_hash = hash;
}

} // namespace korvel::inspector

#include "editing/document_reports.h"

#include "korvel/platform/code_page.h"
#include "texts/messages.h"

#include <charconv>
#include <filesystem>
#include <string_view>
#include <utility>

namespace korvel::inspector {
namespace {

// "3/17/length": the number of the document, the element, and the key of the member.
EventPlace PlaceOf(std::uint32_t document, const Finding& finding) {
    return {std::to_string(document) + '/' + std::to_string(finding.address.element) + '/' +
                finding.address.key,
            static_cast<int>(finding.line)};
}

// The number that `text` begins with, which is taken away with its '/'; nothing where there is none.
std::optional<std::uint32_t> TakeNumber(std::string_view& text) {
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end == text.data() + text.size() || *end != '/')
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()) + 1);
    return number;
}

} // namespace

// The list has the newest on top, so the last line of the file comes first.
void DocumentReports::Loaded(OpenDocument& document, const Findings& findings) {
    ++m_document;
    const std::string path = document.File().Path();
    const LandXmlDocument& loaded = document.Document();
    if (findings.leftOut != 0)
        Add(CEventMessage::eWarning, path,
            Say(findings.leftOut == 1
                    ? Message("1 more is not listed")
                    : Message("%1 more are not listed", {std::to_string(findings.leftOut)})));
    for (auto finding = findings.list.rbegin(); finding != findings.list.rend(); ++finding)
        Add(finding->kind == Finding::Kind::InvalidValue ? CEventMessage::eWarning
                                                         : CEventMessage::eInformation,
            path, finding->Text(), PlaceOf(m_document, *finding));
    for (const std::string& notice : loaded.Notices())
        Add(CEventMessage::eWarning, path, platform::ToUtf8(notice));
    const std::size_t count = loaded.Tree().Count();
    Add(CEventMessage::eInformation, path,
        Say(count == 1 ? Message("loaded, with 1 element")
                       : Message("loaded, with %1 elements", {std::to_string(count)})));
}

void DocumentReports::Saved(const std::string& path) {
    Add(CEventMessage::eInformation, path, Say({"saved"}));
}

void DocumentReports::Cancelled(const std::string& path) {
    Add(CEventMessage::eInformation, path, Say({"loading was cancelled"}));
}

void DocumentReports::Watch(const std::string& path, const std::function<void()>& action) {
    try {
        action();
    } catch (const DocumentError& error) {
        Failed(path, ReasonOf(error, path));
        throw;
    } catch (const std::exception& error) {
        Failed(path, platform::ToUtf8(error.what()));
        throw;
    }
}

std::string DocumentReports::ReasonOf(const DocumentError& error, const std::string& path) {
    const std::string& text = error.Utf8Text();
    return text.starts_with(path + ": ") ? text.substr(path.size() + 2) : text;
}

void DocumentReports::Failed(const std::string& path, const std::string& reason) {
    Add(CEventMessage::eError, path, reason);
}

std::optional<ChangedMember> DocumentReports::Find(OpenDocument& document, const EventPlace& place) const {
    std::string_view rest = place.path;
    const std::optional<std::uint32_t> number = TakeNumber(rest);
    const std::optional<std::uint32_t> element = number ? TakeNumber(rest) : std::nullopt;
    if (number != m_document || !element)
        return std::nullopt;
    return MemberAt(document.Document(), {*element, std::string(rest)});
}

void DocumentReports::Add(CEventMessage::EEventType type, const std::string& path, const std::string& text,
                          EventPlace place) {
    const std::string name = std::filesystem::path(path).filename();
    m_queue.Add(type, platform::FromUtf8(name).text, platform::FromUtf8(text).text, std::move(place));
}

} // namespace korvel::inspector

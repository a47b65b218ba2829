#include "landxml/document_check.h"

#include "landxml/known_elements.h"
#include "landxml/landxml_document.h"
#include "texts/messages.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace korvel::inspector {
namespace {

constexpr ElementIndex ReadAtOnce = 2048; // elements, until the check can be cancelled
constexpr std::size_t LongestValue = 60;

class DocumentCheck {
public:
    DocumentCheck(LandXmlDocument& document, ReadingProgress* progress)
        : m_document(document), m_tree(document.Tree()),
          m_progress(progress, ReadingProgress::Phase::Values, m_tree.Count(), ReadAtOnce) {}

    Findings Run() {
        const bool isLandXml = m_tree.LocalName(0) == "LandXML";
        for (ElementIndex element = 0; element < m_tree.Count(); ++element) {
            m_progress.Reach(element);
            if (m_document.Members().IsTextElement(element))
                continue; // a member of the element around it
            if (isLandXml && m_document.Members().IsUnknown(element))
                Add({Finding::Kind::UnknownElement, {element, {}}, 0, std::string(m_tree.Name(element)), {}},
                    m_tree.OffsetOf(element));
            CheckMembers(element);
        }
        CountLines();
        return std::move(m_findings);
    }

private:
    void CheckMembers(ElementIndex element) {
        const UniqueMemberNames& names = m_document.NamesOf(element, &m_progress);
        for (std::size_t i = 0; i < names.Count(); ++i)
            if (const Member& member = names.MemberAt(i); !member.isValid)
                AddValue(element, member);
    }

    void AddValue(ElementIndex owner, const Member& member) {
        const bool isAttribute = member.kind == MemberKind::Attribute;
        const ElementIndex named = member.kind == MemberKind::TextElement ? member.place : owner;
        const std::string_view name =
            isAttribute ? m_tree.AttributeAt(owner, member.place).name : m_tree.Name(named);
        const XmlCharacters value = m_document.Members().CharactersOf(owner, member, LongestValue);
        const std::size_t offset = isAttribute ? m_tree.OffsetOf(owner) + member.place
                                               : m_document.Members().OffsetOf(owner, member);
        Add({Finding::Kind::InvalidValue, m_document.AddressOf(owner, member), 0, std::string(name),
             value.utf8 + (value.complete ? "" : "...")},
            offset);
    }

    void Add(Finding finding, std::size_t offset) {
        std::size_t& count = m_counts[finding.kind == Finding::Kind::InvalidValue ? 0 : 1];
        if (count == Findings::Most) {
            ++m_findings.leftOut;
            return;
        }
        ++count;
        finding.line = offset;
        m_findings.list.push_back(std::move(finding));
    }

    // Each finding has its offset in the place of its line until all are known: a mixed text comes after the
    // children that it follows.
    void CountLines() {
        std::vector<Finding>& list = m_findings.list;
        std::stable_sort(list.begin(), list.end(),
                         [](const Finding& a, const Finding& b) { return a.line < b.line; });
        const std::string_view source = m_tree.Source();
        std::size_t line = 1;
        std::size_t counted = 0;
        for (Finding& finding : list) {
            const std::string_view passed = source.substr(counted, finding.line - counted);
            line += XmlPlaceOf(passed, passed.size()).line - 1;
            counted = std::exchange(finding.line, line);
        }
    }

    LandXmlDocument& m_document;
    const ElementTree& m_tree;
    PhaseProgress m_progress;
    Findings m_findings;
    std::size_t m_counts[2] = {};
};

} // namespace

std::string Finding::Text() const {
    const std::string place = std::to_string(line);
    if (kind == Kind::UnknownElement)
        return Say({"line %1: LandXML has no element %2", {place, InQuotes(name)}});
    return Say({"line %1: %2 is no valid value of %3", {place, InQuotes(value), InQuotes(name)}});
}

Findings Check(LandXmlDocument& document, ReadingProgress* progress) {
    return DocumentCheck(document, progress).Run();
}

} // namespace korvel::inspector

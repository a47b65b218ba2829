#include "editing/checked_document.h"
#include "editing/grid_pane.h"
#include "host/edited_document.h"
#include "korvel/values/language.h"
#include "landxml/document_check.h"
#include "source/gzip.h"

#include <atomic>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <sstream>
#include <thread>
#include <vector>

namespace korvel::inspector {
namespace {

class DocumentCheckTest : public EditedDocumentTest {
protected:
    std::string Found(const std::string& xml) {
        SetLanguageForThisRun("German");
        std::ostringstream found;
        for (const Finding& finding : Check(Open(xml), nullptr).list)
            found << finding.Text() << " @" << finding.address.element << finding.address.key << '\n';
        return found.str();
    }
};

TEST_F(DocumentCheckTest, FindsWhatATypeDoesNotAllowAndWhatLandXmlDoesNotHave) {
    const struct {
        const char* name;
        std::string xml;
        std::string found;
    } rows[] = {
        {"all is well", "<LandXML><Alignments><Alignment name='a' length='1.5'/></Alignments></LandXML>", ""},
        {"attribute on a line of its own",
         "<LandXML>\r\n<Alignment\r\n length='1,5' staStart='x'/></LandXML>",
         "Zeile 3: '1,5' ist kein gültiger Wert von 'length' @1length\n"
         "Zeile 3: 'x' ist kein gültiger Wert von 'staStart' @1staStart\n"},
        {"part of a text, and a text", "<LandXML>\n<PVI>1 b</PVI>\n<PVI>1 2 3</PVI></LandXML>",
         "Zeile 2: 'b' ist kein gültiger Wert von 'PVI' @1#1\n"
         "Zeile 3: '1 2 3' ist kein gültiger Wert von 'PVI' @2@30\n"},
        {"point shown as text", "<LandXML><Pnts><P id='1'>1 2 3</P>\n<P id='2'>1 x 3</P></Pnts></LandXML>",
         "Zeile 2: '1 x 3' ist kein gültiger Wert von 'P' @3#\n"},
        {"long value", "<LandXML><Curve length='" + std::string(70, 'x') + "'/></LandXML>",
         "Zeile 1: '" + std::string(60, 'x') + "...' ist kein gültiger Wert von 'length' @1length\n"},
        {"element", "<LandXML>\n\n<Alinment/></LandXML>",
         "Zeile 3: LandXML hat kein Element 'Alinment' @1\n"},
        {"element of somebody else", "<LandXML><n:Note xmlns:n='urn:n'/></LandXML>", ""},
        {"unknown version", "<LandXML xmlns='http://www.landxml.org/schema/LandXML-99.0'><New/></LandXML>",
         ""},
        {"no LandXML", "<road><New/></road>", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Found(row.xml), row.found);
    }
}

TEST_F(DocumentCheckTest, CountsWhatItLeavesOutOfEachKind) {
    std::string xml = "<LandXML>";
    for (std::size_t i = 0; i < Findings::Most + 2; ++i)
        xml += "<Line length='x'/>";
    const Findings findings = Check(Open(xml + "<New/></LandXML>"), nullptr);
    EXPECT_EQ(findings.list.size(), Findings::Most + 1);
    EXPECT_EQ(findings.leftOut, 2u);
    EXPECT_EQ(findings.list.back().kind, Finding::Kind::UnknownElement);
}

// Hears of all phases, and cancels when it was told of the wanted one.
class CancelledIn final : public ReadingProgress {
public:
    explicit CancelledIn(std::optional<Phase> phase) : m_phase(phase) {}

    void OnProgress(Phase phase, std::size_t done, std::size_t whole) override {
        EXPECT_LE(done, whole);
        if (m_heard.empty() || m_heard.back() != phase)
            m_heard.push_back(phase);
        if (phase == m_phase && done > 0)
            throw ReadingCancelled();
    }
    const std::vector<Phase>& Heard() const { return m_heard; }

private:
    std::optional<Phase> m_phase;
    std::vector<Phase> m_heard;
};

class ReadingProgressTest : public GermanMachine {
protected:
    ReadingProgressTest() {
        std::ostringstream xml;
        xml << "<LandXML><!--" << std::string(1 << 20, 'x')
            << "--><Surface name='s'><Definition surfType='TIN'><Pnts>";
        for (int i = 1; i < 12'000; ++i)
            xml << "<P id='" << i << "'>" << i << " 2 3</P>";
        xml << "</Pnts></Definition></Surface></LandXML>";
        std::ofstream(m_path, std::ios::binary) << xml.str();
        std::ofstream(m_packed, std::ios::binary) << Pack(xml.str());
        std::ofstream(m_small, std::ios::binary) << "<LandXML><Project name='p'/></LandXML>";
    }
    // As the window does it.
    bool Open(const std::string& path, CancelledIn progress) {
        try {
            auto document =
                std::make_unique<OpenDocument>(path, ReadingOptions(), m_pane.Observer(), &progress);
            Check(document->Document(), &progress);
            m_pane.Show(*document, &progress);
            m_document = std::move(document);
            EXPECT_EQ(progress.Heard().size(), 4u);
            return true;
        } catch (const ReadingCancelled&) {
            return false;
        }
    }

    const platform::ScratchFolder m_folder;
    const std::string m_path = m_folder.Path() / "large.xml";
    const std::string m_packed = m_folder.Path() / "large.xml.gz";
    const std::string m_small = m_folder.Path() / "small.xml";
    GridPane m_pane;
    std::unique_ptr<OpenDocument> m_document;
};

TEST_F(ReadingProgressTest, EndsInEachPhaseWithNothingShown) {
    using Phase = ReadingProgress::Phase;
    for (const std::string& path : {m_path, m_packed})
        for (const Phase phase : {Phase::File, Phase::Elements, Phase::Values, Phase::Rows}) {
            SCOPED_TRACE(path + ", phase " + std::to_string(static_cast<int>(phase)));
            if (phase == Phase::File && path == m_packed)
                continue; // smaller than one step
            EXPECT_FALSE(Open(path, CancelledIn(phase)));
            EXPECT_EQ(m_pane.Count().members, 0u);
            EXPECT_TRUE(Open(m_small, CancelledIn(std::nullopt)));
            EXPECT_EQ(m_pane.Count().members, 1u);
            m_pane.Clear();
        }
    EXPECT_TRUE(Open(m_packed, CancelledIn(std::nullopt)));
    m_pane.Clear();
}

// For the thread sanitizer above all.
TEST_F(ReadingProgressTest, ReadsInAThreadWhileAnotherDocumentIsShown) {
    EXPECT_TRUE(Open(m_small, CancelledIn(std::nullopt)));
    std::atomic<bool> hasEnded = false;
    std::thread reader([&] {
        CheckedDocument read = ReadAndCheck(m_path, {}, m_pane.Observer(), nullptr);
        EXPECT_EQ(read.findings.list.size(), 0u);
        hasEnded = true;
    });
    while (!hasEnded) {
        m_pane.Show(*m_document);
        EXPECT_EQ(m_pane.Count().members, 1u);
    }
    reader.join();
    m_pane.Clear();
}

} // namespace
} // namespace korvel::inspector

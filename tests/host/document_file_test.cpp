#include "editing/document_file.h"
#include "source/document_error.h"
#include "source/gzip.h"
#include "support/scratch.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace korvel::inspector {
namespace {

using ::testing::HasSubstr;
using State = DocumentFile::State;

constexpr const char* Source = "<?xml version='1.0' encoding='ISO-8859-1'?>\r\n<LandXML  a = \"\xE4\"/>\n";
constexpr const char* Changed =
    "<?xml version='1.0' encoding='ISO-8859-1'?>\r\n<LandXML  a = \"\xC3\xB6\"/>\n";

struct DocumentFileTest : ::testing::Test {
    std::string PathOf(const char* name) const { return folder.Path() / name; }
    void Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(name, std::ios::binary) << bytes;
    }

    platform::ScratchStore folder; // settings that name no language: none is chosen for the other tests
    const std::string path = PathOf("a.xml");
};

TEST_F(DocumentFileTest, WritesInTheFormThatItWasReadIn) {
    const std::string expected = "<?xml version='1.0' encoding='ISO-8859-1'?>\r\n<LandXML  a = \"\xF6\"/>\n";
    for (const bool isPacked : {false, true}) {
        SCOPED_TRACE(isPacked);
        Write(path, isPacked ? Pack(Source) : Source);
        const LandXmlDocument document(path, {});
        DocumentFile file(path, document);
        const auto written = [&] {
            return isPacked ? ReadSourceFile(path).bytes : platform::ContentOf(path);
        };
        const FileStamp before = *StampOf(path);
        file.Write(document.Tree().Source());
        EXPECT_EQ(StampOf(path), before) << "nothing to write";
        file.Write(Changed);
        EXPECT_EQ(written(), expected);
        EXPECT_EQ(ReadSourceFile(path).isPacked, isPacked);
        EXPECT_EQ(file.GetState(), State::AsKnown);
        file.Write(document.Tree().Source());
        EXPECT_EQ(written(), Source) << "back again";
        EXPECT_THROW(file.Write("<a b='\xE2\x82\xAC'/>"), DocumentError);
        EXPECT_EQ(written(), Source);
    }
}

TEST_F(DocumentFileTest, SeesWhatOthersDoToTheFile) {
    Write(path, Source);
    const LandXmlDocument document(path, {});
    DocumentFile file(path, document);
    Write(path, Source);
    EXPECT_EQ(file.GetState(), State::AsKnown) << "written again, with the same bytes";
    Write(path, std::string(Source) + " ");
    EXPECT_EQ(file.GetState(), State::Changed);
    std::filesystem::remove(path);
    EXPECT_EQ(file.GetState(), State::Gone);
    mkdir(path.c_str(), 0700);
    EXPECT_EQ(file.GetState(), State::Changed);
    EXPECT_THROW(file.Write(Changed), DocumentError);
    std::filesystem::remove(path);
    file.Write(document.Tree().Source());
    EXPECT_EQ(platform::ContentOf(path), Source) << "what has gone comes back";
}

TEST_F(DocumentFileTest, GoesOnInTheFileThatItWasWrittenToLast) {
    const std::string packed = PathOf("b.xml.gz");
    const std::string copy = PathOf("C.XML.GZ");
    Write(path, Source);
    const LandXmlDocument document(path, {});
    DocumentFile file(path, document);
    file.WriteAs(packed, Changed);
    EXPECT_EQ(platform::ContentOf(path), Source);
    EXPECT_TRUE(ReadSourceFile(packed).isPacked);
    EXPECT_EQ(file.Path(), packed);

    Write(packed, Pack("<a>") + Pack("</a>")); // in another way than it would be packed here
    const LandXmlDocument other(packed, {});
    DocumentFile otherFile(packed, other);
    otherFile.WriteAs(copy, other.Tree().Source());
    EXPECT_EQ(platform::ContentOf(copy), platform::ContentOf(packed));
    otherFile.WriteAs(path, other.Tree().Source());
    EXPECT_EQ(platform::ContentOf(path), "<a></a>");
    EXPECT_THROW(otherFile.WriteAs(PathOf("none/d.xml"), "<a/>"), DocumentError);
    EXPECT_EQ(otherFile.Path(), path);
}

TEST_F(DocumentFileTest, AFileThatCannotBeWrittenAgainAsItIsIsShownOnly) {
    const std::pair<std::string, const char*> cases[] = {
        {"<LandXML a='\xE4'/>",
         "position 13: the bytes are not UTF-8, and no other encoding is declared; --encoding"},
        {"<?xml version='1.0' encoding='Shift_JIS'?><LandXML a='\x87\x90'/>", "several ways"}, // also 81 E0
    };
    for (const auto& [bytes, notice] : cases) {
        Write(path, bytes);
        const LandXmlDocument document(path, {});
        ASSERT_EQ(document.Notices().size(), 1u) << bytes;
        EXPECT_THAT(document.Notices()[0], HasSubstr(notice));
        EXPECT_TRUE(document.IsReadOnly());
    }
    Write(path, Source);
    EXPECT_FALSE(LandXmlDocument(path, {}).IsReadOnly());
}

} // namespace
} // namespace korvel::inspector

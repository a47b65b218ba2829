#include "korvel/platform/error.h"
#include "source/document_reader.h"
#include "source/start_tag.h"

#include <gtest/gtest.h>

namespace korvel::inspector {
namespace {

bool IsLatin1(char32_t character) {
    return character < 0x100;
}

TEST(StartTag, ChangesOneValueAndNothingElse) {
    struct Row {
        const char* name;
        const char* value;
        const char* tag;
    };
    const Row rows[] = {
        {"b", "x", "<a b = 'x'\r\n\tc=\"2\" d='&#52;' />"},
        {"c", "<\"&'>", "<a b = '1'\r\n\tc=\"&lt;&quot;&amp;'>\" d='&#52;' />"},
        {"b", "'\"", "<a b = '&apos;\"'\r\n\tc=\"2\" d='&#52;' />"},
        {"d", "\t\n\r", "<a b = '1'\r\n\tc=\"2\" d='&#9;&#10;&#13;' />"},
        {"c", "\xC3\xA4\xC5\x81", "<a b = '1'\r\n\tc=\"\xC3\xA4&#321;\" d='&#52;' />"},
        {"d", "", "<a b = '1'\r\n\tc=\"2\" d='' />"},
        {"d", "4&4", "<a b = '1'\r\n\tc=\"2\" d='&#52;&amp;4' />"},
    };
    for (const Row& row : rows) {
        const std::string tag =
            SetAttribute("<a b = '1'\r\n\tc=\"2\" d='&#52;' />", row.name, row.value, IsLatin1);
        EXPECT_EQ(tag, row.tag);
        const ElementTree tree = ReadElements(tag);
        EXPECT_EQ(DecodeXmlAttribute(tree.FindAttribute(0, row.name), 100).utf8, row.value);
    }
}

TEST(StartTag, AddsInTheStyleOfTheOthersAndRemovesWithTheBlankBefore) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"<a>", "<a n=\"1\">", "alone"},
        {"<a/>", "<a n=\"1\"/>", "alone in an empty element"},
        {"<a b='2' >", "<a b='2' n='1' >", "before the blank at the end"},
        {"<a b=\"2\"\n   c = '3'/>", "<a b=\"2\"\n   c = '3'\n   n = '1'/>", "like the last one"},
    };
    for (const auto& [tag, added, row] : rows) {
        EXPECT_EQ(AddAttribute(tag, "n", "1", {}), added) << row;
        EXPECT_EQ(RemoveAttribute(added, "n"), tag) << row;
    }
    EXPECT_EQ(RemoveAttribute("<a b='2'\n c='3' d='4'>", "c"), "<a b='2' d='4'>");
    EXPECT_EQ(RenameAttribute("<a b='b' bb='b'>", "b", "c"), "<a c='b' bb='b'>");
    EXPECT_EQ(RenameAttribute("<a ab='b' b='c'>", "b", "d"), "<a ab='b' d='c'>");
}

TEST(StartTag, RefusesWhatXmlDoesNotAllow) {
    for (const char* value : {"a\x01", "\x1F", "\xEF\xBF\xBF"}) {
        EXPECT_THROW(SetAttribute("<a b='1'>", "b", value, {}), Error) << value;
        EXPECT_THROW(RewriteText({}, value, "\n", {}), Error) << value;
    }
    for (const char* name :
         {"", "1a", "a b", "a:b:c", ":a", "a:", "a:1", "xmlns", "xmlns:p", "a=", "\xC5\x81"})
        EXPECT_THROW(CheckAttributeName(name, IsLatin1), Error) << name;
    for (const char* name : {"a", "a:b", "_", "\xC3\xA4", "xmlnsp"})
        EXPECT_NO_THROW(CheckAttributeName(name, IsLatin1)) << name;
}

TEST(StartTag, ATextKeepsWhatIsWrittenAroundTheEdit) {
    struct Row {
        const char* name;
        const char* raw;
        const char* utf8;
        const char* lineEnd;
        const char* written;
    };
    const Row rows[] = {
        {"one letter", "a&#228;\r\n\tb&#10;c\rd", "a\xC3\xA4\n\tB\nc\nd", "\r\n", "a&#228;\r\n\tB&#10;c\rd"},
        {"a semicolon, no reference", "a&amp;b;&#99;\r\n", "x&b;c\n", "\n", "x&amp;b;&#99;\r\n"},
        {"a line more", "a\r\nb", "a\nx\ty\nb", "\r\n", "a\r\nx\ty\r\nb"},
        {"another text", "a&amp;", "<\r&", "\n", "&lt;&#13;&amp;"},
        {"the end of a section", "x>y", "]]>y", "\n", "]]&gt;y"},
        {"two line ends that meet", "a\rx\nb", "a\n\nb", "\n", "a\n\nb"},
        {"a letter twice", "aa", "aaa", "\n", "aaa"},
        {"less of the same", "aba", "a", "\n", "a"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(RewriteText(row.raw, row.utf8, row.lineEnd, {}), row.written) << row.name;
        EXPECT_EQ(DecodeXmlText(row.written, 100).utf8, row.utf8) << row.name;
    }
}

TEST(StartTag, NamesTheAttributesThatDiffer) {
    EXPECT_EQ(ChangedAttributes("<a b='1' c='2' d='3'>", "<a d='3' c='x' e='4'>"),
              (std::vector<std::string>{"c", "e", "b"}));
    EXPECT_TRUE(ChangedAttributes("<a b='1'>", "<a  b=\"1\" >").empty());
}

TEST(ElementTree, SplicesEditsIntoTheSource) {
    const std::string source =
        "<?xml version='1.0'?>\r\n<a b='\xC3\xA4'><!-- c --><d e='1'/>one &lt; <f>2</f> two</a>\r\n";
    ElementTree tree = ReadElements(source);
    const std::size_t first = tree.Texts(0)[0].offset;
    tree.ReplaceStartTag(0, "<a b='\xC3\xA5'>");
    tree.ReplaceStartTag(1, "<d/>");
    tree.ReplaceText(0, first, "ONE");
    tree.ReplaceText(2, tree.Text(2).offset, "");
    EXPECT_EQ(tree.EditedSource(),
              "<?xml version='1.0'?>\r\n<a b='\xC3\xA5'><!-- c --><d/>ONE <f></f> two</a>\r\n");
    EXPECT_EQ(tree.Text(0, first).raw, "ONE");
    EXPECT_EQ(tree.Texts(0)[1].raw, "two");
    EXPECT_EQ(tree.Texts(2).size(), 1u) << "a text that was emptied can be filled again";
    EXPECT_TRUE(tree.Attributes(1).empty());

    std::size_t end = 0;
    for (const ElementTree::Piece& piece : tree.Pieces()) {
        EXPECT_EQ(piece.begin, end) << "without a gap";
        end = piece.end;
        if (!piece.isEdited)
            EXPECT_EQ(piece.text, std::string_view(source).substr(piece.begin, piece.end - piece.begin));
        else if (piece.begin < source.find("<!--"))
            EXPECT_EQ(piece.text, "\xC3\xA5") << "a whole character, and no more of the tag";
    }
    EXPECT_EQ(end, source.size());

    tree.ReplaceStartTag(0, "<a b='\xC3\xA4'>");
    tree.ReplaceStartTag(1, "<d e='1'/>");
    tree.ReplaceText(0, first, "one &lt;");
    tree.ReplaceText(2, tree.Text(2).offset, "2");
    EXPECT_EQ(tree.EditedSource(), source);
    EXPECT_EQ(tree.Pieces().size(), 1u);
}

} // namespace
} // namespace korvel::inspector

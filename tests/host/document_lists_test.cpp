#include "landxml/document_lists.h"
#include "landxml/landxml_document.h"
#include "support/german_machine.h"
#include "support/test_enumeration.h"

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korvel::inspector {
namespace {

using ::testing::ElementsAre;
using Strings = std::vector<std::string>;

Strings NamesOf(IEnumValue& list) {
    Strings names;
    for (EnumPosition position = list.GetFirstPosition(); position;) {
        CVariantValue name;
        EXPECT_TRUE(list.GetName(list.GetNext(position), name));
        names.push_back(name.Text);
    }
    return names;
}

class DocumentListsTest : public GermanMachine {
protected:
    // "title: used words" of each list of a document, after each word how often it is used.
    Strings Read(const std::string& content) {
        const std::string path = m_folder.Path() / "document.xml";
        std::ofstream(path) << "<LandXML xmlns='http://www.landxml.org/schema/LandXML-1.2' version='1.2'>"
                            << content << "</LandXML>";
        m_lists = std::make_unique<DocumentLists>(LandXmlDocument(path, {}), "pictures");
        Strings texts;
        for (const DocumentList& list : m_lists->All()) {
            texts.push_back(list.title + ": " + list.used.ToText());
            for (const auto& [id, count] : list.counts)
                texts.back() += " " + std::to_string(count);
        }
        return texts;
    }

    std::unique_ptr<DocumentLists> m_lists;

private:
    platform::ScratchFolder m_folder;
};

TEST_F(DocumentListsTest, FindsWhatADocumentUses) {
    const std::tuple<const char*, const char*, Strings> cases[] = {
        {"none", "<Alignments name='A'/>", {}},
        {"titles are sorted", "<Curve rot='cw' crvType='arc'/>", {"Curve crvType: arc 1", "rot: cw 1"}},
        {"used twice, in the order of the words",
         "<Curve rot='ccw'/><Curve rot='cw'/><Spiral rot='ccw'/>",
         {"rot: cw; ccw 1 2"}},
        {"one list at two places",
         "<Spiral spiType='bloss'/><CantStation transitionType='cubic'/>",
         {"CantStation transitionType, Spiral spiType: bloss; cubic 1 1"}},
        {"one word in two lists",
         "<Definition surfType='grid'/><SurfVolumes surfVolCalcMethod='grid'/>",
         {"Definition surfType: grid 1", "SurfVolumes surfVolCalcMethod: grid 1"}},
        {"a word that is none", "<Curve rot='sideways'/>", {}},
        {"blanks at the ends of a word",
         "<Classification functionalClass=' collector'/>",
         {"Classification functionalClass: collector  1"}},
        {"the text of an element", "<AdverseSE>adverse</AdverseSE>", {"AdverseSE: adverse 1"}},
        {"another namespace", "<x:Curve xmlns:x='urn:x' rot='cw'/><Curve xmlns:x='urn:x' x:rot='cw'/>", {}},
        {"codes as they occur",
         "<Feature code='b'/><CgPoint code='a'/><Feature code='b'/><P code=''/>",
         {"code: a; b 1 2"}},
    };
    for (const auto& [name, xml, lists] : cases)
        EXPECT_EQ(Read(xml), lists) << name;
}

TEST_F(DocumentListsTest, AnEnumerationHasAllItsWordsAndPictures) {
    Read("<Definition surfType='grid'/><Feature code='x'/>");
    EditableWordList& surfaces = m_lists->All()[0].words;
    EXPECT_THAT(NamesOf(surfaces), ElementsAre("TIN", "grid"));
    EXPECT_TRUE(surfaces.SetName(1, TextValue("raster")));
    EXPECT_EQ(surfaces.GetImagePath(1), "pictures/Definition-surfType/grid.png") << "stays with its entry";
    const long added = surfaces.AddValue("points", "");
    EXPECT_EQ(surfaces.GetImagePath(added), "");
    EXPECT_EQ(surfaces.GetImagePath(99), "");
    EXPECT_EQ(m_lists->All()[1].words.GetImagePath(0), "") << "codes have none";
}

TEST_F(DocumentListsTest, AMarkOfUseStays) {
    Read("<Curve rot='cw'/>");
    DocumentList& list = m_lists->All()[0];
    list.words.Select(1, list.used);
    list.words.Deselect(0, list.used);
    EXPECT_EQ(list.used.ToText(), "cw; ccw");
    list.words.Deselect(1, list.used);
    EXPECT_EQ(list.used.ToText(), "cw");
}

TEST(LandXmlEnumeration, KeepsTheSpellingOfItsWords) {
    LandXmlEnumeration* words = TypeOfAttribute("Classification", "functionalClass").enumeration;
    EXPECT_THAT(NamesOf(*words), ElementsAre("arterial", "collector ", "local"));
    CVariantValue value;
    words->Select(1, value);
    words->Deselect(0, value); // another entry is meant
    words->Select(-1, value);
    EXPECT_EQ(value.Text, "collector ") << "as it is to be written";
    EXPECT_TRUE(words->IsValue(1, value));
    EXPECT_FALSE(words->GetName(3, value));
}

TEST(EditableWordList, AWordOutsideTheFolderIsNoPicture) {
    EditableWordList list({"../secret", "a.b", "plain"}, 0);
    list.SetImageFolder("pictures");
    EXPECT_EQ(list.GetImagePath(0), "");
    EXPECT_EQ(list.GetImagePath(1), "");
    EXPECT_EQ(list.GetImagePath(2), "pictures/plain.png");
}

TEST(EditableWordList, AddsAndRenamesToNewNamesOnly) {
    EditableWordList list({"a", "b"}, ENF_CheckBoxes);
    int changes = 0;
    list.SetChanged([&] { ++changes; });
    EXPECT_EQ(list.AddValue("", ""), -1);
    EXPECT_EQ(list.AddValue("", "group"), -1);
    EXPECT_EQ(list.AddValue("a", ""), -1);
    EXPECT_FALSE(list.SetName(0, TextValue("")));
    EXPECT_FALSE(list.SetName(0, TextValue("b")));
    EXPECT_FALSE(list.SetName(7, TextValue("c")));
    EXPECT_EQ(changes, 0);
    EXPECT_THAT(NamesOf(list), ElementsAre("a", "b"));

    EXPECT_EQ(list.AddValue("a", "group"), 2) << "the same name at another place";
    EXPECT_TRUE(list.SetName(0, TextValue("c")));
    EXPECT_EQ(list.AddValue("a", ""), 3) << "the former name is free";
    EXPECT_THAT(NamesOf(list), ElementsAre("c", "b", "group/a", "a"));
    EXPECT_EQ(changes, 3);
}

TEST(EditableWordList, ARemovedNumberIsNotGivenAgain) {
    EditableWordList list({"a", "b"}, ENF_CheckBoxes);
    CVariantValue value = list.Selected({0, 1});
    list.RemoveValue(1);
    list.RemoveValue(1);
    EXPECT_EQ(list.AddValue("b", ""), 2) << "its name is";
    EXPECT_EQ(value.ToText(), "a") << "what takes the place of a selected entry is not selected";
    list.Select(1, value);
    EXPECT_FALSE(list.IsValue(1, value));
}

TEST(EditableWordList, ChecksOneOrSeveral) {
    EditableWordList several({"a", "b", "c"}, ENF_CheckBoxes);
    CVariantValue value = several.Selected({2});
    several.Select(0, value);
    EXPECT_EQ(value.ToText(), "a; c");
    several.Deselect(2, value);
    several.Deselect(1, value);
    EXPECT_EQ(value.ToText(), "a");

    EditableWordList one({"a", "b", "c"}, 0);
    value = one.Selected({2});
    one.Select(0, value);
    EXPECT_EQ(EditableWordList::FirstSelected(value), 0);
    EXPECT_EQ(value.ToText(), "a");
    one.Select(-1, value);
    one.Select(3, value);
    EXPECT_EQ(value.ToText(), "a");
    one.Deselect(0, value);
    EXPECT_EQ(EditableWordList::FirstSelected(value), -1);
}

} // namespace
} // namespace korvel::inspector

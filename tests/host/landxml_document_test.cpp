#include "korvel/values/member_dispatch_imp.h"
#include "landxml/landxml_document.h"
#include "program/list_writer.h"
#include "source/source_file.h"
#include "support/german_machine.h"
#include "support/make_value.h"

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace korvel::inspector {
namespace {

class LandXmlDocumentTest : public GermanMachine {
protected:
    LandXmlDocument& Open(const std::string& xml, const ReadingOptions& options = {}) {
        const std::string path = m_folder.Path() / "document.xml";
        std::ofstream(path) << xml;
        m_document = std::make_unique<LandXmlDocument>(path, options);
        return *m_document;
    }

    static std::list<std::string> Names(IMemberDispatch& object) {
        std::list<std::string> names{"left over"};
        object.GetMemberNames(names);
        return names;
    }

    static std::string ListOf(IMemberDispatch& object) {
        std::ostringstream out;
        WriteList(object, out);
        return out.str();
    }

    static IMemberDispatch& Child(IMemberDispatch& object, const std::string& name) {
        CVariantValue value;
        EXPECT_TRUE(object.GetMember(name, value)) << name;
        EXPECT_EQ(value.Type, DT_Group);
        return *value.Value.Dispatch;
    }

private:
    platform::ScratchFolder m_folder;
    std::unique_ptr<LandXmlDocument> m_document;
};

TEST_F(LandXmlDocumentTest, ShowsWholeDocuments) {
    SetAngleUnit('d');
    for (const std::string name : {"railway", "imperial"}) {
        const std::string path = KORVEL_TEST_DATA "/" + name;
        LandXmlDocument document(path + ".xml", {});
        const std::string expected = ReadSourceFile(path + ".list").bytes;
        EXPECT_EQ(ListOf(document.Root()), expected);
        std::ostringstream forgetting;
        WriteList(document.Root(), forgetting, [&](IMemberDispatch& written) {
            document.Forget(static_cast<ElementObject&>(written).Element());
        });
        EXPECT_EQ(forgetting.str(), expected);
        EXPECT_EQ(ListOf(document.Root()), expected) << "with objects made anew";
    }
}

TEST_F(LandXmlDocumentTest, NamesAreUniqueInOneObject) {
    const std::tuple<const char*, const char*, std::list<std::string>> cases[] = {
        {"an only child has no number", "<a><b/></a>", {"b"}},
        {"children without names are numbered", "<a><b/><c/><b/></a>", {"b 1", "c", "b 2"}},
        {"one name twice", "<a><b name='x'/><b name='x'/><b id='x'/></a>", {"b x", "b x (2)", "b x (3)"}},
        {"a number that is a name already", "<a><b/><b/><b id='2'/></a>", {"b 1", "b 2", "b 2 (2)"}},
        {"a bracket that is a name already",
         "<a><b id='x'/><b id='x (2)'/><b id='x'/></a>",
         {"b x", "b x (2)", "b x (3)"}},
        {"name goes before id", "<a><b id='i' name=' n '/></a>", {"b n"}},
        {"blank names are none", "<a><b name=' ' id=''/></a>", {"b"}},
        {"an element like an attribute", "<a b='1'><b/></a>", {"b", "b (2)"}},
        {"an attribute like the text", "<a text='1'>x</a>", {"text", "text (2)"}},
        {"texts in their places", "<a><b/>one<b/>two<c/></a>", {"b 1", "text", "b 2", "text (2)", "c"}},
    };
    for (const auto& [row, xml, names] : cases) {
        SCOPED_TRACE(row);
        ElementObject& root = Open(xml).Root();
        EXPECT_EQ(Names(root), names);
        std::set<ElementIndex> elements;
        for (const std::string& name : names) {
            CVariantValue value;
            ASSERT_TRUE(root.GetMember(name, value)) << name;
            if (value.Type == DT_Group) {
                EXPECT_EQ(value.Value.Dispatch->GetIdent(), name);
                elements.insert(static_cast<ElementObject*>(value.Value.Dispatch)->Element());
            }
        }
        EXPECT_EQ(elements.size(), Open(xml).Tree().Count() - 1) << "each name has its own";
    }
}

TEST_F(LandXmlDocumentTest, FindsEachOfManyMembers) {
    constexpr int Count = 50'000; // a cost with the square of it would take minutes
    std::string xml = "<LandXML><Pnts>";
    for (int i = 0; i < Count; ++i)
        xml += "<P id='" + std::to_string(i % 2 == 0 ? i : 7) + "'>" + std::to_string(i) + " 0</P>";
    LandXmlDocument& document = Open(xml + "</Pnts></LandXML>");
    IMemberDispatch& points = Child(document.Root(), "Pnts");
    const std::list<std::string> names = Names(points);
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), static_cast<std::size_t>(Count));
    int i = 0;
    for (const std::string& name : names) {
        CVariantValue value;
        ASSERT_TRUE(points.GetMember(name, value)) << name;
        ASSERT_EQ(value.Text, std::to_string(i++) + " 0");
    }
}

TEST_F(LandXmlDocumentTest, AnAbsentMemberChangesNothing) {
    ElementObject& root = Open("<a b='1'/>").Root();
    CVariantValue value;
    value.Text = "kept";
    EDataTyps type = DT_Bool;
    EXPECT_FALSE(root.GetMember("c", value));
    EXPECT_FALSE(root.GetMemberType("c", type));
    EXPECT_FALSE(root.IsMemberEditable("c"));
    EXPECT_EQ(value.Text, "kept");
    EXPECT_EQ(type, DT_Bool);
    EXPECT_EQ(root.GetOptions(), DO_KeepOrder);
}

TEST_F(LandXmlDocumentTest, AllowsEditsWhereTheFileCouldBeChanged) {
    LandXmlDocument& document =
        Open("<LandXML xmlns:o='urn:o' version='1.2' o:n='x' desc='\xC5\x81' date='bad'>"
             "<A>x&amp;y</A><B>x<!-- c -->y</B><C>x<D/>y</C></LandXML>");
    const auto isEditable = [&](const char* element, const char* member) {
        IMemberDispatch& root = document.Root();
        return (*element ? Child(root, element) : root).IsMemberEditable(member);
    };
    EXPECT_TRUE(isEditable("", "version"));
    EXPECT_TRUE(isEditable("", "o:n [foreign]"));
    EXPECT_TRUE(isEditable("", "date [invalid]"));
    EXPECT_FALSE(isEditable("", "xmlns:o"));
    EXPECT_TRUE(isEditable("", "desc")) << "a letter that the code page lacks";
    EXPECT_FALSE(isEditable("", "A")) << "an object";
    EXPECT_TRUE(isEditable("A", "text"));
    EXPECT_FALSE(isEditable("B", "text")) << "there is a comment in it";
    EXPECT_TRUE(isEditable("C", "text"));
    EXPECT_TRUE(isEditable("C", "text (2)"));
}

TEST_F(LandXmlDocumentTest, ShowsUnknownVersionsReadOnly) {
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"<LandXML version='1.2'/>", {}},
        {"<LandXML version='1.2' xmlns='http://www.landxml.org/schema/LandXML-1.0'/>", {}},
        {"<l:LandXML version='1.2' xmlns:l='http://www.landxml.org/schema/LandXML-2.0'/>", {}},
        {"<LandXML version='1.2' xmlns='http://www.inframodel.fi/inframodel'/>", {}},
        {"<LandXML version='1.2' xmlns='http://buildingsmart.fi/inframodel/404'/>", {}},
        {"<LandXML version='1.2' xmlns='LandXML-99.0'/>",
         {"unknown LandXML version 'LandXML-99.0': shown, but read-only"}},
        {"<html version='1.2'/>", {"no LandXML document, its root element is 'html': shown, but read-only"}},
    };
    for (const auto& [xml, notices] : cases) {
        LandXmlDocument& document = Open(xml);
        EXPECT_EQ(document.Notices(), notices) << xml;
        EXPECT_EQ(document.Root().IsMemberEditable("version"), notices.empty()) << xml;
    }
}

TEST_F(LandXmlDocumentTest, AnOptionOverridesTheKindOfStation) {
    const std::string xml = "<LandXML><Alignment name='r' staStart='1'><Cant/></Alignment>"
                            "<Alignment name='s' staStart='1'/></LandXML>";
    const std::tuple<StationKind, EDataTyps, EDataTyps> cases[] = {
        {StationKind::Automatic, DT_RailwayStationDouble, DT_RoadStationDouble},
        {StationKind::Road, DT_RoadStationDouble, DT_RoadStationDouble},
        {StationKind::Railway, DT_RailwayStationDouble, DT_RailwayStationDouble},
    };
    for (const auto& [stations, rail, road] : cases) {
        IMemberDispatch& root = Open(xml, {.stations = stations}).Root();
        EDataTyps type = DT_Void;
        EXPECT_TRUE(Child(root, "Alignment r").GetMemberType("staStart", type));
        EXPECT_EQ(type, rail);
        EXPECT_TRUE(Child(root, "Alignment s").GetMemberType("staStart", type));
        EXPECT_EQ(type, road);
    }
}

TEST_F(LandXmlDocumentTest, AlignmentsShowLengthAndStations) {
    const std::string units = "<Units><Metric linearUnit='meter'/></Units>";
    const std::pair<const char*, const char*> cases[] = {
        {"length='1234.5' staStart='10'", "1.234,50 m, 0+010,00 - 1+244,50"},
        {"length='1234.5' staStart='10' staEnd='20'", "1.234,50 m, 0+010,00 - 0+020,00"},
        {"length='1234.5'", "1.234,50 m"},
        {"staStart='10'", "0+010,00"},
        {"length='x' staStart='10'", "x, 0+010,00"},
        {"length='INF' staStart='NaN'", "INF, NaN"},
        {"", ""},
    };
    for (const auto& [attributes, text] : cases) {
        SCOPED_TRACE(attributes);
        IMemberDispatch& root =
            Open("<LandXML>" + units + "<Alignment name='a' " + attributes + "/></LandXML>").Root();
        IMemberDispatch& alignment = Child(root, "Alignment a");
        auto* presentation = dynamic_cast<GroupPresentation*>(alignment.m_pEnumValue);
        ASSERT_NE(presentation, nullptr);
        EXPECT_EQ(presentation->GetPresentationKind(), 1);
        EXPECT_EQ(presentation->GetPresentationText(nullptr), text);
        EXPECT_EQ(presentation->GetPresentationText("name"), "a");
        EXPECT_EQ(presentation->GetPresentationText("nothing"), "");
        EXPECT_EQ(dynamic_cast<WordList*>(presentation)->GetFirstPosition(), nullptr);
        EXPECT_EQ(Child(root, "Units").m_pEnumValue, nullptr);
    }
}

TEST_F(LandXmlDocumentTest, MixedTextsAreShownInTheirPlaces) {
    EXPECT_EQ(
        ListOf(Open("<LandXML><CgPoint name='1'><b/>1 2<!-- c --> 3<b/></CgPoint><CgPoint name='2'>1 2<b/>3"
                    "</CgPoint><Title>x &amp; <b/><!-- c --> y<c/></Title></LandXML>")
                   .Root()),
        "CgPoint 1\tCgPoint 1\n  name\t1\n  b 1\tb 1\n  northing\t1,00\n  easting\t2,00\n"
        "  elevation\t3,00\n  b 2\tb 2\n"
        "CgPoint 2\tCgPoint 2\n  name\t2\n  text [invalid]\t1 2\n  b\tb\n  text (2) [invalid]\t3\n"
        "Title\tTitle\n  text\tx &\n  b\tb\n  text (2)\ty\n  c\tc\n");
}

TEST_F(LandXmlDocumentTest, LongTextsAreCutInCellsOnlyAndSaySo) {
    const std::string longText(100'000, 'x');
    const std::string xml =
        "<LandXML n='" + longText + "'>" + longText + "<b id='" + longText + "'/></LandXML>";
    for (const std::size_t longest : {ReadingOptions().longestValue, ReadingOptions::All}) {
        const bool isCut = longest != ReadingOptions::All;
        ElementObject& root = Open(xml, {.longestValue = longest}).Root();
        for (const char* name : {"n", "text"}) {
            CVariantValue value;
            ASSERT_TRUE(root.GetMember(name, value));
            EXPECT_EQ(value.Text, isCut ? longText.substr(0, longest) + "..." : longText);
            EXPECT_EQ(root.IsMemberEditable(name), !isCut);
        }
        EXPECT_EQ(Names(root).back(), "b " + (isCut ? longText.substr(0, 200) + "..." : longText));
    }
}

TEST_F(LandXmlDocumentTest, AnElementsNamesStayWhileThoseInItAreAsked) {
    std::string children;
    for (int child = 0; child < 40; ++child) {
        children += "<b>";
        for (int leaf = 0; leaf < 130; ++leaf)
            children += "<c/>";
        children += "</b>";
    }
    LandXmlDocument& document = Open("<a d='1'>" + children + "</a>");
    const UniqueMemberNames* names = &document.NamesOf(0);
    std::vector<std::unique_ptr<UniqueMemberNames>> others; // where names that are made again could be
    std::ostringstream out;
    WriteList(document.Root(), out, [&](IMemberDispatch&) {
        others.push_back(std::make_unique<UniqueMemberNames>(document.Members(), 2));
        EXPECT_EQ(&document.NamesOf(0), names) << "made again, for which all values are read";
    });
}

// The member that was asked for last is known, but not longer than it is there.
TEST_F(LandXmlDocumentTest, AMemberIsFoundWhereAnEditHasMovedIt) {
    LandXmlDocument& document =
        Open("<LandXML><Units><Metric linearUnit='meter'/></Units><Line desc='a' length='1.5'/></LandXML>");
    const ElementIndex metric = 2;
    ElementObject& line = document.ObjectOf(3);
    const auto lengthOf = [&](const char* name) {
        CVariantValue value;
        return line.GetMember(name, value) ? value.Value.Double : 0;
    };
    EXPECT_EQ(lengthOf("length"), 1.5);
    EXPECT_TRUE(line.SetMember("desc", MakeValue(DT_String, "longer than before")));
    EXPECT_EQ(lengthOf("length"), 1.5) << "further back in its tag";
    EXPECT_TRUE(document.ObjectOf(metric).SetMember("linearUnit", MakeValue(DT_String, "millimeter")));
    EXPECT_EQ(lengthOf("length"), 0) << "named after another unit";
    EXPECT_EQ(lengthOf("length [mm]"), 1.5);
    EXPECT_TRUE(line.RemoveMember("length [mm]"));
    EXPECT_EQ(lengthOf("length [mm]"), 0) << "gone";
}

TEST_F(LandXmlDocumentTest, HasAUnitForItsAngles) {
    const std::pair<std::string, char> cases[] = {
        {"", 'r'},
        {"angularUnit='grads' directionUnit='radians'", 'g'},
        {"angularUnit='decimal dd.mm.ss'", '\xB0'},
        {"angularUnit='gradians' directionUnit='grads'", 'g'},
        {"angularUnit='gradians' directionUnit='turns'", '\xB0'},
    };
    for (const auto& [units, unit] : cases)
        EXPECT_EQ(Open("<LandXML><Units><Metric " + units + "/></Units></LandXML>").OwnAngleUnit(), unit)
            << units;
}

// A host's object as bad as it can be: it holds itself, and denies a member that it names.
class UnreliableObject : public TMemberDispatchImp<UnreliableObject> {
public:
    using TMemberDispatchImp::TMemberDispatchImp;
    void GetMemberNames(std::list<std::string>& names) override { names = {"self", "gone", "b\n\tc"}; }
    bool GetMember(const std::string& name, CVariantValue& value) override {
        value.Type = name == "self" ? DT_Group : DT_String;
        value.Value.Dispatch = this;
        value.Text = "1\r\n2";
        return name != "gone" || (value = CVariantValue(), false);
    }
};

TEST_F(LandXmlDocumentTest, ListsUnreliableObjects) {
    UnreliableObject object("it");
    EXPECT_EQ(ListOf(object), "b  c\t1  2\ngone\t\nself\tit\n");
}

} // namespace
} // namespace korvel::inspector

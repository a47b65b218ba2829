#include "host/edited_document.h"
#include "korvel/platform/code_page.h"
#include "landxml/enumeration_uses.h"
#include "landxml/landxml_enumerations.h"
#include "support/make_value.h"

namespace korvel::inspector {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

using MemberWriterTest = EditedDocumentTest;

const std::string Head =
    "<?xml version='1.0'?>\n<!-- c --><LandXML xmlns:o='urn:o' o:n=\"x\" version = '1.2'>";

struct Write {
    const char* row;
    const char* path;
    const char* member;
    CVariantValue value;
    const char* before;
    const char* after;
};

TEST_F(MemberWriterTest, WritesOneValueAndLeavesAllElse) {
    const std::string units = "<Units><Imperial linearUnit=\"foot\" angularUnit='grads' "
                              "directionUnit=\"decimal dd.mm.ss\"/></Units>";
    LandXmlEnumeration rotations("cw|ccw");
    const Write rows[] = {
        {"in feet", "Line", "length [ft]", MakeValue(DT_Double, 2.5), "<Line length='1.50' dir=\"0\"/>",
         "<Line length='2.5' dir=\"0\"/>"},
        {"an equal value", "Line", "length [ft]", MakeValue(DT_Double, 1.5), "<Line length='1.50'/>",
         "<Line length='1.50'/>"},
        {"an angle that the library reads as another double", "Line", "dir",
         MakeValue(DT_AngleDouble, 1.6635896653592617), "<Line dir='95.1900'/>", "<Line dir='95.1900'/>"},
        {"a direction", "Line", "dir", MakeValue(DT_AngleDouble, 0.0), "<Line dir = '45.3025' />",
         "<Line dir = '0' />"},
        {"a word of a list", "Curve", "rot", rotations.Selected("ccw"), "<Curve rot='cw'/>",
         "<Curve rot='ccw'/>"},
        {"an infinite one replaced", "Spiral", "radiusStart [ft]", MakeValue(DT_String, "12"),
         "<Spiral radiusStart='INF'/>", "<Spiral radiusStart='12'/>"},
        {"an invalid one replaced", "Monument", "date [invalid]", MakeValue(DT_String, "2018-01-02"),
         "<Monument date='2018-00-00'/>", "<Monument date='2018-01-02'/>"},
        {"a foreign one", "", "o:n [foreign]", MakeValue(DT_String, "a\"b"), "", ""},
        {"one part of a point", "Start", "easting [ft]", MakeValue(DT_Double, 7.0),
         "<Start> 1.0\n  2.0 <!-- no --></Start>", nullptr},
        {"a part of a plain point", "Start", "easting [ft]", MakeValue(DT_Double, 7.0),
         "<Start> 1.0\n  2.0\t3 </Start>", "<Start> 1.0\n  7\t3 </Start>"},
        {"a text", "Title", "text", MakeValue(DT_String, " a<b\r "), "<Title>\n x &amp; y </Title>",
         "<Title>\n a&lt;b </Title>"},
        {"an emptied text", "Title", "text", MakeValue(DT_String, ""), "<Title>x</Title>", "<Title></Title>"},
        {"the second text", "Title", "text (2)", MakeValue(DT_String, "z"), "<Title>x<b/> y </Title>",
         "<Title>x<b/> z </Title>"},
        {"a letter of several lines", "Title", "text", MakeValue(DT_String, "a\n\tB\nc"),
         "<Title>\r\n a\r\n\tb\r\nc</Title>", "<Title>\r\n a\r\n\tB\r\nc</Title>"},
        {"a point of a terrain", "Pnts", "P 1", MakeValue(DT_String, "4 5 6"),
         "<Pnts><P id='1'>1 2\n 3</P></Pnts>", "<Pnts><P id='1'>4 5\n 6</P></Pnts>"},
    };
    for (const Write& row : rows) {
        SCOPED_TRACE(row.row);
        std::string head = Head + units;
        Open(head + row.before + "</LandXML>");
        IMemberDispatch& object = At(row.path);
        if (!row.after) {
            EXPECT_THROW(object.SetMember(row.member, row.value), Error);
            continue;
        }
        EXPECT_TRUE(object.SetMember(row.member, row.value));
        if (*row.before == '\0')
            head.replace(head.find("\"x\""), 3, "\"a&quot;b\"");
        EXPECT_EQ(Text(), head + row.after + "</LandXML>");
        Rows().ExpectCurrent();
        Editing().Undo();
        EXPECT_EQ(Text(), Head + units + row.before + "</LandXML>");
        Rows().ExpectCurrent();
    }
}

TEST_F(MemberWriterTest, RefusesWhatTheFileMustNotBecome) {
    const std::string xml = Head + "<Line length='1' dir='2'/><P1>a<!-- c -->b</P1><Title>x</Title><Pnts><P "
                                   "id='1'>1 2</P><P id='2'/></Pnts>"
                                   "<F>1&#32;2</F></LandXML>";
    Open(xml, {.longestValue = 500});
    const auto set = [&](const char* path, const char* member, const CVariantValue& value) {
        return RefusalOf([&, m = std::string(member)] { EXPECT_TRUE(At(path).SetMember(m, value)); });
    };
    EXPECT_EQ(set("Line", "length", MakeValue(DT_String, "1,5")), "'1,5' is no value of 'length'");
    EXPECT_THAT(set("Title", "text", MakeValue(DT_String, "a\x01")), HasSubstr("U+0001"));
    EXPECT_THAT(set("Title", "text", MakeValue(DT_String, "<VB x/>")), HasSubstr("formulas"));
    EXPECT_THAT(set("Line", "length", MakeValue(static_cast<EDataTyps>(DT_Double | TypeBitButton), 2.0)),
                HasSubstr("formulas"));
    EXPECT_THAT(set("P1", "text", MakeValue(DT_String, "z")), HasSubstr("cannot be changed"));
    EXPECT_THAT(set("", "xmlns:o", MakeValue(DT_String, "z")), HasSubstr("cannot be changed"));
    EXPECT_THAT(set("Pnts", "P 1", MakeValue(DT_String, "1 x")), HasSubstr("is no value of"));
    EXPECT_THAT(set("Pnts", "P 2 [invalid]", MakeValue(DT_String, "1 2")), HasSubstr("cannot be changed"));
    EXPECT_FALSE(At("Pnts").IsMemberEditable("P 2 [invalid]")) << "there is no text to be replaced";
    EXPECT_FALSE(At("Line").SetMember("none", MakeValue(DT_Double, 1.0)));
    EXPECT_FALSE(At("Line").SetMember("length", MakeValue(DT_Bool, true)));
    EXPECT_FALSE(At("").SetMember("Line", MakeValue(DT_String, "x")));
    EXPECT_EQ(Text(), xml);
    EXPECT_FALSE(Editing().Steps().CanUndo());

    const std::string unknown = "<html xmlns='u' version='1.2'/>";
    Open(unknown);
    IMemberDispatch& root = At("");
    const std::string readOnly = "the document can only be read";
    EXPECT_EQ(RefusalOf([&] { root.SetMember("version", MakeValue(DT_String, "1")); }), readOnly);
    EXPECT_EQ(RefusalOf([&] { root.AddMember("a", true, MakeValue(DT_String, "1")); }), readOnly);
    EXPECT_EQ(RefusalOf([&] { root.RemoveMember("version"); }), readOnly);
    EXPECT_EQ(RefusalOf([&] { root.RenameMember("version", "v"); }), readOnly);
    EXPECT_EQ(RefusalOf([&] { root.ChangeMemberType("version", DT_String); }), readOnly);
    EXPECT_EQ(RefusalOf([&] { root.SetMemberEditable("version", false); }), readOnly);
    EXPECT_EQ(root.GetEditFlags(), 0u);
    EXPECT_EQ(root.GetMemberFlags("version"), 0u);
    EXPECT_EQ(Text(), unknown);
}

TEST_F(MemberWriterTest, AddsRemovesAndRenamesAttributes) {
    const std::string xml = Head + "<Line desc='d'\n  length='1.50'/><length/></LandXML>";
    Open(xml);
    IMemberDispatch& line = At("Line");
    EXPECT_TRUE(line.AddMember("delta", false, MakeValue(DT_AngleDouble, 0.5)));
    EXPECT_TRUE(line.AddMember("own", true, MakeValue(DT_Int, 7)));
    EXPECT_TRUE(line.AddMember("o:x", true, MakeValue(DT_String, "1'2")));
    EXPECT_THAT(Text(),
                HasSubstr("<Line desc='d'\n  length='1.50'\n  delta='0.5'\n  own='7'\n  o:x='1&apos;2'/>"));
    Rows().ExpectCurrent();
    EXPECT_THAT(Rows().TakeHeard(), ElementsAre("insert delta", "insert own", "insert o:x [foreign]"));
    EXPECT_FALSE(line.IsMemberEditable("delta"));
    CVariantValue own;
    EXPECT_TRUE(line.GetMember("own", own));
    EXPECT_EQ(own.Type, DT_Int) << "it is what the user said, as LandXML knows no such attribute";
    LandXmlEnumerations enumerations;
    IEnumValue* sides = enumerations.GetEnumValue({"side"});
    ASSERT_NE(sides, nullptr);
    std::size_t offered = 0;
    SEnumPosition position;
    for (enumerations.GetBegin(position); !position.end; enumerations.GetNext(position))
        ++offered;
    EXPECT_EQ(offered, EnumerationUses().size()) << "each under a name of its own";
    CVariantValue side = MakeValue(DT_ListString, "");
    side.EnumValue = sides;
    EXPECT_THROW(line.AddMember("lane", true, side), Error) << "no entry is chosen";
    CVariantValue noDay = MakeValue(DT_Date, 0.0);
    noDay.Text = "GDT_NONE";
    EXPECT_EQ(RefusalOf([&] { line.AddMember("when", true, noDay); }), "'when' needs a date");
    sides->Select(1, side);
    EXPECT_TRUE(line.AddMember("lane", true, side));
    EXPECT_THAT(Text(), HasSubstr("lane='left'"));
    EXPECT_TRUE(line.GetMember("lane", own));
    EXPECT_EQ(own.EnumValue, sides);
    EXPECT_TRUE(line.RemoveMember("lane"));
    Rows().TakeHeard();

    EXPECT_EQ(line.GetMemberLabel("o:x [foreign]"), "o:x");
    EXPECT_TRUE(line.OnRenameMember("o:x [foreign]", "o:x"));
    EXPECT_FALSE(line.OnRenameMember("own", "length"));
    EXPECT_TRUE(line.RenameMember("own", "Own"));
    EXPECT_TRUE(line.GetMember("Own", own));
    EXPECT_EQ(own.Type, DT_Int);
    EXPECT_TRUE(line.ChangeMemberType("Own", DT_Double));
    EXPECT_TRUE(line.SetMember("Own", MakeValue(DT_Double, 7.5)));
    EXPECT_TRUE(line.ChangeMemberType("Own", DT_Int));
    EXPECT_TRUE(line.GetMember("Own", own));
    EXPECT_EQ(own.Value.Int, 7);
    EXPECT_TRUE(line.RemoveMember("length"));
    EXPECT_THAT(Rows().TakeHeard(),
                ElementsAre("rename own -> Own", "retype Own", "change Own", "retype Own", "remove length"));
    Rows().ExpectCurrent();

    const std::string edited = Text();
    for (const char* name : {"desc", "1a", "", "a b", "p:a", "xmlns", "xmlns:q", "o:x"}) {
        EXPECT_THROW(line.AddMember(name, true, MakeValue(DT_String, "")), Error) << name;
        EXPECT_THROW(line.RenameMember("delta", name), Error) << name;
    }
    EXPECT_THROW(line.AddMember("length", true, MakeValue(DT_String, "x")), Error);
    EXPECT_THROW(line.AddMember("length", true, MakeValue(DT_Group, 0)), Error);
    EXPECT_THROW(At("").RemoveMember("Line"), Error);
    EXPECT_THROW(At("").RemoveMember("xmlns:o"), Error);
    EXPECT_THROW(At("").RenameMember("xmlns:o", "b"), Error);
    EXPECT_THROW(At("").RenameMember("length", "b"), Error) << "a child without a name";
    EXPECT_EQ(Text(), edited);
    while (Editing().Steps().CanUndo())
        Editing().Undo();
    EXPECT_EQ(Text(), xml);
    Rows().ExpectCurrent();
}

TEST_F(MemberWriterTest, ATypeLastsForTheRunAndOnlyWhatItCutsIsWritten) {
    Open(Head + "<Units><Metric angularUnit='decimal dd.mm.ss'/></Units><Line length='12.50' o:v='x' "
                "staStart='3' zeros='100.000' high='70000000000' nan='NaN' minutes='95.75'/></LandXML>");
    IMemberDispatch& line = At("Line");
    const auto shown = [&](const char* name) {
        CVariantValue value;
        EXPECT_TRUE(line.GetMember(name, value));
        return value;
    };
    EXPECT_TRUE(line.ChangeMemberType("length", DT_Float));
    EXPECT_EQ(shown("length").Value.Float, 12.5f);
    EXPECT_TRUE(line.ChangeMemberType("length", DT_String));
    EXPECT_EQ(shown("length").Text, "12.50");
    EXPECT_TRUE(line.ChangeMemberType("length", DT_AngleDouble));
    EXPECT_TRUE(Editing().Steps().IsClean());
    EXPECT_THAT(Text(), HasSubstr("length='12.50'"));
    EXPECT_TRUE(line.ChangeMemberType("length", DT_Int));
    EXPECT_EQ(shown("length").Value.Int, 12);
    EXPECT_THAT(Text(), HasSubstr("length='12'"));
    EXPECT_FALSE(Editing().Steps().IsClean());
    EXPECT_TRUE(line.SetMember("length", MakeValue(DT_Int, 13)));
    EXPECT_THAT(Text(), HasSubstr("length='13'"));
    EXPECT_TRUE(line.ChangeMemberType("staStart", DT_UInt));
    EXPECT_THAT(Text(), HasSubstr("staStart='3'"));
    EXPECT_ANY_THROW(line.ChangeMemberType("o:v [foreign]", DT_Double));
    EXPECT_TRUE(line.ChangeMemberType("zeros", DT_Int));
    EXPECT_EQ(shown("zeros").Value.Int, 100);
    EXPECT_THAT(Text(), HasSubstr("zeros='100'"));
    EXPECT_ANY_THROW(line.ChangeMemberType("high", DT_Int));
    EXPECT_ANY_THROW(line.ChangeMemberType("high", DT_UInt));
    EXPECT_ANY_THROW(line.ChangeMemberType("nan", DT_Int));
    EXPECT_ANY_THROW(line.ChangeMemberType("minutes", DT_AngleDouble)) << "75 minutes";
    EXPECT_THAT(Text(), HasSubstr("high='70000000000' nan='NaN' minutes='95.75'"));
    EXPECT_TRUE(line.ChangeMemberType("staStart", DT_String));
    EXPECT_TRUE(line.GetMemberFlags("staStart") & MF_ChangeType) << "and back";
    EXPECT_TRUE(line.ChangeMemberType("staStart", DT_Double));
    EXPECT_EQ(shown("staStart").Type, DT_RoadStationDouble);
    for (int time = 1; time <= 2; ++time) {
        EXPECT_TRUE(line.ChangeMemberType("staStart", DT_Double));
        EXPECT_EQ(shown("staStart").Type, DT_Double) << time;
    }
    Rows().ExpectCurrent();
    while (Editing().Steps().CanUndo())
        Editing().Undo();
    EXPECT_THAT(Text(), HasSubstr("length='12.50'"));
    EXPECT_EQ(shown("length").Type, DT_Double);
    Rows().ExpectCurrent();
}

TEST_F(MemberWriterTest, OffersWhatCanBeDone) {
    Open("<LandXML xmlns='http://www.landxml.org/schema/LandXML-1.2'><Alignment name='a' desc='d' length='1'>"
         "<CoordGeom/>t</Alignment><DocFileRef location='x'/></LandXML>");
    IMemberDispatch& root = At("");
    IMemberDispatch& alignment = At("Alignment a");
    const std::uint32_t attribute = MF_Delete | MF_Rename | MF_WriteProtect;
    EXPECT_EQ(root.GetMemberFlags("xmlns"), 0u);
    EXPECT_EQ(root.GetMemberFlags("Alignment a"), MF_Rename);
    EXPECT_EQ(root.GetMemberFlags("none"), 0u);
    EXPECT_EQ(alignment.GetMemberFlags("desc"), attribute);
    EXPECT_EQ(alignment.GetMemberFlags("length"), attribute | MF_ChangeType);
    EXPECT_EQ(alignment.GetMemberFlags("CoordGeom"), 0u);
    EXPECT_EQ(alignment.GetMemberFlags("text"), MF_WriteProtect);
    EXPECT_EQ(At("DocFileRef").GetMemberFlags("location"), attribute | MF_File);
    EXPECT_EQ(root.GetEditFlags(), EF_Add);
    EXPECT_EQ(alignment.GetEditFlags(), EF_Add | EF_Rename);
    EXPECT_TRUE(alignment.SetMemberEditable("text", true));
    EXPECT_FALSE(Editing().Steps().CanUndo()) << "it was editable";
    EXPECT_TRUE(alignment.SetMemberEditable("text", false));
    EXPECT_FALSE(alignment.IsMemberEditable("text"));
    EXPECT_FALSE(alignment.SetMemberEditable("CoordGeom", false));
    EXPECT_THAT(Rows().TakeHeard(), ElementsAre("protect text"));
    EXPECT_TRUE(Editing().Steps().IsClean());
}

TEST_F(MemberWriterTest, ACharacterThatTheEncodingLacksIsAReference) {
    Open(Head + "<Title n='x'>y</Title></LandXML>").SetCharacterTest([](char32_t c) { return c < 0x100; });
    IMemberDispatch& title = At("Title");
    const std::string text = platform::FromUtf8("\xC3\xA4\xC5\x81").text;
    EXPECT_TRUE(title.SetMember("n", MakeValue(DT_String, text)));
    EXPECT_TRUE(title.SetMember("text", MakeValue(DT_String, text)));
    EXPECT_THAT(Text(), HasSubstr("<Title n='\xC3\xA4&#321;'>\xC3\xA4&#321;</Title>"));
    CVariantValue value;
    EXPECT_TRUE(title.GetMember("text", value));
    EXPECT_EQ(value.Text, text);
}

} // namespace
} // namespace korvel::inspector

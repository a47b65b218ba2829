#include "editing/attribute_grid.h"
#include "editing/open_document.h"
#include "host/edited_document.h"
#include "korvel/values/language.h"
#include "korvel/window/core/serve_sends.h"
#include "support/grid_fixture.h"
#include "support/make_value.h"
#include "support/table.h"

#include <algorithm>

namespace korvel::inspector {
namespace {

constexpr const char* Statistics = "[Statistik]";

constexpr std::uint32_t Compute = 2;

// A surface in a grid, and somebody who asks for its statistics.
class DocumentExtrasTest : public GermanMachine, protected GridWindows {
protected:
    DocumentExtrasTest() { SetLanguageForThisRun("German"); }
    ~DocumentExtrasTest() override { m_grid.Clear(); }

    void Show(const std::string& xml) {
        const std::string path = m_folder.Path() / "document.xml";
        std::ofstream(path) << xml;
        m_open = std::make_unique<OpenDocument>(path, ReadingOptions{}, m_observer);
        m_open->Extras().SetHooks({[this](const std::string& text) { m_copied = text; }, {}});
        m_open->SetStepsHook(
            [this](const DocumentEditing::Changed&, bool areFiguresOld) { m_wereOld = areFiguresOld; });
        Make(m_grid);
        m_grid.SetDocument(m_open.get());
        m_grid.Initialize(&m_open->Document().Root(), "Name", "Value", 0);
    }
    void ShowSurface(const std::string& more = "") {
        Show("<LandXML><Units><Metric linearUnit='meter'/></Units><Surface name='s'><Definition><Pnts>"
             "<P id='1'>0 0 1</P><P id='2'>0 3 1</P><P id='3'>4 3 4</P>" +
             more + "</Pnts><Faces><F>1 2 3</F></Faces></Definition></Surface><Surface name='t'/></LandXML>");
    }
    IMemberDispatch& At(const std::string& path) { return ObjectAt(m_open->Document(), path); }
    DocumentEditing& Editing() { return m_open->Editing(); }
    std::string Text() { return m_open->Document().Tree().EditedSource(); }
    IMemberDispatch& Surface() { return At("Surface s"); }
    static std::list<std::string> NamesIn(IMemberDispatch& object) {
        std::list<std::string> names;
        object.GetMemberNames(names);
        return names;
    }
    bool HasStatistics() { return NamesIn(Surface()).back() == Statistics; }
    void WaitForStatistics() {
        IMemberDispatch& statistics = At("Surface s/[Statistik]");
        ServeSendsUntil([&] { return !m_grid.LookupTreeItem(&statistics, "Fortschritt"); });
    }
    void ComputeAndWait() {
        EXPECT_TRUE(Surface().OnCommand(Compute));
        WaitForStatistics();
    }
    std::vector<std::string> AllRows() {
        m_grid.ExpandAll();
        return Rows(m_grid);
    }

    platform::ScratchFolder m_folder;
    EditObserver m_observer;
    std::unique_ptr<OpenDocument> m_open; // outlives the binding of the grid
    AttributeGrid m_grid{&m_observer, nullptr};
    std::string m_copied;
    bool m_wereOld = false;
};

TEST_F(DocumentExtrasTest, MembersAreCopiedByTheirPathAndAsTheFileHasThem) {
    Show("<LandXML><Alignment name='\xC3\xA4 b' length='1.50'><CoordGeom><Line/><Line><Start> 1  2.0 </Start>"
         "</Line></CoordGeom></Alignment><Pnts><P id='7'> 1  2\n3 </P></Pnts></LandXML>");
    At("Alignment \xE4 b").SetMember("length", MakeValue(DT_String, "2"));
    for (const auto& [border, element, member, path, inFile] :
         Table<const char*, const char*, std::string, std::string>{
             {"an attribute", "Alignment \xE4 b", "length", "Alignment \xE4 b/length", "2"},
             {"an element", "", "Alignment \xE4 b", "Alignment \xE4 b",
              "<Alignment name='\xE4 b' length='2'><CoordGeom><Line/><Line><Start> 1  2.0 </Start></Line>"
              "</CoordGeom></Alignment>"},
             {"an empty one", "Alignment \xE4 b/CoordGeom", "Line 1", "Alignment \xE4 b/CoordGeom/Line 1",
              "<Line/>"},
             {"a part of a text", "Alignment \xE4 b/CoordGeom/Line 2/Start", "easting",
              "Alignment \xE4 b/CoordGeom/Line 2/Start/easting", "2.0"},
             {"a point", "Pnts", "P 7", "Pnts/P 7", "1 2 3"}}) {
        IMemberDispatch& owner = At(element);
        std::list<SCommand> commands;
        owner.GetMemberExtraCommands(member, commands);
        EXPECT_EQ(commands.size(), 2u) << border;
        EXPECT_TRUE(owner.GetMemberFlags(member) & MF_Commands) << border;
        EXPECT_TRUE(owner.OnMemberCommand(member, 1)) << border;
        EXPECT_EQ(m_copied, path) << border;
        EXPECT_TRUE(owner.OnMemberCommand(member, 2)) << border;
        EXPECT_EQ(m_copied, inFile) << border;
    }
    EXPECT_FALSE(m_open->Document().Root().OnMemberCommand("gone", 1));
}

TEST_F(DocumentExtrasTest, StatisticsAreRowsOfTheSurfaceAndOfNothingElse) {
    ShowSurface();
    const std::string text = Text();
    std::list<SCommand> commands;
    Surface().GetCommands(commands);
    ASSERT_EQ(commands.size(), 1u);
    EXPECT_TRUE(Surface().GetEditFlags() & EF_Commands);
    EXPECT_FALSE(At("Units").GetEditFlags() & EF_Commands);
    const std::vector<std::string> before = AllRows();
    EXPECT_TRUE(Surface().OnCommand(commands.front().id));
    WaitForStatistics();
    std::vector<std::string> rows = AllRows();
    const auto first = std::find(rows.begin(), rows.end(), " [Statistik]|");
    ASSERT_NE(first, rows.end());
    const std::vector<std::string> expected = {" [Statistik]|",
                                               "  Punkte|3",
                                               "  Maschen|1",
                                               "  Grundrissfl\344che|6,00 m\xB2",
                                               "  Oberfl\344che|7,50 m\xB2",
                                               "  Tiefster Punkt|1,00 m",
                                               "  H\366chster Punkt|4,00 m"};
    EXPECT_EQ(std::vector<std::string>(first, std::min(first + 7, rows.end())), expected);
    rows.erase(first, first + 7);
    EXPECT_EQ(rows, before);
    EXPECT_EQ(Text(), text);
    EXPECT_FALSE(Editing().Steps().CanUndo());
    EXPECT_FALSE(Surface().RenameMember(Statistics, "x") || Surface().RemoveMember(Statistics));
    EXPECT_FALSE(Surface().IsMemberEditable(Statistics));
    m_grid.Clear();
    m_grid.Initialize(&m_open->Document().Root(), "Name", "Value", 0);
    EXPECT_EQ(AllRows().size(), before.size() + 7) << "shown anew";

    EXPECT_EQ(Surface().GetMemberFlags(Statistics), std::uint32_t{MF_Delete});
    EXPECT_TRUE(Surface().OnRemoveMember(Statistics));
    EXPECT_EQ(AllRows(), before);
}

TEST_F(DocumentExtrasTest, StatisticsGoWithTheStateThatTheyAreOf) {
    ShowSurface();
    const struct {
        const char* border;
        std::function<void()> change;
        bool stays;
    } rows[] = {
        {"another surface", [&] { At("Surface t").AddMember("desc", true, MakeValue(DT_String, "x")); },
         true},
        {"for this run only", [&] { Surface().SetMemberEditable("name", false); }, true},
        {"a point", [&] { At("Surface s/Definition/Pnts").SetMember("P 1", MakeValue(DT_String, "0 0 2")); },
         false},
        {"undone", [&] { Editing().Undo(); }, false},
        {"its own tag", [&] { Surface().AddMember("desc", true, MakeValue(DT_String, "x")); }, false},
        {"undone, too", [&] { Editing().Undo(); }, false},
        {"units", [&] { At("Units/Metric").SetMember("linearUnit", MakeValue(DT_String, "kilometer")); },
         false},
    };
    for (const auto& [border, change, stays] : rows) {
        ComputeAndWait();
        change();
        EXPECT_EQ(HasStatistics(), stays) << border;
        EXPECT_EQ(m_wereOld, !stays) << border;
        const std::vector<std::string> shown = AllRows();
        EXPECT_EQ(std::count(shown.begin(), shown.end(), " [Statistik]|") == 1, stays) << border;
    }
}

TEST_F(DocumentExtrasTest, WhoeverClosesDoesNotWaitForTheResult) {
    std::string points;
    for (int i = 0; i < 50'000; ++i)
        points += "<P id='x" + std::to_string(i) + "'>1 2 3</P>";
    ShowSurface(points);
    for (const auto& [border, act] : Table<std::function<void()>>{
             {"asked again", [&] { Surface().OnCommand(Compute); }},
             {"changed", [&] { Surface().AddMember("desc", true, MakeValue(DT_String, "x")); }},
             {"the window goes", [&] { m_grid.DestroyWindow(); }}}) {
        EXPECT_TRUE(Surface().OnCommand(Compute)) << border;
        act();
    }
    EXPECT_EQ(m_grid.GetRootDisp(), nullptr);
}

TEST_F(DocumentExtrasTest, AnEditThatTheirOwnNewsEndTakesThemAway) {
    Show("<LandXML><Surface name='s'><Definition><Pnts><P id='1'>0 0 1</P><P id='2'>0 3 1</P></Pnts>"
         "</Definition></Surface><Units><Metric linearUnit='meter' areaUnit='squareMeter' a1='1' a2='2' "
         "a3='3' "
         "zz='4'/></Units></LandXML>");
    EXPECT_TRUE(Surface().OnCommand(Compute));
    m_grid.ExpandAll();
    IMemberDispatch& units = At("Units/Metric");
    const int row = m_grid.RowOfNode(m_grid.LookupTreeItem(&units, "zz"));
    m_grid.EnsureVisible(row, false);
    const int place = row - m_grid.GetTopIndex();
    ASSERT_GE(place, 4) << "what comes above pushes it out";
    Click(m_grid, Value(place));
    ASSERT_TRUE(m_grid.IsEditing());
    SetWindowTextA(GetFocus(), "5");
    ServeSendsUntil([&] { return !m_grid.IsEditing(); });
    EXPECT_NE(Text().find("zz='5'"), std::string::npos);
    EXPECT_FALSE(HasStatistics());
}

TEST_F(DocumentExtrasTest, AnEditThatTheirOwnRowEndsTakesThemAwayBeforeTheyBegin) {
    Show("<LandXML><Surface name='s'><Definition/></Surface><Units><Metric a='1' b='2' c='3' d='4' e='5' "
         "f='6' linearUnit='meter' zz='7'/></Units></LandXML>");
    m_grid.ExpandAll();
    const int row = m_grid.RowOfNode(m_grid.LookupTreeItem(&At("Units/Metric"), "zz"));
    m_grid.EnsureVisible(row, false);
    const auto shown = Rows(m_grid);
    Click(m_grid, Value(row - m_grid.GetTopIndex()));
    ASSERT_TRUE(m_grid.IsEditing());
    SetWindowTextA(GetFocus(), "8");
    EXPECT_TRUE(Surface().OnCommand(Compute));
    EXPECT_FALSE(m_grid.IsEditing());
    EXPECT_NE(Text().find("zz='8'"), std::string::npos);
    EXPECT_FALSE(HasStatistics());
    EXPECT_EQ(AllRows().size(), shown.size());
}

} // namespace
} // namespace korvel::inspector

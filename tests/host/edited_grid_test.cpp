#include "host/edited_document.h"
#include "korvel/grid/editable_grid.h"
#include "support/grid_fixture.h"
#include "support/make_value.h"

namespace korvel::inspector {
namespace {

class EditedGridTest : public EditedDocumentTest, protected GridWindows {
protected:
    using EditedDocumentTest::Rows;
    using GridWindows::Rows;

    static void Bind(CEditableGrid& grid, LandXmlDocument& document) {
        grid.Initialize(&document.Root(), "Name", "Value", 0);
        grid.ExpandAll();
    }

    /// The rows of a grid that is bound now.
    std::vector<std::string> RowsOfANewGrid() {
        EditObserver observer;
        CEditableGrid grid(&observer, nullptr);
        Make(grid);
        Bind(grid, Document());
        return Rows(grid);
    }
};

TEST_F(EditedGridTest, AGridThatHearsOfEditsShowsWhatANewOneWould) {
    Open("<LandXML><Units><Metric linearUnit='meter'/></Units><Alignment name='a' length='1' staStart='2'/>"
         "<b name='x' n='INF'/><b/><b name='x'/><Start>1</Start><Pnts><P id='1'>1 2</P></Pnts></LandXML>");
    const std::pair<const char*, std::function<bool()>> edits[] = {
        {"a unit",
         [&] { return At("Units/Metric").SetMember("linearUnit", MakeValue(DT_String, "millimeter")); }},
        {"an attribute more",
         [&] { return At("Alignment a").AddMember("b", true, MakeValue(DT_String, "c")); }},
        {"another name of it", [&] { return At("Alignment a").RenameMember("b", "radius"); }},
        {"one less", [&] { return At("Alignment a").RemoveMember("staStart [mm]"); }},
        {"a child's name", [&] { return At("").RenameMember("Alignment a", "z"); }},
        {"the name of one of two", [&] { return At("b x").RemoveMember("name"); }},
        {"another type", [&] { return At("Alignment z").ChangeMemberType("length [mm]", DT_Int); }},
        {"a protection", [&] { return At("Alignment z").SetMemberEditable("length [mm]", false); }},
        {"a row out of a text",
         [&] { return At("Start").SetMember("text [invalid]", MakeValue(DT_String, "1 2 3")); }},
        {"a point", [&] { return At("Pnts").SetMember("P 1", MakeValue(DT_String, "3 4")); }},
    };
    CEditableGrid grid(&Observer(), nullptr);
    Make(grid);
    Bind(grid, Document());
    std::vector<std::vector<std::string>> shown = {Rows(grid)};
    for (const auto& [name, edit] : edits) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(edit());
        EXPECT_EQ(Rows(grid), RowsOfANewGrid());
        EXPECT_EQ(Rows(grid) != shown.back(), std::string_view(name) != "a protection");
        shown.push_back(Rows(grid));
    }
    for (; Editing().Undo(); shown.pop_back())
        EXPECT_EQ(Rows(grid), shown[shown.size() - 2]);
    EXPECT_EQ(shown.size(), 1u);
    grid.Clear();
}

} // namespace
} // namespace korvel::inspector

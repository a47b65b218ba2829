#include "host/edited_document.h"
#include "korvel/platform/code_page.h"
#include "korvel/values/language.h"
#include "support/make_value.h"

namespace korvel::inspector {
namespace {

class UndoTitlesTest : public EditedDocumentTest {
protected:
    UndoTitlesTest() { SetLanguageForThisRun("German"); }
};

TEST_F(UndoTitlesTest, SayInTheUsersLanguageWhatWasDoneToWhich) {
    Open("<LandXML><Line length='1' b='2' name='n'/></LandXML>");
    IMemberDispatch& line = At("Line n");
    const auto title = [&] { return platform::ToUtf8(Editing().Steps().UndoTitle()); };
    EXPECT_EQ(title(), "");
    line.SetMember("length", MakeValue(DT_Double, 2.0));
    EXPECT_EQ(title(), "Attribut bearbeitet: length");
    line.AddMember("c", true, MakeValue(DT_String, "x"));
    EXPECT_EQ(title(), "Attribut hinzugefügt: c");
    line.RemoveMember("c");
    EXPECT_EQ(title(), "Attribut entfernt: c");
    line.RenameMember("b", "d");
    EXPECT_EQ(title(), "Attribut umbenannt: b");
    At("").RenameMember("Line n", "m");
    EXPECT_EQ(title(), "Attribut umbenannt: Line n");
    line.ChangeMemberType("length", DT_Float);
    EXPECT_EQ(title(), "Typ geändert: length");
    line.SetMemberEditable("length", false);
    EXPECT_EQ(title(), "Schreibgeschützt: length");
    EXPECT_EQ(platform::ToUtf8(RefusalOf([&] { line.RemoveMember("d"), line.AddMember("1", true, {}); })),
              "'1' kann kein Attribut heißen");
}

} // namespace
} // namespace korvel::inspector

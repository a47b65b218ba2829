#include "korvel/editors/tooltipp_bitmap.h"
#include "support/combo_fixture.h"
#include "support/table.h"
#include "support/wilful_object.h"

namespace korvel {
namespace {

using namespace std::chrono_literals;

class ComboPreviewTest : public ComboTest {
protected:
    void SetUp() override {
        ComboTest::SetUp();
        display.SetPicture("plan.png", Image{30, 20, std::vector<std::uint32_t>(600)});
        shown.images = "plan.png";
        Show(shown, eDesignTree);
        picture.Load("plan.png");
    }
    // The pointer comes to a row and stays there.
    void Rest(int row) {
        for (int i = 0; i < 3; ++i)
            Mouse(WM_MOUSEMOVE, InRow(row));
    }
    bool IsShownAfter(std::chrono::milliseconds time) {
        display.Advance(time);
        return list->IsPreviewShown();
    }

    TestEnumeration shown{{"a", "b", "c", "g/d"}, ENF_Tree};
    CTooltippBitmap picture;
};

TEST_F(ComboPreviewTest, OpensAfterAPauseAndGoesByItself) {
    Rest(0);
    EXPECT_FALSE(IsShownAfter(499ms));
    EXPECT_TRUE(IsShownAfter(1ms));
    EXPECT_TRUE(IsShownAfter(1999ms));
    EXPECT_FALSE(IsShownAfter(1ms));
    EXPECT_FALSE(IsShownAfter(10s)); // until the next move
    Rest(0);
    display.Advance(400ms);
    Do("move row 0"); // the pause begins anew
    EXPECT_FALSE(IsShownAfter(400ms));
    Do("move row 2"); // another row: waits for a move in it
    EXPECT_FALSE(IsShownAfter(5s));
}

TEST_F(ComboPreviewTest, WhichRowsShowOneAndWhatMakesItGo) {
    const Table<int, const char*, bool, const char*> cases = {
        {"its own", 0, "", true, "down"},
        {"the common one", 1, "plan.png", true, "press row 2"},
        {"broken", 1, "broken.png", false, ""},
        {"a group", 3, "plan.png", false, ""},
        {"no row", 7, "plan.png", false, ""},
        {"the wheel", 2, "", true, "wheel"},
        {"a move to another row", 2, "", true, "move row 1"},
        {"the end of the binding", 2, "", true, ""},
    };
    for (const auto& [name, row, common, isShown, act] : cases) {
        SCOPED_TRACE(name);
        shown.commonImage = common;
        list->Initialize("value", shown.ValueOf(""));
        Rest(row);
        EXPECT_EQ(IsShownAfter(500ms), isShown);
        Mouse(WM_MOUSEMOVE, InRow(row, 20)); // a move in its row changes nothing
        EXPECT_EQ(list->IsPreviewShown(), isShown);
        if (*act == '\0')
            list->UnIntialize();
        Do(act);
        EXPECT_FALSE(list->IsPreviewShown());
        if (isShown)
            EXPECT_FALSE(IsShownAfter(5s));
    }
}

TEST_F(ComboPreviewTest, APictureThatIsDismissedWhileTheValueIsWrittenGoesAfterwardsForGood) {
    WilfulObject object;
    object.AddMember("m", true, shown.ValueOf(",1,"));
    list->Initialize(&object, "m");
    for (const bool throws : {false, true}) {
        Rest(0);
        ASSERT_TRUE(IsShownAfter(500ms));
        object.inside = [&] {
            Mouse(WM_LBUTTONUP, InRow(0));
            EXPECT_TRUE(list->IsPreviewShown());
            if (throws)
                throw Error("no");
        };
        try {
            list->UpdateDisp(nullptr);
            EXPECT_FALSE(throws);
        } catch (const Error&) {
        }
        EXPECT_FALSE(list->IsRunningUpdateDisp());
        EXPECT_FALSE(IsShownAfter(2s)); // until the next move
    }
}

TEST_F(ComboPreviewTest, TheMouseReachesTheListUnderThePicture) {
    TestEnumeration plain({"a", "b", "c"});
    Show(plain);
    picture.Show(*list, {150, 0, 200, 20}); // over row 1, and a little further right than the list
    input::Mouse(picture.m_hWnd, WM_MOUSEMOVE, 0, {5, 5});
    EXPECT_EQ(Current(), "b");
    input::Mouse(picture.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, {5, 5});
    EXPECT_EQ(Heard(), "9 -3");
    picture.Show(*list, {190, 0, 200, 20});
    input::Mouse(picture.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, {25, 5}); // beside the list
    EXPECT_EQ(Heard(), "");
}

TEST_F(ComboPreviewTest, ThePictureStaysOnTheScreen) {
    const Table<CRect, CPoint> cases = {
        {"below its row", {100, 200, 180, 220}, {100, 220}},
        {"at the right edge", {1900, 200, 1980, 220}, {1888, 220}},
        {"just fits below", {100, 1038, 180, 1058}, {100, 1058}},
        {"above where there is no room below", {100, 1050, 180, 1070}, {100, 1028}},
        {"where the next screen begins", {1920, 200, 2000, 220}, {1920, 220}},
    };
    for (const auto& [name, beside, corner] : cases) {
        picture.Show(frame, beside);
        EXPECT_EQ(picture.GetWindowRect().TopLeft(), corner) << name;
        EXPECT_EQ(picture.GetWindowRect().Height(), 22);
    }
    EXPECT_FALSE(picture.Load("nowhere.png"));
}

} // namespace
} // namespace korvel

#include "korvel/editors/tooltipp_bitmap.h"
#include "korvel/values/member_dispatch_imp.h"
#include "support/combo_fixture.h"

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

TEST_F(ComboPreviewTest, WhichRowsShowOne) {
    const std::tuple<const char*, int, const char*, bool> cases[] = {
        {"its own", 0, "", true},
        {"none", 1, "", false},
        {"the common one", 1, "plan.png", true},
        {"broken", 1, "broken.png", false},
        {"a group", 3, "plan.png", false},
        {"no row", 7, "plan.png", false},
    };
    for (const auto& [name, row, common, isShown] : cases) {
        shown.commonImage = common;
        list->Initialize("value", shown.ValueOf(""));
        Rest(row);
        EXPECT_EQ(IsShownAfter(500ms), isShown) << name;
        display.Advance(5s);
    }
}

TEST_F(ComboPreviewTest, WhatMakesItGo) {
    for (const char* act : {"down", "press row 2", "release row 2", "wheel", "move row 1", ""}) {
        list->Initialize("value", shown.ValueOf(""));
        Rest(2);
        EXPECT_TRUE(IsShownAfter(500ms));
        Mouse(WM_MOUSEMOVE, InRow(2, 20)); // a move in its row does not
        EXPECT_TRUE(list->IsPreviewShown());
        if (*act == '\0')
            list->UnIntialize();
        Do(act);
        EXPECT_FALSE(list->IsPreviewShown());
        EXPECT_FALSE(IsShownAfter(5s));
    }
}

TEST_F(ComboPreviewTest, APictureThatIsDismissedWhileTheValueIsWrittenGoesAfterwardsForGood) {
    struct Object : TMemberDispatchImp<int> {
        Object() : TMemberDispatchImp("object") {}
        std::function<void()> inside;
        bool SetMember(const std::string& name, const CVariantValue& value) override {
            inside();
            return TMemberDispatchImp::SetMember(name, value);
        }
    } object;
    object.AddMember("m", true, shown.ValueOf(",1,"));
    list->Initialize(&object, "m");
    Rest(0);
    ASSERT_TRUE(IsShownAfter(500ms));
    for (const bool isThrown : {false, true}) {
        object.inside = [&] {
            Mouse(WM_LBUTTONUP, InRow(0));
            EXPECT_TRUE(list->IsPreviewShown());
            if (isThrown)
                throw Error("no");
        };
        if (isThrown)
            EXPECT_THROW(list->UpdateDisp(nullptr), Error);
        else
            list->UpdateDisp(nullptr);
        EXPECT_FALSE(list->IsRunningUpdateDisp());
        EXPECT_FALSE(IsShownAfter(2s)); // until the next move
        Rest(0);
        EXPECT_TRUE(IsShownAfter(500ms));
    }
}

TEST_F(ComboPreviewTest, TheMouseReachesTheListUnderThePicture) {
    TestEnumeration plain({"a", "b", "c"});
    Show(plain);
    CTooltippBitmap picture;
    ASSERT_TRUE(picture.Load("plan.png"));
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
    const std::tuple<const char*, CRect, CPoint> cases[] = {
        {"below its row", {100, 200, 180, 220}, {100, 220}},
        {"held at the right edge", {1900, 200, 1980, 220}, {1888, 220}},
        {"above where there is no room below", {100, 1050, 180, 1070}, {100, 1028}},
        {"left of the screen", {-50, 200, 30, 220}, {0, 220}},
        {"on the next screen", {2000, 200, 2080, 220}, {2000, 220}},
    };
    CTooltippBitmap preview;
    ASSERT_TRUE(preview.Load("plan.png"));
    for (const auto& [name, beside, corner] : cases) {
        preview.Show(frame, beside);
        EXPECT_EQ(preview.GetWindowRect().TopLeft(), corner) << name;
        EXPECT_EQ(preview.GetWindowRect().Height(), 22);
    }
    EXPECT_FALSE(preview.Load("nowhere.png"));
}

} // namespace
} // namespace korvel

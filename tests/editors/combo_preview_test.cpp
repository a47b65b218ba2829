#include "combo_fixture.h"

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
    /// The pointer comes to a row and stays there.
    void Rest(int row) {
        for (int i = 0; i < 3; ++i)
            Mouse(WM_MOUSEMOVE, InRow(row));
    }

    TestEnumeration shown{{"a", "b", "c", "g/d"}, ENF_Tree};
};

TEST_F(ComboPreviewTest, OpensAfterAPauseAndGoesByItself) {
    Rest(0);
    display.Advance(499ms);
    EXPECT_FALSE(list->IsPreviewShown());
    display.Advance(1ms);
    EXPECT_TRUE(list->IsPreviewShown());
    display.Advance(1999ms);
    EXPECT_TRUE(list->IsPreviewShown());
    display.Advance(1ms);
    EXPECT_FALSE(list->IsPreviewShown());
    display.Advance(10s); // until the next move
    EXPECT_FALSE(list->IsPreviewShown());
}

TEST_F(ComboPreviewTest, WhichRowsShowOne) {
    struct Case {
        const char* name;
        int row;
        std::string common;
        bool isShown;
    };
    const Case cases[] = {
        {"its own", 0, "", true},
        {"none", 1, "", false},
        {"the common one", 1, "plan.png", true},
        {"broken", 1, "broken.png", false},
        {"a group", 3, "plan.png", false},
        {"no row", 7, "plan.png", false},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        shown.commonImage = row.common;
        list->Initialize("value", shown.ValueOf(""));
        Rest(row.row);
        display.Advance(500ms);
        EXPECT_EQ(list->IsPreviewShown(), row.isShown);
        display.Advance(5s);
    }
}

TEST_F(ComboPreviewTest, WhatMakesItGo) {
    const std::function<void()> acts[] = {
        [&] { Key(VK_DOWN); },
        [&] { Mouse(WM_LBUTTONDOWN, InRow(2)); },
        [&] { Mouse(WM_LBUTTONUP, InRow(2)); },
        [&] {
            input::Mouse(list->m_hWnd, WM_MOUSEWHEEL, 0, {5, 5}, 120);
        },
        [&] { Mouse(WM_MOUSEMOVE, InRow(1)); },
        [&] { list->UnIntialize(); },
    };
    for (const auto& act : acts) {
        list->Initialize("value", shown.ValueOf(""));
        Rest(2);
        display.Advance(500ms);
        EXPECT_TRUE(list->IsPreviewShown());
        Mouse(WM_MOUSEMOVE, InRow(2, 20)); // a move in its row does not
        EXPECT_TRUE(list->IsPreviewShown());
        act();
        EXPECT_FALSE(list->IsPreviewShown());
        display.Advance(5s);
        EXPECT_FALSE(list->IsPreviewShown());
    }
}

TEST_F(ComboPreviewTest, APointerThatMovesOnBeginsThePauseAnew) {
    Rest(0);
    display.Advance(400ms);
    Mouse(WM_MOUSEMOVE, InRow(0));
    display.Advance(400ms);
    EXPECT_FALSE(list->IsPreviewShown());
    Mouse(WM_MOUSEMOVE, InRow(2)); // another row: waits for a move in it
    display.Advance(5s);
    EXPECT_FALSE(list->IsPreviewShown());
}

TEST_F(ComboPreviewTest, ThePictureStaysOnTheScreen) {
    struct Case {
        const char* name;
        CRect beside;
        CPoint corner;
    };
    const Case cases[] = {
        {"below its row", {100, 200, 180, 220}, {100, 220}},
        {"held at the right edge", {1900, 200, 1980, 220}, {1888, 220}},
        {"above where there is no room below", {100, 1050, 180, 1070}, {100, 1028}},
        {"left of the screen", {-50, 200, 30, 220}, {0, 220}},
        {"on the next screen", {2000, 200, 2080, 220}, {2000, 220}},
    };
    CTooltippBitmap preview;
    ASSERT_TRUE(preview.Load("plan.png"));
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        preview.Show(frame, row.beside);
        EXPECT_EQ(preview.GetWindowRect().TopLeft(), row.corner);
        EXPECT_EQ(preview.GetWindowRect().Height(), 22);
    }
    preview.Hide();
    EXPECT_FALSE(preview.IsWindowVisible());
    EXPECT_FALSE(preview.Load("nowhere.png"));
}

} // namespace
} // namespace korvel

#include "korvel/window/controls/tab_ctrl.h"
#include "support/control_fixture.h"

namespace korvel {
namespace {

class TabTest : public ControlTestOf<NoticeParent> {
protected:
    void SetUp() override {
        ControlTestOf::SetUp();
        Make();
    }
    void Make() {
        tabs.DestroyWindow();
        tabs.Create(WS_CHILD | WS_VISIBLE, {0, 0, 200, 200}, &parent, 9);
        for (const char* text : {"a", "b", "c"}) // 27 pixels each
            tabs.InsertItem(99, text, text[0]);
        tabs.SetCurSel(1);
    }
    /// The texts of all tabs, and behind each its data.
    std::string Tabs() const {
        std::string all;
        for (int tab = 0; tab < tabs.GetItemCount(); ++tab)
            all += tabs.GetItemText(tab) + std::string(1, static_cast<char>(tabs.GetItemData(tab)));
        return all;
    }

    CTabCtrl tabs;
};

TEST_F(TabTest, TheCurrentTabStaysWhileOthersComeAndGo) {
    using Act = std::function<int(CTabCtrl&)>;
    for (const auto& [border, act, answer, current, left] : Table<Act, int, int, const char*>{
             {"insert before", [](auto& t) { return t.InsertItem(0, "x", '1'); }, 0, 2, "x1aabbcc"},
             {"insert below", [](auto& t) { return t.InsertItem(-1, "x", '1'); }, -1, 1, "aabbcc"},
             {"insert beyond", [](auto& t) { return t.InsertItem(9, "x", '1'); }, 3, 1, "aabbccx1"},
             {"delete before", [](auto& t) { return t.DeleteItem(0); }, 1, 0, "bbcc"},
             {"delete it", [](auto& t) { return t.DeleteItem(1); }, 1, -1, "aacc"},
             {"delete all", [](auto& t) { return t.DeleteAllItems(); }, 1, -1, ""},
             {"none", [](auto& t) { return t.SetCurSel(-1); }, 1, -1, "aabbcc"},
             {"beyond", [](auto& t) { return t.SetCurSel(3); }, -1, 1, "aabbcc"},
             {"the first again", [](auto& t) { return t.DeleteAllItems() + t.InsertItem(5, "x", '1'); }, 1, 0,
              "x1"}}) {
        Make();
        EXPECT_EQ(act(tabs), answer) << border;
        EXPECT_EQ(tabs.GetCurSel(), current) << border;
        EXPECT_EQ(Tabs(), left) << border;
        EXPECT_EQ(parent.Take(), Codes()) << border;
    }
}

TEST_F(TabTest, TheUserAsksBeforeATabIsTaken) {
    const Codes taken{TCN_SELCHANGING, TCN_SELCHANGE};
    const auto press = [this](UINT key) {
        return [=, this] { input::Key(tabs.m_hWnd, WM_KEYDOWN, key, {}); };
    };
    const auto click = [this](int x, int y) {
        return [=, this] { input::Mouse(tabs.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, {x, y}); };
    };
    for (const auto& [border, refuses, act, current, codes] : Table<bool, std::function<void()>, int, Codes>{
             {"left", false, press(VK_LEFT), 0, taken},
             {"refused", true, press(VK_LEFT), 1, {TCN_SELCHANGING}},
             {"end", false, press(VK_END), 2, taken},
             {"a click", false, click(60, 10), 2, taken},
             {"the current one", false, click(53, 10), 1, {}},
             {"the first pixel", false, click(0, 0), 0, taken},
             {"right of all", false, click(81, 10), 1, {}},
             {"the page", false, click(10, 24), 1, {}},
             {"a native one", false, [this] { input::Value(tabs.m_hWnd, 2); }, 2, taken}}) {
        Make();
        parent.refuses = refuses;
        act();
        EXPECT_EQ(tabs.GetCurSel(), current) << border;
        EXPECT_EQ(parent.Take(), codes) << border;
    }
    Make();
    for (int i = 0; i < 2; ++i)
        press(VK_RIGHT)();
    EXPECT_EQ(tabs.GetCurSel(), 2) << "the last one is the end";
}

TEST_F(TabTest, AHandlerThatFailsLeavesWindowAndBarAlike) {
    for (const auto& [border, fails, current] :
         Table<UINT, int>{{"asked", TCN_SELCHANGING, 1}, {"told", TCN_SELCHANGE, 2}}) {
        Make();
        display.TakeChanges(tabs.m_hWnd);
        parent.FailOn(fails);
        EXPECT_THROW(input::Value(tabs.m_hWnd, 2), std::runtime_error) << border;
        EXPECT_EQ(tabs.GetCurSel(), current) << border;
        EXPECT_TRUE(display.TakeChanges(tabs.m_hWnd) & Aspect::State)
            << border << ": the bar shows the third";
        parent.on.clear();
    }
}

TEST_F(TabTest, ThePageLiesBelowTheTabs) {
    const CRect window{10, 20, 200, 300};
    CRect page = window;
    tabs.AdjustRect(false, page);
    EXPECT_EQ(page, (CRect{14, 48, 196, 296}));
    tabs.AdjustRect(true, page);
    EXPECT_EQ(page, window);
}

TEST_F(TabTest, TextsAreCutToTheRoomThatIsGiven) {
    tabs.SetItemText(0, "\x81\xE2\xE1 long");
    char text[4] = "xyz";
    TCITEM item;
    item.mask = TCIF_TEXT;
    item.pszText = text;
    for (const auto& [border, room, expected] : Table<int, const char*>{
             {"none", 0, "xyz"}, {"no half of a character", 3, ""}, {"one", 4, "\x81\xE2\xE1"}}) {
        item.cchTextMax = room;
        tabs.SendMessageA(TCM_GETITEM, 0, reinterpret_cast<LPARAM>(&item));
        EXPECT_STREQ(text, expected) << border;
    }
    EXPECT_EQ(tabs.GetItemText(0), "\x81\xE2\xE1 long");
}

} // namespace
} // namespace korvel

#include "korvel/events/event_row_painter.h"
#include "korvel/events/grid_events.h"
#include "korvel/events/stored_events.h"
#include "korvel/output/dates.h"
#include "korvel/window/display/window_view.h"
#include "support/event_fixture.h"
#include "support/event_list_fixture.h"

#include <limits>
#include <stdexcept>

namespace korvel {
namespace {

using Labels = std::vector<std::string>;

TEST_F(EventListTest, HasFiveColumnsThatKeepTheirWidth) {
    const int width = list.GetClientRect().Width() / 5;
    EXPECT_GT(list.GetClientRect().Width() % 5, 0); // truncated
    Labels titles;
    for (int column = 0; column < list.GetColumnCount(); ++column) {
        titles.push_back(list.GetColumnTitle(column));
        EXPECT_EQ(list.GetColumnWidth(column), width);
    }
    EXPECT_EQ(titles, (Labels{"Type", "Date", "Time", "Source", "Event"}));
    list.MoveWindow({0, 0, 900, 124});
    list.CreateHeader(); // once more
    EXPECT_EQ(list.GetColumnCount(), 5);
    EXPECT_EQ(list.GetColumnWidth(4), width);
    list.DestroyWindow();
    list.CreateHeader(); // without a window
    MakeWindow();
    EXPECT_EQ(list.GetColumnCount(), 5);
}

TEST_F(EventListTest, ShowsTheNewestOnTop) {
    for (const char* event : {"first", "second", "third"})
        reporter.AddInfoMsg("Import", event);
    EXPECT_EQ(Events(), (Labels{"third", "second", "first"}));
    EXPECT_EQ(parent.Take(), (Notices{"insert 0", "insert 0", "insert 0"}));
    const CEventMessage* top = list.MessageAt(0);
    EXPECT_EQ(list.GetItemData(0), reinterpret_cast<LPARAM>(top));
    EXPECT_EQ(list.GetItemText(0, 0), "third"); // kept
    EXPECT_EQ(list.GetItemText(0, 1), DatetoString(top->m_Date));
    EXPECT_EQ(list.GetItemText(0, 2), TimetoString(top->m_Time));
    EXPECT_EQ(list.GetItemText(0, 3), "Import");
    EXPECT_EQ(list.GetItemText(0, 5), "");
    EXPECT_EQ(list.MessageAt(3), nullptr);
}

TEST_F(EventListTest, EachTypeHasAnIconAndAName) {
    const Table<int, int, const char*> types = {
        {"information", 0, 3, "Information"},
        {"warning", 1, 2, "Warning"},
        {"error", 2, 1, "Error"},
        {"exception", 3, 4, "Exception"},
        {"beyond the last", 4, 0, "??"},
        {"below the first", -1, 0, "??"},
    };
    for (const auto& [name, type, image, shown] : types) {
        SCOPED_TRACE(name);
        reporter.Fire_OnAddEvent(MessageOf(static_cast<CEventMessage::EEventType>(type), "x"));
        EXPECT_EQ(list.GetItemImage(0), image);
        EXPECT_EQ(TextsOfRow(0).at(0), shown);
        EXPECT_EQ(view::Cell(list.m_hWnd, {0, 0}).value().text, shown) << "for whoever does not see it";
    }
    EXPECT_EQ(CGridEvents::GetImageIndexFromEventType(CEventMessage::eError), 1);
}

// Kept: the memory of a cleared list is not given back.
TEST_F(EventListTest, ClearingTakesTheRowsAndKeepsTheMessages) {
    reporter.AddInfoMsg("a", "before");
    const CEventMessage* kept = list.MessageAt(0);
    parent.Take();
    reporter.Fire_OnClear();
    EXPECT_EQ(list.GetItemCount(), 0);
    EXPECT_EQ(parent.Take(), (Notices{"delete all -1", "delete 0"}));
    EXPECT_EQ(kept->m_strEvent, "before");
    parent.on[LVN_DELETEALLITEMS] = [&](const NMLISTVIEW&) -> LRESULT {
        return reporter.AddInfoMsg("a", "meanwhile"), 0;
    };
    reporter.Fire_OnClear();
    reporter.AddInfoMsg("a", "after");
    EXPECT_EQ(Events(), (Labels{"after", "meanwhile"}));
    EXPECT_EQ(list.GetMessageCount(), 2);
}

TEST(StoredEvents, CountOnAfterAClearAndPastTheHighestNumber) {
    constexpr int Highest = std::numeric_limits<int>::max();
    internal::StoredEvents events(Highest - 1);
    const auto add = [&](const char* text) {
        return &events.Add(MessageOf(CEventMessage::eError, text), nullptr);
    };
    const auto* last = add("last");
    events.Unlist();
    const auto* next = add("next");
    EXPECT_EQ(events.Listed().size(), 1u);
    EXPECT_EQ(&events.All().at(Highest), last);
    EXPECT_EQ(&events.All().at(std::numeric_limits<int>::min()), next);
}

TEST_F(EventListTest, AChangedFormatRewritesAllRows) {
    reporter.AddInfoMsg("a", "cleared");
    const CEventMessage* cleared = list.MessageAt(0);
    const std::string before = cleared->m_strDate;
    reporter.Fire_OnClear();
    reporter.AddInfoMsg("a", "shown");
    CEventMessage later = *list.MessageAt(0);
    later.m_Date += 400;
    reporter.Fire_OnAddEvent(later);
    display.PaintWindow(list.m_hWnd);
    SetDateCurrentFormatString(false, "%Y!%j");
    EXPECT_TRUE(display.IsInvalid(list.m_hWnd));
    for (int row = 0; row < 2; ++row) {
        const std::string expected = DatetoString(list.MessageAt(row)->m_Date);
        EXPECT_NE(expected, before);
        EXPECT_EQ(list.MessageAt(row)->m_strDate, expected);
        EXPECT_EQ(list.GetItemText(row, 1), expected);
        EXPECT_EQ(TextsOfRow(row).at(1), expected);
    }
    EXPECT_EQ(cleared->m_strDate, before);
    CEventMessage nextHour = later;
    nextHour.m_Time += 3600;
    reporter.Fire_OnAddEvent(nextHour);
    SetRegional("sTimeFormat", "HH'h'mm");
    EXPECT_EQ(list.GetItemText(1, 2), TimetoString(later.m_Time));
    EXPECT_EQ(list.GetItemText(0, 2), TimetoString(nextHour.m_Time));
    EXPECT_EQ(list.GetItemText(0, 2)[2], 'h');
    list.DestroyWindow();
    SetDateCurrentFormatString(false, "%d"); // of a list without a window
}

TEST_F(EventListTest, DrawsInTheSystemColors) {
    constexpr COLORREF Gray = 0xC8C8C8;
    constexpr COLORREF LightText = RGB(0xE0, 0xE0, 0xE0);
    struct Colors {
        COLORREF ground;
        COLORREF text;
    };
    const Table<bool, bool, COLORREF, Colors> looks = {
        {"plain", false, true, RGB(1, 2, 3), {RGB(250, 250, 250), RGB(1, 2, 3)}},
        {"selected with the keyboard", true, true, RGB(1, 2, 3), {RGB(0, 0, 200), RGB(255, 255, 0)}},
        {"selected without it", true, false, RGB(1, 2, 3), {Gray, RGB(1, 2, 3)}},
        {"a light text is black on the gray", true, false, LightText, {Gray, RGB(0, 0, 0)}},
    };
    display.SetColor(COLOR_WINDOW, RGB(250, 250, 250));
    display.SetColor(COLOR_HIGHLIGHT, RGB(0, 0, 200));
    display.SetColor(COLOR_HIGHLIGHTTEXT, RGB(255, 255, 0));
    reporter.AddErrorMsg("a", "b");
    for (const auto& [name, isSelected, hasFocus, windowText, expected] : looks) {
        SCOPED_TRACE(name);
        display.SetColor(COLOR_WINDOWTEXT, windowText);
        list.SetItemState(0, isSelected ? LVIS_SELECTED : 0, LVIS_SELECTED);
        SetFocus(hasFocus ? list.m_hWnd : parent.m_hWnd);
        const auto calls = CallsOfRow(0);
        ASSERT_EQ(calls.size(), 9u); // the ground, the icon within its clip, five texts
        EXPECT_EQ(calls[0].color, expected.ground);
        EXPECT_EQ(calls.back().color, expected.text);
        const CRect row = RowRect(0);
        EXPECT_EQ(calls[0].rect, row);
        EXPECT_EQ(calls[2].kind, PaintCall::Kind::Picture);
        EXPECT_EQ(calls[2].rect, (CRect{0, row.top, row.Height(), row.bottom}));
        EXPECT_GE(calls[4].rect.left, row.Height());
        for (std::size_t i = 4; i < calls.size(); ++i)
            EXPECT_LE(calls[i].rect.right, list.GetColumnWidth(0) * static_cast<int>(i - 3));
    }
}

TEST_F(EventListTest, EachIconIsItsOwnCellOfTheStrip) {
    internal::EventIcons icons;
    icons.Load();
    for (int cell = 0; cell < 5; ++cell) {
        ASSERT_NE(icons.At(cell), nullptr);
        EXPECT_EQ(icons.At(cell)->pixels.size(), 256u);
        EXPECT_EQ(icons.At(cell)->pixels.front() >> 24, 0u); // the row's ground is seen in the corner
        for (int other = 0; other < cell; ++other)
            EXPECT_NE(icons.At(cell)->pixels, icons.At(other)->pixels);
    }
    EXPECT_EQ(icons.At(5), nullptr);
    EXPECT_EQ(icons.At(-1), nullptr);
}

TEST_F(EventListTest, OnlyWhatFitsOfALongTextIsDrawn) {
    constexpr std::size_t Long = 1 << 20;
    constexpr std::size_t Drawn = 1 << 10; // far more than fits
    const std::string zeros(Long, '\0');
    const std::string letters = "a\r\nb" + std::string(Long, 'x');
    reporter.AddErrorMsg(zeros, letters);
    const auto texts = TextsOfRow(0);
    EXPECT_LT(texts.at(3).size(), Drawn);
    EXPECT_LT(texts.at(4).size(), Drawn);
    EXPECT_EQ(texts.at(4).substr(0, 6), "a  bxx");
    EXPECT_EQ(texts.at(3).front(), ' ');
    EXPECT_EQ(list.GetItemText(0, 3), zeros);
    EXPECT_EQ(list.MessageAt(0)->m_strEvent, letters);
    const int wide = 7 * 3000;
    EXPECT_EQ(internal::FittingLine(std::string(2999, 'x'), wide).size(), 2999u);
    EXPECT_GT(internal::FittingLine(std::string(Long, 'x'), wide).size(), 3000u);
}

TEST_F(EventListTest, AMessageWithAPlaceCanBeFoundAgain) {
    reporter.Fire_OnAddEvent(MessageOf(CEventMessage::eWarning, "no points"), {"Axis 3/points", 17});
    reporter.AddInfoMsg("a", "done");
    ASSERT_NE(list.PlaceAt(1), nullptr);
    EXPECT_EQ(*list.PlaceAt(1), (EventPlace{"Axis 3/points", 17}));
    EXPECT_EQ(list.PlaceAt(0), nullptr);
    EXPECT_EQ(list.PlaceAt(2), nullptr);
}

// Of handlers that do what they like, what is left must be whole.
TEST_F(EventListTest, SurvivesItsParent) {
    reporter.AddInfoMsg("a", "1");
    parent.on[LVN_INSERTITEM] = [&](const NMLISTVIEW&) -> LRESULT {
        parent.on.clear();
        reporter.AddInfoMsg("a", "from a handler");
        throw std::runtime_error("full");
    };
    EXPECT_THROW(reporter.AddInfoMsg("a", "2"), std::runtime_error);
    EXPECT_EQ(Events(), (Labels{"from a handler", "2", "1"}));
    parent.on[LVN_DELETEITEM] = [&](const NMLISTVIEW& notice) -> LRESULT {
        if (notice.iItem == 1)
            throw std::runtime_error("in use");
        return 0;
    };
    EXPECT_THROW(reporter.Fire_OnClear(), std::runtime_error);
    parent.on.clear();
    EXPECT_EQ(Events(), (Labels{"from a handler", "2"}));
    SetDateCurrentFormatString(false, "%j");
    EXPECT_EQ(list.GetItemText(1, 1), DatetoString(list.MessageAt(1)->m_Date));
    parent.on[LVN_INSERTITEM] = [&](const NMLISTVIEW&) -> LRESULT { return list.DestroyWindow(); };
    reporter.AddInfoMsg("a", "3");
    EXPECT_EQ(list.m_hWnd, nullptr);
    reporter.AddInfoMsg("a", "4");
    reporter.Fire_OnClear();
}

TEST_F(EventListTest, AControlOfADialogBecomesAnEventList) {
    const HWND plain =
        CreateWindowExA(0, "SysListView32", "", WS_CHILD | WS_VISIBLE, {0, 0, 100, 100}, parent.m_hWnd, 7);
    CGridEvents attached;
    ASSERT_TRUE(attached.SubclassWindow(plain));
    attached.CreateHeader();
    attached.OnAddEvent(MessageOf(CEventMessage::eError, "b"));
    EXPECT_EQ(attached.GetItemText(0, 4), "b");
    EXPECT_EQ(attached.GetStyle() & (LVS_REPORT | LVS_OWNERDRAWFIXED), LVS_REPORT | LVS_OWNERDRAWFIXED);
}

} // namespace
} // namespace korvel

#include "korvel/events/event_filter.h"
#include "korvel/platform/code_page.h"
#include "support/event_list_fixture.h"

#include <algorithm>
#include <stdexcept>

namespace korvel {
namespace {

using Labels = std::vector<std::string>;
using Type = CEventMessage::EEventType;

class EventFilterTest : public EventListTest {
protected:
    void Report(Type type, const std::string& source, const std::string& event) {
        CEventMessage message = MessageOf(type, event);
        message.m_strSource = source;
        reporter.Fire_OnAddEvent(message);
    }
    void SetText(const std::string& text) {
        EventFilter filter = list.GetFilter();
        filter.SetText(text);
        list.SetFilter(filter);
    }
    void Hide(Type kind) {
        EventFilter filter = list.GetFilter();
        filter.HideKind(kind);
        list.SetFilter(filter);
    }
};

TEST_F(EventFilterTest, FindsATextInAnyCaseOfLetters) {
    const std::string lodz = platform::FromUtf8("ŁÓDŹ").text;
    const Table<std::string, std::string, std::string, bool> texts = {
        {"none", "", "", "", true},
        {"in the source", "imp", "Import", "x", true},
        {"in the event", "POINT", "x", "no points", true},
        {"not across both", "importno", "Import", "no points", false},
        {"whole", "no points", "", "no points", true},
        {"longer than the text", "no points", "", "no point", false},
        {"an umlaut", "GR\xDC\xDF", "",
         "Gr\xFC\xDF"
         "e",
         true},
        {"letters outside the code page", platform::FromUtf8("łódź").text, "", lodz, true},
        {"a part of a letter is none", lodz.substr(1, 1), "", lodz, false},
        {"beside a letter outside the code page", "d", "", lodz, true},
        {"after a zero byte", "end", "", std::string("a\0End", 5), true},
        {"in a long text", "needle", "", std::string(1 << 20, 'n') + "NEEDLE", true},
    };
    for (const auto& [name, wanted, source, event, isShown] : texts) {
        CEventMessage message = MessageOf(CEventMessage::eError, event);
        message.m_strSource = source;
        EventFilter filter;
        filter.SetText(wanted);
        EXPECT_EQ(filter.Shows(message), isShown) << name;
        EXPECT_EQ(filter.Text(), wanted);
    }
}

TEST_F(EventFilterTest, HidesRowsAndForgetsNoMessage) {
    Report(CEventMessage::eInformation, "Import", "Axis 1");
    Report(CEventMessage::eError, "Import", "Axis 2");
    Report(CEventMessage::eInformation, "Export", "axis 3");
    Report(static_cast<Type>(9), "Solver", "x");
    parent.Take();
    Hide(CEventMessage::eInformation);
    EXPECT_EQ(Events(), (Labels{"x", "Axis 2"}));
    EXPECT_EQ(list.GetMessageCount(), 4);
    EXPECT_EQ(list.GetItemImage(1), 1);
    EXPECT_EQ(TextsOfRow(1).at(0), "Error");
    SetText("AXIS");
    EXPECT_EQ(Events(), Labels{"Axis 2"});
    Report(CEventMessage::eInformation, "", "Axis 4");
    Report(CEventMessage::eError, "", "Axis 5");
    EXPECT_EQ(Events(), (Labels{"Axis 5", "Axis 2"}));
    EXPECT_EQ(parent.Take(), Notices{"insert 0"});
    list.SetFilter({});
    EXPECT_EQ(Events(), (Labels{"Axis 5", "Axis 4", "x", "axis 3", "Axis 2", "Axis 1"}));
}

TEST_F(EventFilterTest, WhatWasClearedStaysCleared) {
    Report(CEventMessage::eError, "", "before");
    SetText("nothing");
    reporter.Fire_OnClear();
    EXPECT_EQ(list.GetMessageCount(), 0);
    Report(CEventMessage::eError, "", "after");
    EXPECT_EQ(Events(), Labels{});
    list.SetFilter({});
    EXPECT_EQ(Events(), Labels{"after"});
}

TEST_F(EventFilterTest, HiddenRowsFollowTheDateFormat) {
    reporter.AddErrorMsg("", "x");
    Hide(CEventMessage::eError);
    SetDateCurrentFormatString(false, "day %j");
    list.SetFilter({});
    EXPECT_EQ(list.GetItemText(0, 1).substr(0, 4), "day ");
}

TEST_F(EventFilterTest, SelectionFocusAndScrollingStayWithTheirMessages) {
    for (int i = 0; i < 40; ++i)
        Report(i % 2 ? CEventMessage::eError : CEventMessage::eWarning, "", std::to_string(i));
    const auto rowOf = [&](const char* event) {
        const auto events = Events();
        return static_cast<int>(std::find(events.begin(), events.end(), event) - events.begin());
    };
    for (const char* event : {"7", "8", "11"})
        list.SetItemState(rowOf(event), LVIS_SELECTED, LVIS_SELECTED);
    list.SetItemState(rowOf("7"), LVIS_FOCUSED, LVIS_FOCUSED);
    list.EnsureVisible(rowOf("7"), false);
    list.Scroll({0, 20});
    const std::string top = list.GetItemText(list.GetTopIndex(), 4);
    EXPECT_EQ(list.GetItemState(rowOf("8"), LVIS_SELECTED), LVIS_SELECTED);
    parent.Take();

    Hide(CEventMessage::eWarning);
    std::vector<std::string> selected;
    for (int row = -1; (row = list.GetNextItem(row, LVNI_SELECTED)) != -1;)
        selected.push_back(list.GetItemText(row, 4));
    EXPECT_EQ(selected, (Labels{"11", "7"}));
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), rowOf("7"));
    EXPECT_EQ(list.GetSelectionMark(), rowOf("7"));
    EXPECT_EQ(list.GetItemText(list.GetTopIndex(), 4), top);
    EXPECT_EQ(parent.Take(), Notices{});

    SetText("7");
    EXPECT_EQ(Events(), (Labels{"37", "27", "17", "7"}));
    EXPECT_EQ(list.GetTopIndex(), 0);
    SetText("37"); // hides what has the focus
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), -1);
    EXPECT_EQ(list.GetSelectionMark(), -1);
    list.SetFilter({});
    EXPECT_EQ(list.GetTopIndex(), 0);
}

// It stops the redraw and ends a label edit: both are told.
TEST_F(EventFilterTest, HoldsWhatTheHostDoesMeanwhile) {
    const auto report = [&] { Report(CEventMessage::eError, "", "told"); };
    const auto clearAndReport = [&] { reporter.Fire_OnClear(), report(); };
    const auto edit = [&] { EXPECT_NE(list.EditLabel(0), nullptr); };
    const auto nothing = [] {};
    using Act = std::function<void()>;
    const Table<Act, Act, Act, Labels> cases = {
        {"the end of an edit reports", edit, nothing, report, {"told", "first"}},
        {"the end of an edit clears and reports", edit, nothing, clearAndReport, {"told"}},
        {"reports as the redraw stops", nothing, report, nothing, {"told", "first"}},
        {"edits as the redraw stops", nothing, edit, nothing, {"first"}},
        {"edits as the redraw stops, and reports at the end", nothing, edit, report, {"told", "first"}},
    };
    for (const auto& [name, before, asRedrawStops, atEndOfEdit, shown] : cases) {
        reporter.Fire_OnClear();
        Report(CEventMessage::eError, "", "first");
        list.ModifyStyle(0, LVS_EDITLABELS);
        list.SetFocus();
        parent.on[LVN_ENDLABELEDIT] = [act = atEndOfEdit](const auto&) { return act(), 0; };
        before();
        list.atRedraw = asRedrawStops;
        list.SetFilter({});
        EXPECT_EQ(Events(), shown) << name;
        EXPECT_EQ(list.GetEditControl(), nullptr) << name;
        parent.on.clear();
    }
}

TEST_F(EventFilterTest, IsDrawnAgainAfterAHandlerThatThrows) {
    Report(CEventMessage::eError, "", "x");
    list.atRedraw = [] { throw std::runtime_error("busy"); };
    EXPECT_THROW(SetText("y"), std::runtime_error);
    EXPECT_EQ(Events(), Labels{"x"});
    EXPECT_EQ(list.GetFilter().Text(), "");
    display.PaintWindow(list.m_hWnd);
    Report(CEventMessage::eError, "", "next");
    EXPECT_TRUE(display.IsInvalid(list.m_hWnd));
}

TEST_F(EventFilterTest, NeedsNoWindow) {
    list.DestroyWindow();
    Report(CEventMessage::eError, "", "x");
    SetText("x");
    MakeWindow();
    list.SetFilter({});
    EXPECT_EQ(Events(), Labels{"x"});
}

} // namespace
} // namespace korvel

#include "korvel/platform/calendar.h"
#include "korvel/platform/regional_settings.h"
#include "korvel/window/controls/date_time_ctrl.h"
#include "korvel/window/display/window_view.h"
#include "support/control_fixture.h"

#include <limits>

namespace korvel {
namespace {

class DateTimeTest : public ControlTestOf<NoticeParent> {
protected:
    void SetUp() override {
        ControlTestOf::SetUp();
        platform::UseLocale("de-DE");
    }
    void TearDown() override { platform::UseLocale({}); }
    void Make(UINT style = 0, const char* picture = nullptr,
              const SYSTEMTIME& time = {2026, 3, 0, 4, 15, 6, 7}) {
        control.DestroyWindow();
        control.Create(WS_CHILD | WS_VISIBLE | style, {0, 0, 120, 24}, &parent, 9);
        control.SetFormat(picture);
        EXPECT_TRUE(control.SetTime(time));
        control.SetFocus();
    }
    void Press(UINT key, const CString& characters = {}, UINT message = WM_KEYDOWN) {
        input::Key(control.m_hWnd, message, key, characters);
    }
    void Type(const CString& digits) {
        for (const char digit : digits)
            Press(static_cast<UINT>(digit), CString(1, digit));
    }
    CString Text() const { return control.GetWindowTextA(); }

    CDateTimeCtrl control;
};

TEST_F(DateTimeTest, ThePictureShowsTheDate) {
    for (const auto& [border, style, picture, text] : Table<UINT, const char*, const char*>{
             {"short", DTS_SHORTDATEFORMAT, nullptr, "04.03.2026"},
             {"long", DTS_LONGDATEFORMAT, nullptr, "Mittwoch, 4. M\xE4rz 2026"},
             {"time", DTS_TIMEFORMAT, nullptr, "15:06:07"},
             {"all letters", 0, "d dd ddd dddd M MM MMM y yy yyyy",
              "4 04 Mi Mittwoch 3 03 M\xE4r 26 26 2026"},
             {"twelve hours", 0, "h hh H m mm s ss tt", "3 03 15 6 06 7 07 PM"},
             {"quoted", 0, "'d''M' d", "d'M 4"},
             {"a quotation without end", 0, "d 'Uhr", "4 Uhr"}}) {
        Make(style, picture);
        EXPECT_EQ(Text(), text) << border;
    }
    Make(0, "h tt", {2026, 3, 0, 4, 0});
    EXPECT_TRUE(Text().starts_with("12 ")) << "midnight";
}

TEST_F(DateTimeTest, RefusesMomentsThatDoNotExistOrAreOutOfRange) {
    const SYSTEMTIME first{2026, 1, 0, 10};
    const SYSTEMTIME last{2026, 12, 0, 20, 12};
    for (const auto& [border, time, isTaken] :
         Table<SYSTEMTIME, bool>{{"the first", first, true},
                                 {"the last", last, true},
                                 {"before", {2026, 1, 0, 9, 23, 59, 59}, false},
                                 {"after", {2026, 12, 0, 20, 12, 0, 1}, false},
                                 {"no such day", {2026, 2, 0, 29}, false},
                                 {"no such month", {2026, 13, 0, 1}, false},
                                 {"no such hour", {2026, 3, 0, 1, 24}, false}}) {
        Make();
        ASSERT_TRUE(control.SetRange(&first, &last));
        EXPECT_EQ(control.SetTime(time), isTaken) << border;
        SYSTEMTIME shown;
        EXPECT_EQ(control.GetTime(shown), GDT_VALID) << border;
        EXPECT_EQ(shown.wMonth == 3, !isTaken) << border;
    }
    Make();
    EXPECT_FALSE(control.SetTime({1600, 12, 0, 31}));
    EXPECT_TRUE(control.SetTime({1601, 1, 0, 1, 6}));
    EXPECT_EQ(Text(), "01.01.1601");
    EXPECT_TRUE(control.SetTime({9999, 12, 0, 31, 23, 59, 59}));
    EXPECT_FALSE(control.SetRange(&last, &first)) << "an end before the beginning";
    EXPECT_TRUE(control.SetRange(&first, &last));
    EXPECT_EQ(Text(), "20.12.2026") << "the nearest end";
    EXPECT_EQ(parent.Take(), Codes());
}

TEST_F(DateTimeTest, KeepsEveryFieldAlsoBeforeTheYear1900) {
    for (const SYSTEMTIME& time :
         {SYSTEMTIME{1850, 6, 4, 13, 18, 30, 15, 250}, SYSTEMTIME{1899, 12, 6, 30, 6},
          SYSTEMTIME{1899, 12, 5, 29, 23, 59, 59}, SYSTEMTIME{2026, 3, 3, 4, 0, 0, 1, 999}}) {
        Make(0, nullptr, time);
        SYSTEMTIME shown;
        control.GetTime(shown);
        EXPECT_EQ(shown, time) << time.wYear;
    }
    Make(0, "HH", {1899, 12, 0, 29, 18});
    const SYSTEMTIME last{1899, 12, 0, 29, 12};
    control.SetRange(nullptr, &last);
    EXPECT_EQ(Text(), "12") << "later on a day before the first of the count";
}

TEST_F(DateTimeTest, KeysChangeThePartThatIsSelected) {
    for (const auto& [border, time, keys, text] : Table<SYSTEMTIME, std::vector<UINT>, const char*>{
             {"day", {2026, 3, 0, 4}, {VK_UP}, "05.03.2026"},
             {"the day begins anew", {2026, 3, 0, 31}, {VK_UP}, "01.03.2026"},
             {"and ends anew", {2026, 2, 0, 1}, {VK_DOWN}, "28.02.2026"},
             {"a leap year", {2024, 2, 0, 1}, {VK_END}, "29.02.2024"},
             {"month", {2026, 3, 0, 31}, {VK_RIGHT, VK_DOWN}, "28.02.2026"},
             {"year, from the left", {2024, 2, 0, 29}, {VK_LEFT, VK_SUBTRACT}, "28.02.2023"},
             {"round all parts", {2026, 3, 0, 4}, {VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_HOME}, "01.03.2026"}}) {
        Make(0, "dd.MM.yyyy", time);
        for (const UINT key : keys)
            Press(key);
        EXPECT_EQ(Text(), text) << border;
        EXPECT_EQ(parent.Take(), Codes{DTN_DATETIMECHANGE}) << border;
    }
    Make(0, "'no part'");
    for (const UINT key : {VK_UP, VK_LEFT, VK_RIGHT, VK_HOME, UINT{'1'}})
        Press(key, "1");
    EXPECT_EQ(parent.Take(), Codes());
}

TEST_F(DateTimeTest, DigitsTypeAPart) {
    for (const auto& [border, picture, typed, text] : Table<const char*, const char*, const char*>{
             {"one digit", "dd.MM.yyyy", "7", "07.03.2026"},
             {"too many begin anew", "dd.MM.yyyy", "278", "08.03.2026"},
             {"no such day begins anew", "dd.MM.yyyy", "45", "05.03.2026"},
             {"a leading zero", "dd.MM.yyyy", "09", "09.03.2026"},
             {"a year needs four", "yyyy", "203", "2026"},
             {"a year", "yyyy", "1999", "1999"},
             {"no year", "yyyy", "0999", "2026"},
             {"a short year of this century", "yy yyyy", "29", "29 2029"},
             {"a short year of the last", "yy yyyy", "30", "30 1930"}}) {
        Make(0, picture);
        Type(typed);
        EXPECT_EQ(Text(), text) << border;
    }
}

TEST_F(DateTimeTest, NoDateIsAStateOfItsOwn) {
    Make();
    EXPECT_FALSE(control.SetNone()) << "without the style";
    Make(DTS_SHOWNONE);
    UINT flags = 99; // of the last change
    parent.on[DTN_DATETIMECHANGE] = [&] {
        flags = reinterpret_cast<const NMDATETIMECHANGE*>(CWnd::GetCurrentMessage().lParam)->dwFlags;
    };
    EXPECT_TRUE(control.SetNone());
    SYSTEMTIME time{1, 2};
    EXPECT_EQ(control.GetTime(time), GDT_NONE);
    EXPECT_EQ(time, (SYSTEMTIME{1, 2}));
    Press(VK_UP);
    Press(VK_F4);
    EXPECT_EQ(parent.Take(), Codes()) << "nothing to change";
    Press(VK_SPACE, " ");
    EXPECT_EQ(flags, GDT_VALID);
    Press(VK_SPACE, " ");
    EXPECT_EQ(flags, GDT_NONE);
    input::Value(control.m_hWnd, *platform::DateFromFields({2027, 1, 2, 3, 4, 5}));
    EXPECT_EQ(parent.Take(), Codes(3, DTN_DATETIMECHANGE));
    EXPECT_EQ(Text(), "02.01.2027");
    for (const double value : {std::numeric_limits<double>::infinity(), 1e300, -1e300})
        input::Value(control.m_hWnd, value);
    EXPECT_EQ(parent.Take(), Codes());
    input::Value(control.m_hWnd, std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(flags, GDT_NONE);
}

TEST_F(DateTimeTest, TheCalendarMovesByDaysWeeksAndMonths) {
    const auto with = [](Codes codes, std::size_t changes) {
        codes.insert(codes.begin() + 1, changes, DTN_DATETIMECHANGE);
        return codes;
    };
    const Codes dropped{DTN_DROPDOWN, DTN_CLOSEUP};
    for (const auto& [border, keys, text, changes] : Table<std::vector<UINT>, const char*, std::size_t>{
             {"a day", {VK_F4, VK_RIGHT, VK_RETURN}, "01.04.2026", 1},
             {"a week", {VK_F4, VK_UP, VK_F4}, "24.03.2026", 1},
             {"months", {VK_F4, VK_PRIOR, VK_NEXT, VK_RETURN}, "28.03.2026", 2},
             {"back over New Year", {VK_F4, VK_PRIOR, VK_PRIOR, VK_PRIOR, VK_RETURN}, "28.12.2025", 3},
             {"Escape brings the date back", {VK_F4, VK_LEFT, VK_ESCAPE}, "31.03.2026", 2}}) {
        Make(0, "dd.MM.yyyy", {2026, 3, 0, 31});
        for (const UINT key : keys)
            Press(key);
        EXPECT_EQ(Text(), text) << border;
        EXPECT_EQ(parent.Take(), with(dropped, changes)) << border;
    }
    Make();
    Press(VK_DOWN, {}, WM_SYSKEYDOWN);
    EXPECT_TRUE(view::Date(control.m_hWnd).isDropped);
    parent.SetFocus();
    EXPECT_EQ(parent.Take(), dropped) << "the focus leaves";
    Make(DTS_UPDOWN);
    Press(VK_F4);
    EXPECT_EQ(parent.Take(), Codes()) << "arrows instead of a calendar";
}

TEST_F(DateTimeTest, AHandlerThatFailsKeepsNoNoticeBack) {
    Make();
    for (const auto& [border, key, fails, codes] : Table<UINT, UINT, Codes>{
             {"opening", VK_F4, DTN_DROPDOWN, {DTN_DROPDOWN}},
             {"a day", VK_LEFT, 0, {DTN_DATETIMECHANGE}},
             {"back", VK_ESCAPE, DTN_DATETIMECHANGE, {DTN_DATETIMECHANGE, DTN_CLOSEUP}}}) {
        SCOPED_TRACE(border);
        display.TakeChanges(control.m_hWnd);
        parent.FailOn(fails);
        if (fails)
            EXPECT_THROW(Press(key), std::runtime_error);
        else
            Press(key);
        EXPECT_EQ(parent.Take(), codes);
        EXPECT_TRUE(display.TakeChanges(control.m_hWnd) & Aspect::State);
    }
}

} // namespace
} // namespace korvel

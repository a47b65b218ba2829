#include "korvel/editors/grid_ctrl_date_time.h"
#include "support/control_fixture.h"
#include "support/edited_object.h"
#include "support/make_value.h"

#include <bit>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace korvel {
namespace {

std::uint64_t Bits(const CVariantValue& date) {
    return std::bit_cast<std::uint64_t>(date.Value.Double);
}

class DateEditorTest : public ControlTest {
protected:
    void SetUp() override {
        ControlTest::SetUp();
        Make(DTS_SHOWNONE);
    }
    void Make(UINT style) {
        picker.DestroyWindow();
        picker.Create(WS_CHILD | WS_VISIBLE | style, {0, 0, 120, 24}, &parent, 109);
        picker.SetFormat("yyyy-MM-dd");
        parent.Take();
    }
    void Hold(const CVariantValue& value) {
        object.RemoveMember("built");
        object.AddMember("built", true, value);
    }
    void Start(const CVariantValue& value = Day) {
        Hold(value);
        picker.Start(&object, "built");
        object.Take();
    }
    void StartAndChange() {
        Start();
        picker.SetFocus();
        Press(VK_UP); // the year
    }
    CVariantValue Stored() { return object.Get("built"); }
    void Press(UINT key, UINT message = WM_KEYDOWN) { input::Key(picker.m_hWnd, message, key, {}); }
    bool IsNone() const {
        SYSTEMTIME time;
        return picker.GetTime(time) == GDT_NONE;
    }

    inline static const CVariantValue Day = MakeDate("GDT_VALID", 44000);
    inline static const CVariantValue YearLater = MakeDate("GDT_VALID", 44365);
    EditedObject object;
    CGridCtrlDateTime picker{&object};
};

TEST_F(DateEditorTest, APickerThatIsLeftAsItWasWritesTheSameBits) {
    constexpr double Nan = std::numeric_limits<double>::quiet_NaN();
    for (const auto& [border, value, isNone] :
         Table<CVariantValue, bool>{{"fractions of a second", MakeDate("GDT_VALID", 44000.99999421), false},
                                    {"before the first day", MakeDate("GDT_VALID", -0.5), false},
                                    {"before 1601", MakeDate("GDT_VALID", -200000.25), true},
                                    {"not a number", MakeDate("GDT_VALID", Nan), true},
                                    {"none", MakeDate("GDT_NONE", 44000.25), true},
                                    {"a state of the host's own", MakeDate("planned", 44000.25), true},
                                    {"no state", MakeDate("", 0), true}})
        for (const UINT style : {DTS_SHOWNONE, 0u}) {
            Make(style);
            Start(value);
            EXPECT_TRUE(picker.End()) << border;
            const std::string number = value.ToText(TextForm::Plain) + " ";
            EXPECT_EQ(object.Take(), "get set " + number + "told " + number) << border;
            EXPECT_EQ(Stored().Text, value.Text) << border;
            EXPECT_EQ(Bits(Stored()), Bits(value)) << border;
            EXPECT_EQ(IsNone(), isNone && style == DTS_SHOWNONE) << border;
        }
}

TEST_F(DateEditorTest, WhatTheUserChangesIsWritten) {
    const auto pressed = [&](UINT key) {
        Press(key);
        EXPECT_TRUE(picker.End());
        return Stored();
    };
    Start(MakeDate("GDT_VALID", 44000.75));
    picker.SetFocus();
    EXPECT_EQ(pressed(VK_UP), MakeDate("GDT_VALID", 44365.75)) << "the time of day stays";
    EXPECT_EQ(parent.Take(), Codes{GridDateChanged});
    EXPECT_EQ(pressed(VK_DOWN), MakeDate("GDT_VALID", 44000.75));
    EXPECT_EQ(pressed(VK_SPACE), MakeDate("GDT_NONE", 44000.75));
    Start(MakeDate("", 3));
    const CVariantValue today = pressed(VK_SPACE);
    EXPECT_EQ(today.Text, "GDT_VALID");
    EXPECT_GT(today.Value.Double, 44000) << "today, not the date before";
    EXPECT_EQ(today.Value.Double, std::floor(today.Value.Double)) << "without a hidden time";
    const auto hasNoValue = [&] { object.Misbehave("get", [] { return false; }); };
    hasNoValue();
    picker.Start(&object, "built");
    EXPECT_TRUE(IsNone()) << "a member without a value yet";
    hasNoValue();
    object.Take();
    EXPECT_TRUE(picker.End());
    EXPECT_EQ(object.Take(), "get type ") << "nor does it get one";
    hasNoValue();
    EXPECT_EQ(pressed(VK_SPACE).Text, "GDT_VALID");
    Start();
    Hold(MakeDate("GDT_VALID", 45000.5));
    EXPECT_TRUE(picker.End());
    EXPECT_EQ(Stored(), MakeDate("GDT_VALID", 45000.5)) << "a newer value, where nothing was pressed";
}

TEST_F(DateEditorTest, WhatIsNoDateIsNotWritten) {
    const CVariantValue number = MakeValue(DT_Double, 3.0);
    for (const auto& [border, act] :
         Table<std::function<void()>>{{"another type", [&] { Start(number); }},
                                      {"retyped meanwhile", [&] { Start(), Hold(number); }},
                                      {"removed meanwhile", [&] { Start(), object.RemoveMember("built"); }},
                                      {"no such member", [&] { picker.Start(&object, "other"); }},
                                      {"no object", [&] { picker.Start(nullptr, "built"); }},
                                      {"dropped", [&] { Start(), picker.Drop(); }}}) {
        act();
        picker.SetFocus();
        Press(VK_UP);
        EXPECT_TRUE(picker.End()) << border;
        EXPECT_EQ(object.Take().find("set"), std::string::npos) << border;
        SetFocus(parent.m_hWnd);
    }
}

TEST_F(DateEditorTest, ARefusalLeavesThePickerToBeEndedAgain) {
    StartAndChange();
    object.Misbehave("set", [] { return false; });
    EXPECT_FALSE(picker.End());
    EXPECT_EQ(object.Take(), "get set 44365 ") << "the observer hears nothing";
    object.Misbehave("set", []() -> bool { throw std::runtime_error("locked"); });
    EXPECT_THROW(picker.End(), std::runtime_error);
    EXPECT_TRUE(picker.End());
    EXPECT_EQ(Stored(), YearLater);
}

TEST_F(DateEditorTest, AHostMayDoAnythingWhileItIsWritten) {
    for (const auto& [border, isStillTold, act] : Table<bool, std::function<void()>>{
             {"end it again", true, [&] { EXPECT_TRUE(picker.End()); }},
             {"take the focus away", true, [&] { SetFocus(parent.m_hWnd); }},
             {"drop the edit", false, [&] { picker.Drop(); }},
             {"begin another edit", false, [&] { picker.Start(&object, "other"); }},
             {"destroy the window", true, [&] { picker.DestroyWindow(); }}})
        for (const char* when : {"set", "told"}) {
            SCOPED_TRACE(std::string(border) + " at " + when);
            Make(DTS_SHOWNONE);
            StartAndChange();
            object.Misbehave(when, [act = act] { return act(), true; });
            EXPECT_TRUE(picker.End());
            const bool isTold = object.Take().find("told") != std::string::npos;
            EXPECT_EQ(isTold, isStillTold || when == std::string("told"));
            EXPECT_EQ(Stored(), YearLater);
        }
}

TEST_F(DateEditorTest, TheParentIsToldOnceThatTheFocusHasGone) {
    Start();
    picker.SetFocus();
    Press(VK_F4);
    EXPECT_EQ(parent.Take(), Codes{GridDateChanged}) << "the calendar has opened";
    Press(VK_RETURN);
    EXPECT_EQ(parent.Take(), Codes{}) << "the calendar has closed";
    Press(VK_RETURN);
    EXPECT_EQ(GetFocus(), parent.m_hWnd);
    EXPECT_EQ(parent.Take(), Codes{EN_KILLFOCUS});
    picker.SendMessageA(WM_KILLFOCUS);
    EXPECT_EQ(parent.Take(), Codes{});
    EXPECT_EQ(picker.SendMessageA(WM_GETDLGCODE) & 5, 5);
}

TEST_F(DateEditorTest, EscapeClosesTheCalendarAndThenGivesTheEditUpWhereItIsToldTo) {
    GridOptions options;
    options.Set(EGridOption::EscapeCancels, true);
    picker.SetOptions(options);
    StartAndChange();
    Press(VK_F4);
    Press(VK_ESCAPE);
    EXPECT_EQ(GetFocus(), picker.m_hWnd);
    Press(VK_ESCAPE);
    EXPECT_EQ(GetFocus(), parent.m_hWnd);
    EXPECT_TRUE(picker.End());
    EXPECT_EQ(object.Take(), "");
}

} // namespace
} // namespace korvel

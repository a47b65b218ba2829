#include "korvel/editors/grid_ctrl_date_time.h"
#include "korvel/values/member_dispatch_imp.h"
#include "support/control_fixture.h"
#include "support/make_value.h"
#include "support/quiet_observer.h"
#include "support/table.h"

#include <bit>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace korvel {
namespace {

std::uint64_t Bits(const CVariantValue& date) {
    return std::bit_cast<std::uint64_t>(date.Value.Double);
}

// An object that writes down what is done to it.
class Log : public QuietObserver {
public:
    class Object : public TMemberDispatchImp<Object> {
    public:
        explicit Object(Log& log) : m_log(log) {}
        bool GetMember(const std::string& name, CVariantValue& value) override {
            return hasValue && TMemberDispatchImp::GetMember(name, value);
        }
        bool SetMember(const std::string& name, const CVariantValue& value) override {
            m_log.Note("set " + name);
            hasValue = true;
            return m_log.takes && TMemberDispatchImp::SetMember(name, value);
        }

        bool hasValue = true;

    private:
        Log& m_log;
    };

    void OnChange(IMemberDispatch*, void*, const std::string& name, const CVariantValue&) override {
        Note("change " + name);
    }
    std::string Take() { return std::exchange(m_text, {}); }

    bool takes = true;
    std::function<void(const std::string&)> onNote;

private:
    void Note(const std::string& what) {
        m_text += (m_text.empty() ? "" : ", ") + what;
        if (onNote)
            onNote(what);
    }
    std::string m_text;
};

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
    void Start(const CVariantValue& value) {
        object.RemoveMember("built");
        object.AddMember("built", true, value);
        picker.Start(&object, "built");
    }
    CVariantValue Stored() {
        CVariantValue value;
        object.GetMember("built", value);
        return value;
    }
    void Press(UINT key, UINT message = WM_KEYDOWN) { input::Key(picker.m_hWnd, message, key, {}); }
    bool IsNone() const {
        SYSTEMTIME time;
        return picker.GetTime(time) == GDT_NONE;
    }

    Log log;
    Log::Object object{log};
    CGridCtrlDateTime picker{&log};
};

TEST_F(DateEditorTest, APickerThatIsLeftAsItWasWritesTheSameBits) {
    constexpr double Nan = std::numeric_limits<double>::quiet_NaN();
    for (const auto& [border, value, isNone] : Table<CVariantValue, bool>{
             {"fractions of a second", MakeDate("GDT_VALID", 44000.99999421), false},
             {"rounded up to the next day", MakeDate("GDT_VALID", 44000.99999422), false},
             {"before the first day", MakeDate("GDT_VALID", -0.5), false},
             {"before 1601", MakeDate("GDT_VALID", -200000.25), true},
             {"in no calendar", MakeDate("GDT_VALID", 1e300), true},
             {"not a number", MakeDate("GDT_VALID", Nan), true},
             {"none", MakeDate("GDT_NONE", 44000.25), true},
             {"a state of the host's own", MakeDate("planned", 44000.25), true},
             {"no state", MakeDate("", 0), true}}) {
        for (const UINT style : {DTS_SHOWNONE, 0u}) {
            Make(style);
            Start(value);
            EXPECT_TRUE(picker.End()) << border;
            EXPECT_EQ(log.Take(), "set built, change built") << border;
            EXPECT_EQ(Stored().Text, value.Text) << border;
            EXPECT_EQ(Bits(Stored()), Bits(value)) << border;
            EXPECT_EQ(IsNone(), isNone && style == DTS_SHOWNONE) << border;
        }
    }
}

TEST_F(DateEditorTest, WhatTheUserChangesIsWritten) {
    Start(MakeDate("GDT_VALID", 44000.75));
    picker.SetFocus();
    Press(VK_UP); // the year
    EXPECT_EQ(parent.Take(), Codes{GridDateChanged});
    EXPECT_TRUE(picker.End());
    EXPECT_EQ(Stored(), MakeDate("GDT_VALID", 44365.75)) << "the time of day stays";
    Press(VK_DOWN);
    EXPECT_TRUE(picker.End());
    EXPECT_EQ(Stored(), MakeDate("GDT_VALID", 44000.75));
    Press(VK_SPACE);
    EXPECT_TRUE(picker.End());
    EXPECT_EQ(Stored(), MakeDate("GDT_NONE", 44000.75));
    Start(MakeDate("", 3));
    Press(VK_SPACE);
    EXPECT_TRUE(picker.End());
    EXPECT_EQ(Stored().Text, "GDT_VALID");
    EXPECT_GT(Stored().Value.Double, 44000) << "today, not the date before";
    EXPECT_EQ(Stored().Value.Double, std::floor(Stored().Value.Double)) << "without a hidden time";
    object.hasValue = false;
    picker.Start(&object, "built");
    EXPECT_TRUE(IsNone()) << "a member without a value yet";
    log.Take();
    EXPECT_TRUE(picker.End());
    EXPECT_EQ(log.Take(), "") << "nor does it get one";
    Press(VK_SPACE);
    EXPECT_TRUE(picker.End());
    EXPECT_EQ(Stored().Text, "GDT_VALID");
}

TEST_F(DateEditorTest, ANewerValueIsNotOverwrittenByAPickerThatIsLeftAsItWas) {
    Start(MakeDate("GDT_VALID", 44000));
    object.TMemberDispatchImp::SetMember("built", MakeDate("GDT_VALID", 45000.5));
    EXPECT_TRUE(picker.End());
    EXPECT_EQ(Stored(), MakeDate("GDT_VALID", 45000.5));
}

TEST_F(DateEditorTest, WhatIsNoDateIsNotWritten) {
    const auto started = [&](const CVariantValue& value) { Start(value); };
    for (const auto& [border, act] :
         Table<std::function<void()>>{{"another type", [&] { started(MakeValue(DT_Double, 3.0)); }},
                                      {"retyped meanwhile",
                                       [&] {
                                           started(MakeDate("GDT_VALID", 44000));
                                           object.RemoveMember("built");
                                           object.AddMember("built", true, MakeValue(DT_Double, 3.0));
                                       }},
                                      {"removed meanwhile",
                                       [&] {
                                           started(MakeDate("GDT_VALID", 44000));
                                           object.RemoveMember("built");
                                       }},
                                      {"no such member", [&] { picker.Start(&object, "other"); }},
                                      {"no object", [&] { picker.Start(nullptr, "built"); }},
                                      {"dropped", [&] {
                                           started(MakeDate("GDT_VALID", 44000));
                                           picker.Drop();
                                       }}}) {
        act();
        picker.SetFocus();
        Press(VK_UP);
        EXPECT_TRUE(picker.End()) << border;
        EXPECT_EQ(log.Take(), "") << border;
        SetFocus(parent.m_hWnd);
    }
}

TEST_F(DateEditorTest, ARefusalLeavesThePickerToBeEndedAgain) {
    Start(MakeDate("GDT_VALID", 44000));
    picker.SetFocus();
    Press(VK_UP);
    log.takes = false;
    EXPECT_FALSE(picker.End());
    EXPECT_EQ(log.Take(), "set built") << "the observer hears nothing";
    log.onNote = [](const std::string&) { throw std::runtime_error("locked"); };
    EXPECT_THROW(picker.End(), std::runtime_error);
    log.onNote = nullptr;
    log.takes = true;
    EXPECT_TRUE(picker.End());
    EXPECT_EQ(Stored(), MakeDate("GDT_VALID", 44365));
}

TEST_F(DateEditorTest, AHostMayDoAnythingWhileItIsWritten) {
    for (const auto& [border, act] :
         Table<std::function<void()>>{{"end it again", [&] { EXPECT_TRUE(picker.End()); }},
                                      {"take the focus away", [&] { SetFocus(parent.m_hWnd); }},
                                      {"drop the edit", [&] { picker.Drop(); }},
                                      {"begin another edit", [&] { picker.Start(&object, "other"); }},
                                      {"destroy the window", [&] { picker.DestroyWindow(); }}}) {
        for (const std::string when : {"set built", "change built"}) {
            const bool isTold = when == "change built" || !std::string(border).ends_with("edit");
            Make(DTS_SHOWNONE);
            Start(MakeDate("GDT_VALID", 44000));
            picker.SetFocus();
            Press(VK_UP);
            log.onNote = [&, act = act](const std::string& what) {
                if (what == when)
                    act();
            };
            EXPECT_TRUE(picker.End()) << border;
            log.onNote = nullptr;
            EXPECT_EQ(log.Take(), isTold ? "set built, change built" : "set built")
                << border << " at " << when;
            EXPECT_EQ(Stored(), MakeDate("GDT_VALID", 44365)) << border;
        }
    }
}

TEST_F(DateEditorTest, TheParentIsToldOnceThatTheFocusHasGone) {
    Start(MakeDate("GDT_VALID", 44000));
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
    Start(MakeDate("GDT_VALID", 44000));
    picker.SetFocus();
    Press(VK_UP);
    Press(VK_F4);
    Press(VK_ESCAPE);
    EXPECT_EQ(GetFocus(), picker.m_hWnd);
    Press(VK_ESCAPE);
    EXPECT_EQ(GetFocus(), parent.m_hWnd);
    EXPECT_TRUE(picker.End());
    EXPECT_EQ(log.Take(), "");
}

} // namespace
} // namespace korvel

#include "korvel/grid/write_frame.h"
#include "korvel/platform/error.h"
#include "korvel/values/language.h"
#include "korvel/values/refusal_text.h"
#include "korvel/window/display/headless_display.h"
#include "support/german_machine.h"
#include "support/history_log.h"
#include "support/table.h"

namespace korvel::internal {
namespace {

struct Reporter : IGridErrorReporter {
    void Report(const std::string& caption, const std::string& message) override {
        log += caption + ": " + message;
    }
    std::string log;
};

class WriteFrameTest : public testing::Test {
protected:
    WriteFrameTest() {
        SetLanguageForThisRun("English");
        SetDisplay(&display);
        parent.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 400, 400}, nullptr, 0);
        grid.CreateEx(0, "STATIC", "", WS_CHILD | WS_VISIBLE, {0, 0, 9, 9}, &parent, 1);
    }
    ~WriteFrameTest() override { SetDisplay(nullptr); }

    HeadlessDisplay display;
    HistoryParent parent;
    CWnd grid;
    IGridErrorReporter* reporter = nullptr;
    GridOptions options;
    WriteFrame frame{grid, reporter, options};
};

TEST_F(WriteFrameTest, EveryStepIsClosedOnceAndFailuresAreTold) {
    constexpr int Renamed = 31;
    for (const auto& [border, isKept, steps, told, write] :
         Table<bool, const char*, const char*, WriteFrame::Write>{
             {"written", true, "[Member renamed]", "", [](HistoryStep&) { return true; }},
             {"nothing written", false, "[Member renamed]!", "", [](HistoryStep&) { return false; }},
             {"thrown", false, "[Member renamed]!", "of the host",
              [](HistoryStep&) -> bool { throw Error("of the host"); }},
             {"thrown without a text", false, "[Member renamed]!", "unknown exception",
              [](HistoryStep&) -> bool { throw Error(""); }},
             {"thrown and no exception", false, "[Member renamed]!", "unknown exception",
              [](HistoryStep&) -> bool { throw 1; }},
             {"closed early, then thrown", false, "[Member renamed]!", "late",
              [](HistoryStep& step) -> bool { step.Close(), throw Error("late"); }},
             {"a write within", true, "[Member renamed]", "",
              [&](HistoryStep&) {
                  return frame.Run(30, [](HistoryStep& inner) { return inner.Close(), true; });
              }},
             {"a write within that fails", false, "[Member renamed]!", "inner",
              [&](HistoryStep&) {
                  return frame.Run(30, [](HistoryStep&) -> bool { throw Error("inner"); });
              }},
         }) {
        SCOPED_TRACE(border);
        const std::size_t boxes = display.ShownBoxes().size();
        display.AnswerNext(IDOK);
        EXPECT_EQ(frame.Run(Renamed, write), isKept);
        EXPECT_EQ(parent.Take(), steps);
        ASSERT_EQ(display.ShownBoxes().size(), boxes + (*told ? 1 : 0));
        if (*told) {
            EXPECT_EQ(display.ShownBoxes().back().text, told);
            EXPECT_EQ(display.ShownBoxes().back().caption, "Korvel");
            EXPECT_EQ(display.ShownBoxes().back().type, MB_OK | MB_ICONERROR);
        } else {
            MessageBoxA(nullptr, "", "", MB_OK); // the answer that no one asked for
        }
    }
}

TEST_F(WriteFrameTest, AParentThatFailsIsToldTheRestAndTheUserWhy) {
    Reporter told;
    reporter = &told;
    for (const auto& [border, failing, wParam, isInline] :
         Table<UINT, WPARAM, bool>{{"opening", WM_HISTORY, 1, true},
                                   {"closing", WM_HISTORY, 0, true},
                                   {"and a box", WM_HISTORY, 0, false}}) {
        options.Set(EGridOption::InlineErrors, isInline);
        if (!isInline)
            display.AnswerNext(IDOK);
        parent.onStep = [failing = failing, wParam = wParam](UINT message, WPARAM which) {
            if (message == failing && which == wParam)
                throw Error("no step");
        };
        EXPECT_FALSE(frame.Run(30, [](HistoryStep&) { return true; })) << border;
        EXPECT_EQ(parent.Take(), "[Member edited]!") << border;
        EXPECT_EQ(std::exchange(told.log, {}), "Korvel: no step") << border;
        EXPECT_EQ(display.ShownBoxes().size(), isInline ? 0u : 1u) << border;
    }
}

TEST_F(WriteFrameTest, AStepIsClosedAtItsParentAlthoughTheGridIsGone) {
    EXPECT_FALSE(frame.Run(30, [&](HistoryStep&) -> bool { grid.DestroyWindow(), throw Error("unheard"); }));
    EXPECT_EQ(parent.Take(), "[Member edited]!");
    EXPECT_TRUE(display.ShownBoxes().empty()) << "there is nothing to show a box over";
}

TEST_F(WriteFrameTest, ARefusalWithoutATextNamesTheTypedTextAndTheType) {
    for (const auto& [border, type, name] : Table<EDataTyps, const char*>{
             {"a name of its own", DT_LengthDouble, "Length"},
             {"man-days", DT_ManDaysFloat, "Float"},
             {"a text form", DT_TextFormInt, "Integer"},
             {"on a button", static_cast<EDataTyps>(DT_AngleDouble | TypeBitButton), "Angle"}})
        EXPECT_EQ(RefusalText("", "$2", type),
                  std::string("invalid input: '$2' can not be converted in data type ") + name)
            << border;
    EXPECT_EQ(RefusalText("its own", "x", DT_Int), "its own");
}

} // namespace
} // namespace korvel::internal

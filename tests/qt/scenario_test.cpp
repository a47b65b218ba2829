#include "qt/users.h"

#include <gmock/gmock.h>

namespace korvel::test {

namespace {

// As one text, so that a failure is shown as a difference of lines.
std::string Joined(const Log& log) {
    std::string text;
    for (const std::string& line : log)
        text += line + "\n";
    return text;
}

// One comparison of everything: a difference is a fault of the display, or of what stands in for it.
TEST(Scenario, TheSameOnTheDesktopAsWithoutScreen) {
    Log withoutScreen;
    {
        HeadlessUser user;
        withoutScreen = RunScenario(user);
    }
    QtUser user;
    EXPECT_EQ(Joined(withoutScreen), Joined(RunScenario(user)));
    for (const char* held : {"text 'a'", "text 'seven'", "frame: command 1281 of 98", "text 'ad'",
                             "focus kept", "gone", "answer 7", "command 12"})
        EXPECT_THAT(withoutScreen, testing::Contains(held));
}

} // namespace

} // namespace korvel::test

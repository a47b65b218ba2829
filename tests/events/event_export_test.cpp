#include "korvel/events/event_export.h"
#include "korvel/platform/code_page.h"
#include "korvel/platform/file_error.h"
#include "support/event_list_fixture.h"

#include <fstream>
#include <sstream>

namespace korvel {
namespace {

class EventExportTest : public EventListTest {
protected:
    void Report(CEventMessage::EEventType type, const std::string& source, const std::string& event) {
        CEventMessage message = MessageOf(type, event);
        message.m_strDate = "23.11.2026";
        message.m_strTime = "10:15";
        message.m_strSource = source;
        reporter.Fire_OnAddEvent(message);
    }
    static std::string ContentOf(const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        return (std::ostringstream() << file.rdbuf()).str();
    }

    platform::ScratchFolder folder;
};

TEST_F(EventExportTest, WritesOneLineForEachRow) {
    EXPECT_EQ(EventsAsText(list, EventRows::Shown), "");
    Report(CEventMessage::eError, "a\tb",
           std::string("1\r\n2\n3\r4\0"
                       "5",
                       10));
    Report(static_cast<CEventMessage::EEventType>(9), "", " \"Axis\" 3");
    EXPECT_EQ(EventsAsText(list, EventRows::Shown), "??\t23.11.2026\t10:15\t\t\" \"\"Axis\"\" 3\"\n"
                                                    "Error\t23.11.2026\t10:15\ta b\t1 2 3 4 5");
}

TEST_F(EventExportTest, TakesSelectedOrShownRows) {
    for (const char* event : {"1", "2", "3"})
        Report(CEventMessage::eInformation, "", event);
    const auto event = [](const std::string& text) { return text.substr(text.rfind('\t') + 1); };
    EXPECT_EQ(CopyEvents(list, EventRows::Selected), std::nullopt);
    EXPECT_EQ(display.ClipboardText(), std::nullopt);
    list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
    ASSERT_TRUE(CopyEvents(list, EventRows::Selected));
    EXPECT_EQ(event(display.ClipboardText().value()), "2");
    EXPECT_EQ(EventsAsText(list, EventRows::Selected).find('\n'), std::string::npos);
    EventFilter filter;
    filter.SetText("1");
    list.SetFilter(filter);
    EXPECT_EQ(CopyEvents(list, EventRows::Selected), std::nullopt);
    display.AnswerNextClipboard({ClipboardAnswer::Outcome::NotSet, 5});
    EXPECT_EQ(CopyEvents(list, EventRows::Shown)->error, 5);
    EXPECT_EQ(event(EventsAsText(list, EventRows::Shown)), "1");
}

TEST_F(EventExportTest, SavesUtf8OrLeavesTheFile) {
    const auto path = folder.Path() / "events.txt";
    SaveEvents(list, path);
    EXPECT_EQ(ContentOf(path), "");
    Report(CEventMessage::eWarning, "\xDC", platform::FromUtf8("Łódź").text);
    SaveEvents(list, path);
    EXPECT_EQ(ContentOf(path), "Warning\t23.11.2026\t10:15\tÜ\tŁódź\n");
    EXPECT_THROW(SaveEvents(list, folder.Path() / "missing" / "events.txt"), FileError);
}

} // namespace
} // namespace korvel

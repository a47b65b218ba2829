#include "korvel/events/event_sink_observer.h"
#include "korvel/output/dates.h"
#include "korvel/platform/calendar.h"
#include "support/event_fixture.h"
#include "support/interface_slots.h"

#include <ctime>
#include <stdexcept>

namespace korvel {
namespace {

class EventSource : public GermanMachine {
protected:
    TestReporter reporter;
    HeardEvents first;
    HeardEvents second;
};

TEST_F(EventSource, StampsEachReportAndHandsItOnAtOnce) {
    const Table<void (*)(IEventSource&), CEventMessage::EEventType> reports = {
        {"error", [](IEventSource& source) { source.AddErrorMsg("a", "b\nc"); }, CEventMessage::eError},
        {"warning", [](IEventSource& source) { source.AddWarningMsg("a", "b\nc"); }, CEventMessage::eWarning},
        {"info", [](IEventSource& source) { source.AddInfoMsg("a", "b\nc"); }, CEventMessage::eInformation},
    };
    reporter.AddSink(&first);
    for (const auto& [name, report, type] : reports) {
        SCOPED_TRACE(name);
        const std::time_t before = std::time(nullptr);
        report(*reporter.GetEventSourceImp());
        const std::time_t after = std::time(nullptr);
        ASSERT_FALSE(first.messages.empty());
        const CEventMessage message = first.messages.back();
        EXPECT_EQ(message.m_Type, type);
        EXPECT_EQ(message.m_strSource, "a");
        EXPECT_EQ(message.m_strEvent, "b\nc");
        EXPECT_GE(message.m_Time, before);
        EXPECT_LE(message.m_Time, after);
        const auto date = platform::FieldsFromDate(message.m_Date);
        EXPECT_TRUE(date == platform::LocalFieldsFromEpoch(before) ||
                    date == platform::LocalFieldsFromEpoch(after));
        EXPECT_EQ(message.m_strDate, DatetoString(message.m_Date));
        EXPECT_EQ(message.m_strTime, TimetoString(message.m_Time));
    }
    EXPECT_EQ(first.messages.size(), 3u);
}

TEST_F(EventSource, CallsEachSinkOnceInTheOrderOfTheAddresses) {
    HeardEvents* const lower = std::min(&first, &second, std::less<>());
    HeardEvents* const upper = std::max(&first, &second, std::less<>());
    std::string order;
    lower->reaction = [&] { order += 'l'; };
    upper->reaction = [&] { order += 'u'; };
    reporter.AddInfoMsg("nobody", "hears it");
    for (HeardEvents* sink : {upper, lower, upper})
        reporter.AddSink(sink);
    reporter.AddSink(nullptr);
    reporter.AddInfoMsg("a", "b");
    reporter.Fire_OnClear();
    EXPECT_EQ(order, "lu");
    EXPECT_EQ(lower->clears + upper->clears, 2);
    reporter.RemoveSink(lower);
    reporter.RemoveSink(lower);
    reporter.AddInfoMsg("a", "b");
    EXPECT_EQ(order, "luu");
}

TEST_F(EventSource, CopiesReportToTheSameSinksFromSetsOfTheirOwn) {
    reporter.AddSink(&first);
    reporter.AddSink(&second);
    TestReporter copy(reporter);
    copy.GetEventSourceImp()->AddInfoMsg("copy", "b");
    EXPECT_EQ(first.messages.size() + second.messages.size(), 2u);
    copy.RemoveSink(&second);
    reporter.AddInfoMsg("original", "b");
    EXPECT_EQ(second.messages.size(), 2u);
    TestReporter& self = copy;
    copy = self;
    copy.AddInfoMsg("copy", "b");
    EXPECT_EQ(first.messages.size(), 3u);
    TestReporter assigned;
    assigned.AddSink(&second);
    assigned = copy;
    assigned.AddInfoMsg("assigned", "b");
    EXPECT_EQ(first.messages.size(), 4u);
    EXPECT_EQ(second.messages.size(), 2u);
}

TEST_F(EventSource, ASinkMayComeAndGoWhileOthersAreCalled) {
    HeardEvents sinks[3];
    for (HeardEvents& sink : sinks)
        reporter.AddSink(&sink);
    sinks[0].reaction = [&] { reporter.RemoveSink(&sinks[0]); };
    sinks[1].reaction = [&] { reporter.RemoveSink(&sinks[2]); };
    reporter.AddInfoMsg("a", "b");
    EXPECT_EQ(sinks[1].messages.size(), 1u);
    EXPECT_EQ(sinks[2].messages.size(), 0u);
    reporter.AddInfoMsg("a", "b");
    EXPECT_EQ(sinks[0].messages.size(), 1u);
    EXPECT_EQ(sinks[1].messages.size(), 2u);
}

TEST_F(EventSource, AnExceptionEndsTheWalkAndReachesTheReporter) {
    HeardEvents sinks[2];
    for (HeardEvents& sink : sinks)
        reporter.AddSink(&sink);
    sinks[0].reaction = [] { throw std::runtime_error("full"); };
    EXPECT_THROW(reporter.AddInfoMsg("a", "b"), std::runtime_error);
    EXPECT_EQ(sinks[1].messages.size(), 0u);
    sinks[0].reaction = nullptr;
    reporter.AddInfoMsg("a", "b");
    EXPECT_EQ(sinks[1].messages.size(), 1u);
}

TEST_F(EventSource, APlaceGoesToTheSinksThatTakeIt) {
    struct PlacedSink : HeardEvents, PlacedEventSink {
        void OnAddPlacedEvent(const CEventMessage&, const EventPlace& at) override { place = at; }
        EventPlace place;
    } placed;
    reporter.AddSink(&first);
    reporter.AddSink(&placed);
    CEventMessage message;
    message.m_strEvent = "no points";
    reporter.Fire_OnAddEvent(message, {"Axis 3/points", 17});
    EXPECT_EQ(first.messages.size(), 1u);
    EXPECT_EQ(placed.messages.size(), 0u);
    EXPECT_EQ(placed.place, (EventPlace{"Axis 3/points", 17}));
}

TEST(EventParts, KeepTheSlotsThatHostsKnow) {
    ExpectEntries(2, &IEventSink::OnAddEvent, &IEventSink::OnClearEvent);
    ExpectEntries(2, &IEventSource::AddErrorMsg, &IEventSource::AddWarningMsg, &IEventSource::AddInfoMsg);
}

// Owners that have a sink or a source as a part, which finds the copy when they are copied.
struct Journal {
    void OnAddEvent(const CEventMessage& message) { text += message.m_strEvent; }
    void OnClearEvent() { text.clear(); }
    void AddErrorMsg(const std::string&, const std::string& event) { text += "e " + event; }
    void AddWarningMsg(const std::string&, const std::string& event) { text += "w " + event; }
    void AddInfoMsg(const std::string&, const std::string& event) { text += "i " + event; }

    std::string text;
    CEventSinkImp<Journal> sink{this};
    IEventSourceImp<Journal> source{this};
};

TEST(EventParts, ForwardToTheirOwner) {
    Journal journal;
    Journal copy(journal);
    CEventMessage message;
    message.m_strEvent = "read";
    IEventSink& sink = copy.sink;
    sink.OnAddEvent(message);
    EXPECT_EQ(copy.text, "read");
    sink.OnClearEvent();
    IEventSource& source = copy.source;
    source.AddErrorMsg("", "1");
    source.AddWarningMsg("", "2");
    source.AddInfoMsg("", "3");
    EXPECT_EQ(copy.text, "e 1w 2i 3");
    EXPECT_EQ(journal.text, "");
}

} // namespace
} // namespace korvel

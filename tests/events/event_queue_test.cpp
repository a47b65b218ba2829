#include "korvel/events/event_queue.h"
#include "korvel/output/dates.h"
#include "korvel/window/core/exception_handler.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/thread_queue.h"
#include "support/event_list_fixture.h"

#include <memory>
#include <stdexcept>
#include <thread>

namespace korvel {
namespace {

class EventQueueTest : public EventListTest {
protected:
    void SetUp() override {
        EventListTest::SetUp();
        reporter.AddSink(&heard);
    }
    void TearDown() override {
        SetExceptionHandler(nullptr);
        EventListTest::TearDown();
    }

    std::vector<std::string> Heard() const {
        std::vector<std::string> events;
        for (const CEventMessage& message : heard.messages)
            events.push_back(message.m_strEvent);
        return events;
    }

    HeardEvents heard;
    std::unique_ptr<EventQueue> queue = std::make_unique<EventQueue>(reporter);
};

TEST_F(EventQueueTest, AReportReturnsBeforeItIsHandedOver) {
    std::thread([&] {
        queue->AddErrorMsg("worker", "1");
        queue->AddWarningMsg("worker", "2");
        queue->Add(CEventMessage::eException, "worker", "3", {"Axis 3", 7});
    }).join(); // with nobody who dispatches messages
    queue->AddInfoMsg("window", "4");
    EXPECT_EQ(heard.messages.size(), 0u);
    EXPECT_EQ(queue->Waiting(), 4u);
    input::DispatchMessages();
    EXPECT_EQ(Heard(), (std::vector<std::string>{"1", "2", "3", "4"}));
    EXPECT_EQ(TextsOfRow(3).at(0), "Error");
    EXPECT_EQ(list.MessageAt(2)->m_Type, CEventMessage::eWarning);
    EXPECT_EQ(*list.PlaceAt(1), (EventPlace{"Axis 3", 7}));
    EXPECT_EQ(list.MessageAt(0)->m_strTime, TimetoString(list.MessageAt(0)->m_Time));
    EXPECT_GT(list.MessageAt(0)->m_Time, 0);
}

TEST_F(EventQueueTest, ManyThreadsLoseNothingAndKeepTheirOrder) {
    constexpr int Threads = 4;
    constexpr int Reports = 2000; // more than a part
    std::vector<std::thread> workers;
    workers.reserve(Threads);
    for (int worker = 0; worker < Threads; ++worker)
        workers.emplace_back([&, worker] {
            for (int i = 0; i < Reports; ++i)
                queue->AddInfoMsg(std::to_string(worker), std::to_string(i));
        });
    display.PumpUntil([&] { return heard.messages.size() == std::size_t{Threads} * Reports; });
    for (std::thread& worker : workers)
        worker.join();
    int next[Threads] = {};
    for (const CEventMessage& message : heard.messages)
        EXPECT_EQ(message.m_strEvent, std::to_string(next[std::stoi(message.m_strSource)]++));
    EXPECT_EQ(queue->Waiting(), 0u);
}

TEST_F(EventQueueTest, LetsTheWindowsComeBetween) {
    for (int i = 0; i < 3000; ++i)
        queue->AddInfoMsg("", "");
    std::size_t before = 0;
    internal::ThreadQueue::Current()->Post(nullptr, [&] { before = heard.messages.size(); });
    input::DispatchMessages();
    EXPECT_GT(before, 0u);
    EXPECT_LT(before, 3000u);
    queue->HandOver();
    EXPECT_EQ(heard.messages.size(), 3000u);
}

TEST_F(EventQueueTest, ASinkThatThrowsLosesNoOtherMessage) {
    std::string told;
    SetExceptionHandler([&](const CString& text) { told += text; });
    for (const char* event : {"1", "2", "3"})
        queue->AddInfoMsg("", event);
    heard.reaction = [&] {
        if (heard.messages.size() != 2)
            throw std::runtime_error("full");
    };
    display.PumpUntil([&] { return heard.messages.size() == 3; });
    EXPECT_EQ(told, "fullfull");
    queue->AddInfoMsg("", "4");
    EXPECT_THROW(queue->HandOver(), std::runtime_error);
    EXPECT_EQ(Heard(), (std::vector<std::string>{"1", "2", "3", "4"}));
}

TEST_F(EventQueueTest, ASinkThatDispatchesMessagesKeepsTheOrder) {
    for (const char* event : {"1", "2"})
        queue->AddInfoMsg("", event);
    std::string order;
    heard.reaction = [&] {
        const std::string event = heard.messages.back().m_strEvent;
        if (event == "1")
            queue->AddInfoMsg("", "3");
        input::DispatchMessages();
        queue->HandOver();
        order += event;
    };
    display.PumpUntil([&] { return order.size() == 3; });
    EXPECT_EQ(order, "123");
}

TEST_F(EventQueueTest, ASinkThatChangesTheDateFormatChangesItForTheRest) {
    for (const char* event : {"1", "2"})
        queue->AddInfoMsg("", event);
    heard.reaction = [&] { SetDateCurrentFormatString(false, "day %j"); };
    queue->HandOver();
    EXPECT_EQ(heard.messages.at(1).m_strDate.substr(0, 4), "day ");
}

TEST_F(EventQueueTest, EndsWithMessagesInIt) {
    queue->AddInfoMsg("", "of a list without a window");
    list.DestroyWindow();
    input::DispatchMessages();
    EXPECT_EQ(heard.messages.size(), 1u);
    queue->AddInfoMsg("", "never told");
    queue.reset();
    input::DispatchMessages();
    EXPECT_EQ(heard.messages.size(), 1u);
    queue = std::make_unique<EventQueue>(reporter);
    for (const char* event : {"1", "2"})
        queue->AddInfoMsg("", event);
    heard.reaction = [&] { queue.reset(); };
    input::DispatchMessages();
    EXPECT_EQ(heard.messages.size(), 2u);
}

TEST_F(EventQueueTest, OfAThreadThatHasEndedTakesReportsForNothing) {
    std::unique_ptr<EventQueue> orphan;
    std::thread([&] { orphan = std::make_unique<EventQueue>(reporter); }).join();
    orphan->AddInfoMsg("", "1");
    orphan->AddInfoMsg("", "2");
    input::DispatchMessages();
    EXPECT_EQ(orphan->Waiting(), 2u);
    EXPECT_EQ(heard.messages.size(), 0u);
}

} // namespace
} // namespace korvel

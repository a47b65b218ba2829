#include "german_machine.h"
#include "output/format_subscription.h"
#include "output/system_change.h"
#include "platform/error.h"

#include <functional>
#include <memory>

namespace korvel {
namespace {

using Notification = GermanMachine;

class Sink final : public IFormatSink {
public:
    explicit Sink(std::function<void()> reaction = [] {}) : m_reaction(std::move(reaction)) {}
    void OnFormatChanged(EFormatService) override {
        ++count;
        m_reaction();
    }
    int count = 0;

private:
    std::function<void()> m_reaction;
};

TEST(FormatNotification, SinksComeAndGoWhileItFires) {
    CFormatNotification notification(EFormatService::Date);
    Sink late;
    Sink removed;
    Sink first([&] {
        notification.RemoveSink(&removed);
        notification.RemoveSink(&first);
        notification.AddSink(&late);
    });
    notification.AddSink(nullptr);
    notification.AddSink(&first);
    notification.AddSink(&first);
    notification.AddSink(&removed);
    notification.Fire();
    EXPECT_EQ(first.count, 1);
    EXPECT_EQ(removed.count, 0);
    EXPECT_EQ(late.count, 0);
    notification.Fire();
    EXPECT_EQ(first.count, 1);
    EXPECT_EQ(late.count, 1);
}

TEST(FormatNotification, AThrowingSinkLeavesItReady) {
    CFormatNotification notification(EFormatService::Date);
    Sink thrower([] { throw std::runtime_error("no"); });
    notification.AddSink(&thrower);
    EXPECT_THROW(notification.Fire(), std::runtime_error);
    EXPECT_THROW(notification.Fire(), std::runtime_error); // and not the Error of a change within a change
}

TEST_F(Notification, AChangeWithinAChangeIsAnError) {
    std::string text = "none";
    Sink changer([&] {
        try {
            SetFormatInt(GermanFormat(7));
        } catch (const Error& error) {
            text = error.what();
        }
    });
    CFormatNotification& numbers = NotificationOf(EFormatService::Number);
    numbers.AddSink(&changer);
    SetFormatDouble(GermanFormat(6));
    numbers.RemoveSink(&changer);
    EXPECT_EQ(text, "");
    EXPECT_EQ(changer.count, 1);
    SetAngleFormatDouble(GermanFormat(6)); // another service is not affected
}

TEST_F(Notification, RecordsFollowOneAfterTheOther) {
    const CNumberOutput& output = CNumberOutput::Instance();
    std::vector<std::string> steps;
    Sink sink([&] {
        std::string step;
        for (const ENumberRecord record :
             {ENumberRecord::Integer, ENumberRecord::Long, ENumberRecord::Float, ENumberRecord::Double})
            step += output.Format(record).DecimalSep;
        steps.push_back(step);
    });
    NotificationOf(EFormatService::Number).AddSink(&sink);
    SetRegional("sDecimal", ";");
    NotificationOf(EFormatService::Number).RemoveSink(&sink);
    EXPECT_EQ(steps, (std::vector<std::string>{",;,,", ";;,,", ";;;,", ";;;;"}));
}

class Observer : public ISystemChangedObserver {
public:
    explicit Observer(bool changes) : m_changes(changes) { AddSystemChangedSink(this); }
    ~Observer() override { RemoveSystemChangedSink(this); }
    bool OnSystemChanged() override {
        ++calls;
        reaction();
        return m_changes;
    }
    bool Update(IObserverGrid* grid) override {
        grids.push_back(grid);
        return true;
    }

    int calls = 0;
    std::vector<IObserverGrid*> grids;
    std::function<void()> reaction = [] {};

private:
    bool m_changes;
};

TEST_F(Notification, ObserversOfTheSystem) {
    Observer origin(true);
    Observer changing(true);
    Observer unchanged(false);
    AddSystemChangedSink(&changing);
    AddSystemChangedSink(nullptr);
    auto* grid = reinterpret_cast<IObserverGrid*>(&origin); // passed on, never looked at
    Fire_OnSystemChanged(&origin, grid);
    EXPECT_EQ(origin.calls, 0);
    EXPECT_EQ(changing.calls, 1);
    EXPECT_EQ(changing.grids, std::vector<IObserverGrid*>{grid});
    EXPECT_EQ(unchanged.calls, 1);
    EXPECT_TRUE(unchanged.grids.empty());
}

TEST_F(Notification, AnObserverMayGoDuringTheWalk) {
    auto left = std::make_unique<Observer>(true);
    auto right = std::make_unique<Observer>(true);
    left->reaction = [&] { right.reset(); };
    right->reaction = [&] { left.reset(); };
    Fire_OnSystemChanged(nullptr, nullptr);
    EXPECT_NE(left == nullptr, right == nullptr);
}

TEST(Subscription, IsNeverCalledBack) {
    struct Owner {
        void OnChanged() { ADD_FAILURE(); }
    } owner;
    IDateFormatChangedImp<Owner> sink(&owner);
    AddDateFormatChangeSink(&sink);
    AddSinkDate(&sink);
    NotificationOf(EFormatService::Date).Fire();
    EXPECT_TRUE(UpdateDate(nullptr));
}

} // namespace
} // namespace korvel

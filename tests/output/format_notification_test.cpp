#include "korvel/output/angles.h"
#include "korvel/output/format_subscription.h"
#include "korvel/output/number_output.h"
#include "korvel/output/numbers.h"
#include "korvel/output/system_change.h"
#include "korvel/platform/error.h"
#include "support/german_machine.h"

#include <functional>
#include <memory>

namespace korvel {
namespace {

using namespace internal;

using Notification = GermanMachine;

TEST(FormatNotification, SinksComeAndGoWhileItFires) {
    FormatNotification notification(FormatService::Date);
    CountingSink late(notification);
    notification.RemoveSink(&late);
    FormatSink* second = nullptr;
    CountingSink first(
        notification,
        [&] {
            notification.RemoveSink(second);
            notification.RemoveSink(&first);
            notification.AddSink(&late);
        });
    CountingSink removed(notification, [] { ADD_FAILURE(); });
    second = &removed;
    notification.AddSink(nullptr);
    notification.AddSink(&first);
    notification.Fire();
    EXPECT_EQ(late.count, 0);
    notification.Fire();
    EXPECT_EQ(first.count, 1);
    EXPECT_EQ(late.count, 1);
}

TEST(FormatNotification, AThrowingSinkLeavesItReady) {
    FormatNotification notification(FormatService::Date);
    CountingSink thrower(notification, [] { throw std::runtime_error("no"); });
    EXPECT_THROW(notification.Fire(), std::runtime_error);
    EXPECT_THROW(notification.Fire(), std::runtime_error); // and not the Error of a change within a change
}

TEST_F(Notification, AChangeWithinAChangeIsAnError) {
    const CountingSink changer(FormatService::Number, [] {
        SetAngleFormatDouble(GermanFormat(6)); // another service is not affected
        EXPECT_THAT([] { SetFormatInt(GermanFormat(7)); }, testing::ThrowsMessage<Error>(""));
    });
    SetFormatDouble(GermanFormat(6));
    EXPECT_EQ(changer.count, 1);
}

TEST_F(Notification, RecordsFollowOneAfterTheOther) {
    const CNumberOutput& output = CNumberOutput::Instance();
    std::vector<std::string> steps;
    const CountingSink sink(FormatService::Number, [&] {
        steps.emplace_back();
        for (const NumberRecord record :
             {NumberRecord::Integer, NumberRecord::Long, NumberRecord::Float, NumberRecord::Double})
            steps.back() += output.Format(record).DecimalSep;
    });
    SetRegional("sDecimal", ";");
    EXPECT_EQ(steps, (std::vector<std::string>{",;,,", ";;,,", ";;;,", ";;;;"}));
}

class Observer : public ISystemChangedObserver {
public:
    explicit Observer(bool changes) : m_changes(changes) { AddSystemChangedSink(this); }
    ~Observer() override { RemoveSystemChangedSink(this); }
    bool OnSystemChanged() override {
        log += "changed ";
        reaction();
        return m_changes;
    }
    bool Update(IObserverGrid* grid) override {
        log += grid ? "grid " : "no grid ";
        return true;
    }

    std::string log;
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
    Fire_OnSystemChanged(&origin, reinterpret_cast<IObserverGrid*>(&origin)); // passed on, never looked at
    EXPECT_EQ(origin.log + "|" + changing.log + "|" + unchanged.log, "|changed grid |changed ");

    auto left = std::make_unique<Observer>(true);
    auto right = std::make_unique<Observer>(true);
    left->reaction = [&] { right.reset(); };
    right->reaction = [&] { left.reset(); };
    Fire_OnSystemChanged(nullptr, nullptr);
    EXPECT_NE(left == nullptr, right == nullptr) << "one may go while the observers are walked";
}

TEST(Subscription, IsNeverCalledBack) {
    struct Owner {
        void OnChanged() { ADD_FAILURE(); }
    } owner;
    IDateFormatChangedImp<Owner> sink(&owner);
    AddDateFormatChangeSink(&sink);
    AddSinkDate(&sink);
    NotificationOf(FormatService::Date).Fire();
    EXPECT_TRUE(UpdateDate(nullptr));
}

} // namespace
} // namespace korvel

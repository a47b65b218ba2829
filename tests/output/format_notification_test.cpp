#include "korvel/output/angles.h"
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

TEST(FormatNotification, AThrowingSinkLeavesItReadyAndTheOthersTold) {
    FormatNotification notification(FormatService::Date);
    CountingSink thrower(notification, [] { throw std::runtime_error("no"); });
    const CountingSink other(notification);
    EXPECT_THROW(notification.Fire(), std::runtime_error);
    EXPECT_THROW(notification.Fire(), std::runtime_error); // and not the Error of a change within a change
    EXPECT_EQ(other.count, 2);
}

TEST_F(Notification, AChangeWithinAChangeIsAnError) {
    const CountingSink changer(FormatService::Number, [] {
        SetAngleFormatDouble(GermanFormat(6)); // another service is not affected
        EXPECT_THAT([] { SetFormatInt(GermanFormat(7)); }, testing::ThrowsMessage<Error>(""));
    });
    SetFormatDouble(GermanFormat(6));
    EXPECT_EQ(changer.count, 1);
}

TEST_F(Notification, ListenersSeeOnlyWholeServicesAndKeepNoneFromFollowing) {
    std::vector<std::string> steps;
    const auto look = [&] {
        steps.emplace_back();
        for (const _numberfmtA* format :
             {&GetFormatInt(), &GetFormatLong(), &GetFormatFloat(), &GetFormatDouble()})
            steps.back() += format->DecimalSep;
        throw Error("number sink");
    };
    const CountingSink numbers(FormatService::Number, look);
    const CountingSink angles(FormatService::Angle, [] { throw Error("angle sink"); });
    const CountingSink stations(FormatService::Station);
    EXPECT_THAT([&] { SetRegional("sDecimal", ";"); }, testing::Throws<Error>());
    EXPECT_EQ(steps, std::vector<std::string>(4, ";;;;")) << "one call for each record that was replaced";
    EXPECT_EQ(angles.count, 2);
    EXPECT_EQ(stations.count, 3);
    EXPECT_STREQ(GetAngleFormatFloat().DecimalSep, ";");

    SetAngleUnit('g');
    EXPECT_THROW(SetDateCurrentFormatString(true, std::string("%d\0", 3)), std::invalid_argument);
    const CountingSink dates(FormatService::Date, [] { throw Error("date sink"); });
    EXPECT_THROW(SetDateCurrentFormatString(true, "%Y"), Error);
    EXPECT_EQ(dates.count, 1);
    EXPECT_THAT([] { ResetFormatStates(); }, testing::ThrowsMessage<Error>("number sink"));
    EXPECT_EQ(GetAngleUnit(), 'r');
    EXPECT_EQ(angles.count, 4);
    EXPECT_EQ(dates.count, 2) << "dates are put back, and their listeners told";
    EXPECT_STREQ(GetFormatStringLong(), "%A, %#d. %B %Y");
}

TEST_F(Notification, DatesSeeOnlyWholeServices) {
    std::vector<std::string> steps;
    const CountingSink dates(FormatService::Date, [&] {
        steps.push_back(std::string(GetFormatStringShort()) + " " + TimetoString(0).substr(0, 2));
        throw Error("date sink");
    });
    const platform::ScratchVariable zone("TZ", "UTC");
    EXPECT_TRUE(platform::UseLocale("en-GB"));
    EXPECT_THROW(Fire_OnSystemChanged(nullptr, nullptr), Error);
    EXPECT_EQ(steps, std::vector<std::string>(1, "%d/%m/%Y 00")) << "the long one alone is in use";
    EXPECT_EQ(DatetoString(44000.0), "Thursday, 18 June 2020");
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

} // namespace
} // namespace korvel

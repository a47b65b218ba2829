#pragma once

#include "korvel/output/angles.h"
#include "korvel/output/dates.h"
#include "korvel/output/format_persistence.h"
#include "korvel/output/format_services.h"
#include "korvel/output/numbers.h"
#include "korvel/output/system_change.h"
#include "korvel/output/system_formats.h"
#include "korvel/platform/regional_settings.h"
#include "korvel/platform/settings_store.h"
#include "support/scratch.h"

#include <functional>
#include <gmock/gmock.h>
#include <vector>

namespace korvel {

/// Counts the changes of a service as long as it lives.
class CountingSink final : public internal::FormatSink {
public:
    CountingSink(
        internal::FormatNotification& notification, std::function<void()> reaction = [] {})
        : m_notification(notification), m_reaction(std::move(reaction)) {
        m_notification.AddSink(this);
    }
    CountingSink(
        internal::FormatService service, std::function<void()> reaction = [] {})
        : CountingSink(internal::NotificationOf(service), std::move(reaction)) {}
    CountingSink(const CountingSink&) = delete;
    CountingSink& operator=(const CountingSink&) = delete;
    ~CountingSink() { m_notification.RemoveSink(this); }
    void OnFormatChanged(internal::FormatService) override {
        ++count;
        m_reaction();
    }
    int count = 0;

private:
    internal::FormatNotification& m_notification;
    std::function<void()> m_reaction;
};

/// A machine with German regional settings, stores of its own, and services that all follow these settings.
class GermanMachine : public ::testing::Test {
protected:
    GermanMachine() {
        platform::UseLocale("de-DE");
        FollowSystemAgain();
    }
    ~GermanMachine() override {
        FollowSystemAgain();
        platform::UseLocale("");
    }

    /// The user sets a regional setting, and the host reports it.
    void SetRegional(const std::string& name, const std::string& text) {
        platform::WriteRegional(name, platform::SettingValue::Text(text));
        Fire_OnSystemChanged(nullptr, nullptr);
    }

private:
    static void FollowSystemAgain() {
        ResetFormatStates();
        Fire_OnSystemChanged(nullptr, nullptr);
    }

    platform::ScratchStore m_store;
};

/// The German format with this many digits.
inline internal::NumberFormat GermanFormat(std::uint32_t digits) {
    internal::NumberFormat format = internal::SystemNumberFormat(internal::SystemFormat::Float);
    format.NumDigits = digits;
    return format;
}

} // namespace korvel

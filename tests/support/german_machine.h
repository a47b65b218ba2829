#pragma once

#include "korvel/output/angle_output.h"
#include "korvel/output/date_output.h"
#include "korvel/output/format_persistence.h"
#include "korvel/output/number_output.h"
#include "korvel/output/system_formats.h"
#include "korvel/platform/regional_settings.h"
#include "korvel/platform/settings_store.h"
#include "support/scratch.h"

#include <functional>
#include <gmock/gmock.h>
#include <vector>

namespace korvel {

/// Counts the changes that a service tells of, as long as it lives.
class CountingSink final : public FormatSink {
public:
    CountingSink(
        FormatNotification& notification, std::function<void()> reaction = [] {})
        : m_notification(notification), m_reaction(std::move(reaction)) {
        m_notification.AddSink(this);
    }
    CountingSink(
        FormatService service, std::function<void()> reaction = [] {})
        : CountingSink(NotificationOf(service), std::move(reaction)) {}
    CountingSink(const CountingSink&) = delete;
    CountingSink& operator=(const CountingSink&) = delete;
    ~CountingSink() { m_notification.RemoveSink(this); }
    void OnFormatChanged(FormatService) override {
        ++count;
        m_reaction();
    }
    int count = 0;

private:
    FormatNotification& m_notification;
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

    /// What the user sets in the regional settings, and the host then tells of.
    void SetRegional(const std::string& name, const std::string& text) {
        const char* key = "Control Panel\\International";
        platform::CreateKey(platform::SettingsRoot::User, key);
        platform::WriteSetting(platform::SettingsRoot::User, key, name, platform::SettingValue::Text(text));
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
inline NumberFormat GermanFormat(std::uint32_t digits) {
    NumberFormat format = SystemNumberFormat(SystemFormat::Float);
    format.NumDigits = digits;
    return format;
}

} // namespace korvel

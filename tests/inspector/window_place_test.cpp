#include "desktop/frame_room.h"
#include "desktop/window_place.h"
#include "korvel/platform/settings_store.h"
#include "program/settings_keys.h"
#include "support/scratch.h"
#include "support/table.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <climits>
#include <gtest/gtest.h>

namespace korvel::inspector {
namespace {

using platform::SettingsRoot;
using platform::SettingValue;

std::string RecordOf(std::initializer_list<int> edges) {
    std::string record;
    for (const int edge : edges)
        record += SettingValue::Number(static_cast<std::uint32_t>(edge)).bytes;
    return record;
}

TEST(WindowPlace, IsRestoredOntoAScreen) {
    const platform::ScratchStore store;
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry().marginsRemoved(FrameRoom);
    const QRect first(10, 20, 300, 200);
    const auto centered = [&](int width, int height) {
        QRect rect(0, 0, std::min(width, room.width()), std::min(height, room.height()));
        rect.moveCenter(room.center());
        return rect;
    };
    constexpr int Far = 100000;
    for (const auto& [border, record, place] : Table<SettingValue, QRect>{
             {"as it was", SettingValue::Binary(RecordOf({30, 40, 330, 240})), {30, 40, 300, 200}},
             {"surplus bytes", SettingValue::Binary(RecordOf({30, 40, 330, 240, 7})), {30, 40, 300, 200}},
             {"partly on the screen",
              SettingValue::Binary(RecordOf({-200, 40, 100, 240})),
              {-200, 40, 300, 200}},
             {"its title above", SettingValue::Binary(RecordOf({30, -50, 330, 150})), centered(300, 200)},
             {"on no screen", SettingValue::Binary(RecordOf({Far, 40, Far + 300, 240})), centered(300, 200)},
             {"on no screen, and larger than one", SettingValue::Binary(RecordOf({Far, 0, Far + 9000, 9000})),
              centered(9000, 9000)},
             {"cut off", SettingValue::Binary(RecordOf({30, 40, 330})), first},
             {"another type", SettingValue::Text(RecordOf({30, 40, 330, 240})), first},
             {"negative", SettingValue::Binary(RecordOf({330, 240, 30, 40})), first},
             {"huge", SettingValue::Binary(RecordOf({INT_MIN, INT_MIN, INT_MAX, INT_MAX})), first}}) {
        platform::CreateKey(SettingsRoot::User, MainWindowKey);
        platform::WriteSetting(SettingsRoot::User, MainWindowKey, "State", record);
        QWidget window;
        window.setGeometry(first);
        RestorePlace(window);
        EXPECT_EQ(window.geometry(), place) << border;
    }
}

TEST(WindowPlace, KeepsTheRectangleBesideTheMaximizing) {
    const platform::ScratchStore store;
    const QRect place(30, 40, 300, 200);
    for (const bool isMaximized : {true, false}) {
        QWidget window;
        window.setGeometry(place);
        isMaximized ? window.showMaximized() : window.show();
        KeepPlace(window);
        QWidget next;
        RestorePlace(next);
        EXPECT_EQ(next.isMaximized(), isMaximized);
        next.showNormal();
        EXPECT_EQ(next.geometry(), place);
    }
    SettingValue record;
    platform::ReadSetting(SettingsRoot::User, MainWindowKey, "State", record);
    EXPECT_EQ(record, SettingValue::Binary(RecordOf({30, 40, 330, 240})));
}

} // namespace
} // namespace korvel::inspector

#include "desktop/window_place.h"

#include "desktop/frame_room.h"
#include "korvel/platform/error.h"
#include "korvel/platform/settings_store.h"
#include "program/settings_keys.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <array>
#include <optional>

namespace korvel::inspector {
namespace {

using platform::SettingsRoot;
using platform::SettingType;
using platform::SettingValue;

constexpr const char* RectangleName = "State"; // as the library's dialogs keep theirs
constexpr const char* MaximizedName = "Maximized";
constexpr std::size_t Numbers = 4; // left, top, right, bottom: 32 bits each, the lowest byte first
constexpr int GripSize = 60;       // of a window that can still be dragged with the mouse
constexpr int LargestSide = 32767;

std::string RecordOf(const QRect& rect) {
    std::string record;
    for (const int number : {rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()})
        record += SettingValue::Number(static_cast<std::uint32_t>(number)).bytes;
    return record;
}

// Nothing for a record that is too short, or of a rectangle that no window can have.
std::optional<QRect> RectangleOf(const std::string& record) {
    std::array<qint64, Numbers> edges;
    if (record.size() < Numbers * sizeof(std::uint32_t))
        return std::nullopt;
    for (std::size_t i = 0; i < Numbers; ++i) {
        const SettingValue number{SettingType::Number, record.substr(i * sizeof(std::uint32_t), 4)};
        edges[i] = static_cast<std::int32_t>(*number.AsNumber());
    }
    const qint64 width = edges[2] - edges[0];
    const qint64 height = edges[3] - edges[1];
    if (width <= 0 || height <= 0 || width > LargestSide || height > LargestSide)
        return std::nullopt;
    return QRect(static_cast<int>(edges[0]), static_cast<int>(edges[1]), static_cast<int>(width),
                 static_cast<int>(height));
}

bool CanBeReached(const QRect& rect) {
    const QRect title(rect.topLeft(), QSize(rect.width(), 1));
    const QList<QScreen*> screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
        return screen->availableGeometry().intersected(title).width() >= std::min(GripSize, rect.width());
    });
}

QRect OnAScreen(QRect rect, const QWidget& window) {
    if (CanBeReached(rect))
        return rect;
    const QRect room = window.screen()->availableGeometry().marginsRemoved(FrameRoom);
    rect.setSize(rect.size().boundedTo(room.size()));
    rect.moveCenter(room.center());
    return rect;
}

SettingValue Read(const char* name) {
    SettingValue value;
    platform::ReadSetting(SettingsRoot::User, MainWindowKey, name, value);
    return value;
}

} // namespace

void RestorePlace(QWidget& window) try {
    const SettingValue record = Read(RectangleName);
    if (record.type != SettingType::Binary)
        return;
    if (const auto rect = RectangleOf(record.bytes))
        window.setGeometry(OnAScreen(*rect, window));
    if (Read(MaximizedName).AsNumber().value_or(0) != 0)
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
} catch (const Error&) {
    // a store that cannot be read leaves the window where it is
}

void KeepPlace(const QWidget& window) try {
    const bool isMaximized = window.windowState() & Qt::WindowMaximized;
    platform::CreateKey(SettingsRoot::User, MainWindowKey);
    platform::WriteSetting(SettingsRoot::User, MainWindowKey, RectangleName,
                           SettingValue::Binary(RecordOf(window.normalGeometry())));
    platform::WriteSetting(SettingsRoot::User, MainWindowKey, MaximizedName,
                           SettingValue::Number(isMaximized ? 1 : 0));
} catch (const Error&) {
    // nothing but the place is lost
}

} // namespace korvel::inspector

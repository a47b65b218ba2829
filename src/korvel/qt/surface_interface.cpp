#include "korvel/qt/surface_interface.h"

#include "korvel/qt/convert.h"
#include "korvel/qt/window_surface.h"
#include "korvel/window/base/access_mark.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

namespace korvel::internal {

namespace {

struct PressedKey {
    UINT code = 0; // 0: the window only gets the focus
    CString characters{};
};

// As the user's own key, where the focus has come to the window: a text that is refused elsewhere keeps the user
// there.
void Press(const WindowSurface& surface, const PressedKey& key) {
    const HWND window = surface.Window();
    if (!view::IsSwitchedOn(window))
        return;
    SetFocus(window);
    if (key.code == 0 || GetFocus() != window)
        return;
    input::Key(window, WM_KEYDOWN, key.code, key.characters);
    input::Key(GetFocus(), WM_KEYUP, key.code, {});
}

} // namespace

SurfaceInterface::SurfaceInterface(WindowSurface& surface)
    : QAccessibleWidget(&surface, QAccessible::Grouping) {}

QAccessibleInterface* SurfaceInterface::Make(const QString&, QObject* object) {
    auto* surface = dynamic_cast<WindowSurface*>(object);
    return surface ? new SurfaceInterface(*surface) : nullptr;
}

WindowSurface& SurfaceInterface::Surface() const {
    return *static_cast<WindowSurface*>(object());
}

HWND SurfaceInterface::Window() const {
    return Surface().Window();
}

bool SurfaceInterface::IsButton() const {
    bool isButton = false;
    Surface().Ask([&] {
        isButton = view::KindOf(Window()) == view::Kind::Painted &&
                   (SendMessageA(Window(), WM_GETDLGCODE, 0, 0) & DLGC_BUTTON);
    });
    return isButton;
}

std::optional<view::ValueView> SurfaceInterface::Value() const {
    return Surface().Value();
}

QAccessible::Role SurfaceInterface::role() const {
    constexpr UINT Dialog =
        WS_POPUP | WS_CAPTION; // what drops has no caption, and a frame is no pop-up window
    if (widget()->isWindow())
        return (view::Style(Window()) & Dialog) == Dialog ? QAccessible::Dialog : QAccessible::Window;
    if (IsButton())
        return QAccessible::Button;
    const auto value = Value();
    if (!value)
        return QAccessible::Grouping;
    return value->checked ? QAccessible::CheckBox : QAccessible::ComboBox;
}

QAccessible::State SurfaceInterface::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    const auto value = Value();
    state.focusable = (value || IsButton()) && view::IsSwitchedOn(Window());
    if (value) {
        state.checkable = value->checked.has_value();
        state.checked = value->checked.value_or(false);
        state.readOnly = value->readOnly;
    }
    return state;
}

QString SurfaceInterface::text(QAccessible::Text kind) const {
    CString text;
    if (kind == QAccessible::Name && IsButton())
        Surface().Ask([&] { text = WithoutMarks(GetWindowTextA(Window())); });
    if (!text.empty())
        return ToQString(text);
    const auto value = Value();
    if (!value || value->checked)
        return QAccessibleWidget::text(kind);
    if (kind == QAccessible::Name || kind == QAccessible::Value)
        return ToQString(value->text);
    if (kind != QAccessible::Description)
        return QAccessibleWidget::text(kind);
    Surface().Ask([&] { text = view::NameOf(Window()); });
    return ToQString(text);
}

QStringList SurfaceInterface::actionNames() const {
    const auto value = Value();
    if (!view::IsSwitchedOn(Window()) || !(value || IsButton()))
        return {};
    QStringList actions{setFocusAction()};
    if (!value || !value->readOnly)
        actions.push_front(value && value->checked ? toggleAction() : pressAction());
    return actions;
}

void SurfaceInterface::doAction(const QString& name) {
    if (!actionNames().contains(name))
        return;
    auto* surface = &Surface();
    const PressedKey key = name == setFocusAction()               ? PressedKey{}
                           : name == pressAction() && !IsButton() ? PressedKey{VK_F2}
                                                                  : PressedKey{VK_SPACE, " "};
    QMetaObject::invokeMethod(
        surface, [=] { Press(*surface, key); }, Qt::QueuedConnection);
}

} // namespace korvel::internal

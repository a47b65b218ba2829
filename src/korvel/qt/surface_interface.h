#pragma once

#include "korvel/window/base/control_view.h"

#include <QAccessibleWidget>

namespace korvel::internal {

class WindowSurface;

/// A window that paints itself, as screen readers and test tools see it: a dialog, a button, a field with one
/// value (view::ValueOf), or what holds others together. As with the cells of lists, a value is the name of its
/// field and the label is the description, because Qt 6.4 does not pass on values that are texts.
class SurfaceInterface final : public QAccessibleWidget {
public:
    explicit SurfaceInterface(WindowSurface& surface);
    /// For Qt: null for anything but a WindowSurface.
    static QAccessibleInterface* Make(const QString& className, QObject* object);

    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    /// From the event loop: whoever asks waits for the answer, and a dialog may open.
    void doAction(const QString& name) override;

private:
    WindowSurface& Surface() const;
    HWND Window() const;
    bool IsButton() const;
    std::optional<view::ValueView> Value() const;
};

} // namespace korvel::internal

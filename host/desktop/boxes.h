#pragma once

#include "texts/program_texts.h"

#include <QMessageBox>
#include <functional>

class QWidget;

namespace korvel::inspector {

/// The boxes over a window, with plain text.
class Boxes {
public:
    /// `window` must outlive this.
    explicit Boxes(QWidget& window) : m_window(window) {}

    void Show(QMessageBox::Icon icon, const QString& text) const;
    /// A box shows what went wrong; false then.
    bool Try(const std::function<void()>& action) const;
    /// Asks before something is lost; true for the button that loses it.
    bool MayLose(const QString& text, const ProgramText& button) const;
    enum class Unsaved { Save, Discard, Keep };
    Unsaved AskWhatBecomesOf(const QString& text) const;

private:
    QWidget& m_window;
};

} // namespace korvel::inspector

#pragma once

#include "korvel/qt/peer.h"

class QLineEdit;
class QPlainTextEdit;

namespace korvel::qt {

/// A text field of one line. What the user types goes through the window first; what the window leaves to
/// its default, the widget does, with its undo, its input method and its menu.
class EditPeer final : public Peer {
public:
    EditPeer(Desktop& desktop, HWND window, QWidget* parent);
    void Apply(Aspects aspects) override;

private:
    EditPeer(Desktop& desktop, HWND window, QLineEdit& edit);
    void ShowState();
    void Report();

    QLineEdit& m_edit;
    bool m_reading = false;
};

/// A text field of several lines.
class TextPeer final : public Peer {
public:
    TextPeer(Desktop& desktop, HWND window, QWidget* parent);
    void Apply(Aspects aspects) override;

private:
    TextPeer(Desktop& desktop, HWND window, QPlainTextEdit& edit);
    void ShowState();
    void Report();

    QPlainTextEdit& m_edit;
    bool m_reading = false;
};

} // namespace korvel::qt

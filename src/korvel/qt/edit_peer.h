#pragma once

#include "korvel/qt/peer.h"

#include <QString>

class QLineEdit;
class QPlainTextEdit;

namespace korvel::internal {

/// A text field. What the user types goes through the window first; what the window leaves to its default,
/// the widget does, with its undo, its input method and its menu.
class EditPeer : public Peer {
public:
    void Apply(Aspects aspects) override;

protected:
    /// The text of the widget and what is selected in it, as the window has them.
    struct Content {
        QString text;
        int start = 0;
        int end = 0;
    };

    EditPeer(PeerContext& context, HWND window, QWidget& edit) : Peer(context, window, edit, edit) {}

    /// Reports the content whenever the widget emits one of these signals.
    template <typename Widget, typename... Signals>
    void ReportOn(Widget& edit, Signals... changes) {
        (connect(
             &edit, changes, this, [this] { Report(); }),
         ...);
    }

private:
    virtual void ShowContent() = 0;
    virtual Content ReadContent() const = 0;
    void Report();

    bool m_isShowing = false;
};

/// A text field of one line.
class LineEditPeer final : public EditPeer {
public:
    LineEditPeer(PeerContext& context, HWND window, QWidget* parent);

private:
    LineEditPeer(PeerContext& context, HWND window, QLineEdit& edit);
    void ShowContent() override;
    Content ReadContent() const override;

    QLineEdit& m_edit;
};

/// A text field of several lines.
class TextEditPeer final : public EditPeer {
public:
    TextEditPeer(PeerContext& context, HWND window, QWidget* parent);

private:
    TextEditPeer(PeerContext& context, HWND window, QPlainTextEdit& edit);
    void ShowContent() override;
    Content ReadContent() const override;

    QPlainTextEdit& m_edit;
};

} // namespace korvel::internal

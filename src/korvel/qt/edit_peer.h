#pragma once

#include "korvel/qt/peer.h"

#include <QMargins>
#include <QString>

namespace korvel::internal {

/// A text field. What the user types goes through the window first; what the window leaves to its default,
/// the widget does, with its undo, its input method and its menu. The limit does not hold for what Ctrl+Z
/// brings back; an undo or redo of the menu is held to it, like typing.
class EditPeer : public Peer {
public:
    void Apply(Aspects aspects) override;

protected:
    /// A text and what is selected of it, counted in the units of a QString.
    struct Content {
        QString text;
        int start = 0;
        int end = 0;
        bool canUndo = false; // what has led to this text
    };

    EditPeer(PeerContext& context, HWND window, QWidget& edit) : Peer(context, window, edit, edit) {}

    bool HasBorder() const;
    /// Reports what the widget holds: what the user did to it.
    void Report();

private:
    virtual void ShowContent(const Content& content, bool isReadOnly) = 0;
    virtual void ShowMargins(const QMargins& margins) = 0;
    /// What the widget holds, for a window that held `textBefore`: what the user has not touched stays as it
    /// was there, even where the widget shows it in another form.
    virtual Content ReadContent(const QString& textBefore) const = 0;
    virtual bool Shows(const QString& text) const = 0;
    void Show(const CString& bytes, const QString& text);

    bool m_isShowing = false;
    bool m_isReporting = false;
};

/// An edit peer with its widget; `changed` is the widget's signal for a new text.
template <class Widget>
class EditPeerOf : public EditPeer {
protected:
    template <class Signal>
    EditPeerOf(PeerContext& context, HWND window, Widget& edit, Signal changed)
        : EditPeer(context, window, edit), m_edit(edit) {
        connect(
            &edit, changed, this, [this] { Report(); });
        connect(
            &edit, &Widget::selectionChanged, this, [this] { Report(); });
        connect(&edit, &Widget::cursorPositionChanged, this, [this] { Report(); });
    }

    Widget& m_edit;
};

} // namespace korvel::internal

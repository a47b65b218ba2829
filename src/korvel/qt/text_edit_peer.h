#pragma once

#include "korvel/qt/edit_peer.h"

#include <QPlainTextEdit>

namespace korvel::internal {

class TextEdit final : public QPlainTextEdit {
public:
    using QPlainTextEdit::QPlainTextEdit;
    using QPlainTextEdit::setViewportMargins;
};

/// A text field of several lines.
class TextEditPeer final : public EditPeerOf<TextEdit> {
public:
    TextEditPeer(PeerContext& context, HWND window, QWidget* parent);

private:
    QString Lines() const;
    void ShowMargins(const QMargins& margins) override { m_edit.setViewportMargins(margins); }
    void ShowContent(const Content& content, bool isReadOnly) override;
    Content ReadContent(const QString& textBefore) const override;
    bool Shows(const QString& text) const override;
};

} // namespace korvel::internal

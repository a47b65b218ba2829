#pragma once

#include "korvel/qt/edit_peer.h"

#include <QPlainTextEdit>

namespace korvel::internal {

/// A text field of several lines.
class TextEditPeer final : public EditPeerOf<QPlainTextEdit> {
public:
    TextEditPeer(PeerContext& context, HWND window, QWidget* parent);

private:
    QString Lines() const;
    void ShowContent(const Content& content, bool isReadOnly) override;
    Content ReadContent(const QString& textBefore) const override;
    bool Shows(const QString& text) const override;
};

} // namespace korvel::internal

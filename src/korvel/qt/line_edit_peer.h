#pragma once

#include "korvel/qt/edit_peer.h"

#include <QLineEdit>

namespace korvel::internal {

/// A text field of one line.
class LineEditPeer final : public EditPeerOf<QLineEdit> {
public:
    LineEditPeer(PeerContext& context, HWND window, QWidget* parent);

private:
    void ShowMargins(const QMargins& margins) override { m_edit.setTextMargins(margins); }
    void ShowContent(const Content& content, bool isReadOnly) override;
    Content ReadContent(const QString& textBefore) const override;
    bool Shows(const QString& text) const override;
};

} // namespace korvel::internal

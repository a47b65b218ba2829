#pragma once

#include "korvel/qt/peer.h"
#include "korvel/qt/top_level.h"

#include <optional>

class QFrame;
class QInputMethodEvent;

namespace korvel::internal {

/// A window that paints itself: its client area is a plain surface inside the border. Where it answers
/// WM_GETDLGCODE with DLGC_WANTCHARS and is no list, what an input method composes comes as the characters of
/// one key.
class PaintedPeer : public Peer {
public:
    /// The widgets of a window with a border, or with parts beside its client area, are two.
    struct Widgets {
        QFrame& outer;
        QWidget& content;
    };
    PaintedPeer(PeerContext& context, HWND window, Widgets widgets);
    static Widgets MakeWidgets(PeerContext& context, HWND window, QWidget* parent);

    void Apply(Aspects aspects) override;
    void Invalidate(const CRect& rect) override;
    bool IsPainted() const override { return true; }
    void ShowModal() override;

protected:
    bool OnEvent(QWidget& widget, QEvent& event) override;
    void Disappear() override;
    /// Puts the content, and what lies beside it, where the window has its client area.
    virtual void Arrange();

private:
    void NameFieldsAfterTitle();
    bool TakesComposedText() const;
    bool TypeComposedText(QInputMethodEvent& composed);

    std::optional<TopLevel> m_topLevel; // while it lies in no other window
};

} // namespace korvel::internal

#include "korvel/editors/color_dialog.h"

#include "korvel/window/base/messages.h"
#include "korvel/window/core/ask_user.h"
#include "korvel/window/core/display.h"

namespace korvel {

namespace {

constexpr COLORREF ColorBits = 0xFFFFFF;

} // namespace

CColorDialog::CColorDialog(COLORREF color, UINT, CWnd* parent)
    : m_color(color & ColorBits), m_parent(parent ? parent->m_hWnd : nullptr) {}

std::intptr_t CColorDialog::DoModal() {
    const auto chosen =
        internal::AskUser([this](IDisplay& display) { return display.ChooseColor(m_parent, m_color); });
    if (!chosen)
        return IDCANCEL;
    m_color = *chosen & ColorBits;
    return IDOK;
}

} // namespace korvel

#include "korvel/editors/color_aplha_dlg.h"

#include "korvel/editors/alpha_dialog_layout.h"
#include "korvel/editors/color_dialog.h"
#include "korvel/window/app/built_in_resources.h"
#include "korvel/window/dialog/dialog_items.h"

#include <cmath>
#include <string>

namespace korvel {

using namespace internal;

namespace {

constexpr unsigned Opaque = 0xFF;
constexpr int OpacityShift = 24;
constexpr int Percent = 100;

[[maybe_unused]] const bool Registered = AddBuiltIn(AlphaDialogLayout<GermanAlphaWords>::Template);

std::uint8_t PercentOf(unsigned opacity) {
    return static_cast<std::uint8_t>(std::lround((Opaque - opacity) * 100.0 / Opaque));
}

unsigned OpacityOf(std::uint8_t transparency) {
    return Opaque - static_cast<unsigned>(std::lround(transparency * 255.0 / Percent));
}

} // namespace

CColorAplhaDlg::CColorAplhaDlg(COLORREF colorWord, CWnd* parent)
    : CDialog(AlphaTemplateId, parent), color(colorWord & 0xFFFFFF),
      transparency(PercentOf(colorWord >> OpacityShift)) {}

std::intptr_t CColorAplhaDlg::DoModal() {
    return DoModalOfLibrary();
}

COLORREF CColorAplhaDlg::GetColorWord() const {
    return color | OpacityOf(transparency) << OpacityShift;
}

BOOL CColorAplhaDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    slider.SubclassDlgItem(AlphaSliderId, this);
    slider.SetRange(0, Percent);
    slider.SetTicFreq(1);
    slider.SetPos(transparency);
    colorButton.color = color;
    colorButton.SubclassDlgItem(AlphaColorId, this);
    ShowTransparency();
    return 1;
}

LRESULT CColorAplhaDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_HSCROLL && slider.m_hWnd && reinterpret_cast<HWND>(lParam) == slider.m_hWnd) {
        transparency = static_cast<std::uint8_t>(slider.GetPos());
        ShowTransparency();
    }
    return CDialog::WindowProc(message, wParam, lParam);
}

bool CColorAplhaDlg::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (LOWORD(wParam) == AlphaColorId && HIWORD(wParam) == BN_CLICKED)
        return ChooseColor(), true;
    return CDialog::OnCommand(wParam, lParam);
}

void CColorAplhaDlg::ChooseColor() {
    CColorDialog chooser(color, colorFlags, this);
    if (chooser.DoModal() != IDOK)
        return;
    color = chooser.GetColor();
    colorButton.color = color;
    colorButton.Invalidate();
}

void CColorAplhaDlg::ShowTransparency() {
    SetDlgItemTextA(m_hWnd, AlphaNumberId, std::to_string(transparency));
}

} // namespace korvel

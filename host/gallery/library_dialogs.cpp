#include "gallery/library_dialogs.h"

#include "korvel/dialogs/dialog_code_list.h"
#include "korvel/dialogs/dialog_edit_code_list.h"
#include "korvel/dialogs/dialog_text.h"
#include "korvel/dialogs/dlg_edit_attributs.h"
#include "korvel/dialogs/dlg_progress.h"
#include "korvel/dialogs/file_dialog.h"
#include "korvel/dialogs/select_folder_dlg.h"
#include "korvel/editors/color_aplha_dlg.h"
#include "korvel/values/text_table.h"
#include "korvel/window/base/messages.h"
#include "texts/program_texts.h"

#include <memory>

namespace korvel::gallery {
namespace {

using inspector::InCodePage;
using inspector::TheProgramTexts;

constexpr const char* Codes = "T12:0.35;T13:0.40;B4:;W7:-0.12";

class SecondSelected final : public CDialogCodeList {
public:
    BOOL OnInitDialog() override {
        CDialogCodeList::OnInitDialog();
        m_listCodes.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
        return 1;
    }
};

void ShowCodes(SelectionMode::Enum mode) {
    SecondSelected dialog;
    dialog.SetCaption(InCodePage(TheProgramTexts.codesCaption));
    dialog.SetCodeType(CodeType::Height);
    dialog.SetSelectionMode(mode);
    dialog.SetCodeList(Codes);
    dialog.DoModal();
}

} // namespace

void ShowCodeList() {
    ShowCodes(SelectionMode::Multiple);
}

void ShowCodeListToPick() {
    ShowCodes(SelectionMode::Single);
}

void ShowCodePair() {
    CDialogEditCodeList dialog;
    dialog.SetCaption(Text(126));
    dialog.SetPlaceholder(Text(131));
    dialog.SetCode("T12");
    dialog.SetValue("0.35");
    dialog.DoModal();
}

void ShowText() {
    CDialogText dialog;
    dialog.SetCaption(InCodePage(TheProgramTexts.descriptionCaption));
    dialog.SetText("Track 1\nkm 0.0 - 12.4");
    dialog.DoModal();
}

void ShowColorWithTransparency() {
    CColorAplhaDlg dialog(0x9E2F7FD6);
    dialog.DoModal();
}

void ShowNewAttribute() {
    CDlgEditAttributs dialog(nullptr, nullptr, nullptr, 0xFFFFFFFF, true);
    dialog.DoModal();
}

void ShowFileChooser(const std::string& file) {
    std::string path = file;
    const std::string filter = std::string(Text(4)) + Text(10);
    doModalFileDialog(path, 1, "xml", file.c_str(), 0, filter.c_str(), nullptr, 0, 1);
}

void ShowFolderChooser(const std::string& folder) {
    CSelectFolderDlg({}, folder, nullptr).DoModal();
}

void ShowQuestion() {
    MessageBoxA(nullptr, Text(93), Text(92), MB_YESNOCANCEL | MB_ICONQUESTION);
}

void ShowProgress(ProgressLook look, const std::function<void(HWND)>& act) {
    const std::unique_ptr<CDlgProgress, int (*)(CDlgProgress*)> dialog(NewDlgProgress(0, nullptr),
                                                                       DeleteDlgProgress);
    dialog->SetPos(40);
    dialog->SetMarquee(look == ProgressLook::Marquee);
    dialog->SetText("/srv/plans/Track 1 & 2.xml");
    CreateDlgProgress(dialog.get(), nullptr);
    act(dialog->m_hWnd);
}

} // namespace korvel::gallery

#include "program/document_dialogs.h"

#include "korvel/dialogs/dialog_code_list.h"
#include "korvel/dialogs/dialog_text.h"
#include "korvel/platform/error.h"
#include "korvel/values/replace_first.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/core/wait_cursor.h"
#include "landxml/feature_codes.h"
#include "program/document_notes.h"
#include "texts/program_texts.h"

#include <functional>

namespace korvel::inspector {
namespace {

void SayHowManyAreLeftOut(std::size_t count, const CWnd& owner) {
    std::string text = InCodePage(count == 1 ? TheProgramTexts.oneCodeLeftOut : TheProgramTexts.codesLeftOut);
    ReplaceFirst(text, "%1", std::to_string(count));
    MessageBoxA(owner.m_hWnd, text, InCodePage(TheProgramTexts.codesCaption), MB_OK | MB_ICONINFORMATION);
}

std::string CodesToEdit(const LandXmlDocument& document, const DocumentNotes& notes, const CWnd& owner) {
    if (const auto kept = notes.Find(DocumentNotes::Codes))
        return *kept;
    const FeatureCodes codes = [&] {
        const CWaitCursor wait;
        return FeatureCodesOf(document);
    }();
    if (codes.leftOut > 0)
        SayHowManyAreLeftOut(codes.leftOut, owner);
    return codes.list;
}

// What cannot be kept is told, and the dialog opens again: no edit is lost.
template <class Dialog>
void EditUntilKept(Dialog& dialog, const CWnd& owner, const std::string& caption,
                   const std::function<void()>& keep) {
    for (bool isChanged = false; dialog.DoModal() == IDOK;) {
        isChanged |= dialog.GetIsDirty();
        if (!isChanged)
            return;
        try {
            keep();
            return;
        } catch (const Error& error) {
            MessageBoxA(owner.m_hWnd, error.what(), caption, MB_OK | MB_ICONERROR);
        }
    }
}

} // namespace

void EditCodes(const LandXmlDocument& document, const std::string& file, CWnd& owner) {
    const DocumentNotes notes(file);
    const std::string caption = InCodePage(TheProgramTexts.codesCaption);
    CDialogCodeList dialog(&owner);
    dialog.SetCaption(caption);
    dialog.SetCodeType(CodeType::Height);
    dialog.SetCodeList(CodesToEdit(document, notes, owner));
    EditUntilKept(dialog, owner, caption, [&] { notes.Keep(DocumentNotes::Codes, dialog.GetCodeList()); });
}

void EditDescription(const LandXmlDocument& document, const std::string& file, CWnd& owner) {
    const DocumentNotes notes(file);
    const auto kept = notes.Find(DocumentNotes::Description);
    const std::string caption = InCodePage(TheProgramTexts.descriptionCaption);
    CDialogText dialog(&owner);
    dialog.SetCaption(caption);
    dialog.SetText(kept ? *kept : DescriptionOf(document));
    EditUntilKept(dialog, owner, caption, [&] { notes.Keep(DocumentNotes::Description, dialog.GetText()); });
}

} // namespace korvel::inspector

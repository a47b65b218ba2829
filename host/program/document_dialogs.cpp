#include "program/document_dialogs.h"

#include "korvel/dialogs/dialog_code_list.h"
#include "korvel/dialogs/dialog_text.h"
#include "korvel/values/replace_first.h"
#include "korvel/window/base/messages.h"
#include "landxml/feature_codes.h"
#include "program/document_notes.h"
#include "texts/program_texts.h"

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
    const FeatureCodes codes = FeatureCodesOf(document);
    if (codes.leftOut > 0)
        SayHowManyAreLeftOut(codes.leftOut, owner);
    return codes.list;
}

} // namespace

void EditCodes(const LandXmlDocument& document, const std::string& file, CWnd& owner) {
    const DocumentNotes notes(file);
    CDialogCodeList dialog(&owner);
    dialog.SetCaption(InCodePage(TheProgramTexts.codesCaption));
    dialog.SetCodeType(CodeType::Height);
    dialog.SetCodeList(CodesToEdit(document, notes, owner));
    if (dialog.DoModal() == IDOK && dialog.GetIsDirty())
        notes.Keep(DocumentNotes::Codes, dialog.GetCodeList());
}

void EditDescription(const LandXmlDocument& document, const std::string& file, CWnd& owner) {
    const DocumentNotes notes(file);
    const auto kept = notes.Find(DocumentNotes::Description);
    CDialogText dialog(&owner);
    dialog.SetCaption(InCodePage(TheProgramTexts.descriptionCaption));
    dialog.SetText(kept ? *kept : DescriptionOf(document));
    if (dialog.DoModal() == IDOK && dialog.GetIsDirty())
        notes.Keep(DocumentNotes::Description, dialog.GetText());
}

} // namespace korvel::inspector

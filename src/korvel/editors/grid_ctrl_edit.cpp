#include "korvel/editors/grid_ctrl_edit.h"

#include "korvel/editors/cell_edit_text.h"
#include "korvel/editors/cell_text_reading.h"
#include "korvel/parser/evaluate_expression.h"
#include "korvel/platform/error.h"
#include "korvel/platform/first_failure.h"
#include "korvel/platform/raised_flag.h"
#include "korvel/values/entity_function.h"
#include "korvel/values/text_table.h"
#include "korvel/window/core/display.h"

#include <utility>

namespace korvel {

using namespace internal;

namespace {

constexpr int InvalidInputText = 0;

constexpr WPARAM CharacterOfCtrlQ = 0x11;

// The command that a key with the modifiers that are down stands for; 0: none.
UINT CommandOf(WPARAM key) {
    const bool isControl = IsKeyDown(VK_CONTROL);
    const bool isShift = IsKeyDown(VK_SHIFT);
    if (isControl == isShift || IsKeyDown(VK_MENU))
        return 0;
    switch (key) {
    case 'C':
        return isControl ? ID_EDIT_COPY : 0;
    case 'X':
        return isControl ? ID_EDIT_CUT : 0;
    case 'V':
        return isControl ? ID_EDIT_PASTE : 0;
    case VK_INSERT:
        return isControl ? ID_EDIT_COPY : ID_EDIT_PASTE;
    case VK_DELETE:
        return isShift ? ID_EDIT_CUT : 0;
    default:
        return 0;
    }
}

} // namespace

/// The edit that was running when a call out began.
class CGridCtrlEdit::Session {
public:
    explicit Session(const CGridCtrlEdit& edit)
        : m_edit(edit), m_number(edit.m_session), m_disp(edit.m_pDisp) {}

    bool IsOn() const { return m_disp && m_edit.m_pDisp == m_disp && m_edit.m_session == m_number; }

private:
    const CGridCtrlEdit& m_edit;
    unsigned m_number;
    IMemberDispatch* m_disp;
};

void CGridCtrlEdit::Start(IMemberDispatch* disp, const std::string& name) {
    const std::string member = name; // may be the field's own
    Drop();
    m_bInEnd = false;
    m_pDisp = disp;
    m_strName = member;
    const Session session(*this);
    CVariantValue value;
    FirstFailure failure;
    failure.Try([&] {
        if (disp && !disp->GetMember(member, value))
            value = {};
    });
    if (!session.IsOn())
        return failure.Rethrow();
    if (failure)
        Drop();
    failure.Rethrow();
    LimitText(0);
    SetValue(value);
    SetSel(0, -1);
    m_bChanged = false;
}

void CGridCtrlEdit::SetValue(const CVariantValue& value) {
    SetWindowTextA(CellEditText(value, m_options));
}

bool CGridCtrlEdit::IsTakenByEntityFunction(const std::string& text) const {
    auto* function = KV_GetKorvelCommonEntityFunction();
    return function && function->OnText(text.c_str());
}

bool CGridCtrlEdit::GetValue(EDataTyps type, CVariantValue& value) {
    const Session session(*this);
    const std::string text = GetWindowTextA();
    if (IsFormula(text)) {
        const std::string name = m_strName;
        if (!m_pDisp || !m_pDisp->GetMember(name, value))
            return false;
        value = WithFormula(value, text);
        return true;
    }
    const bool isEditing = session.IsOn();
    if (IsTakenByEntityFunction(text) || isEditing != session.IsOn())
        return false;
    if (!Convert(type, text, value))
        throw Error(std::string(Text(InvalidInputText)) + ": " + text);
    return true;
}

bool CGridCtrlEdit::Convert(EDataTyps type, const std::string& text, CVariantValue& value) {
    CVariantValue read;
    if (const std::string name = m_strName; m_pDisp && KeepsPayload(type))
        m_pDisp->GetMember(name, read);
    if (!ReadCellText(type, text, m_options, read))
        return false;
    value = read;
    return true;
}

double CGridCtrlEdit::ParseNumber(const _numberfmtA& format, const std::string& text) const {
    return EvaluateExpression(format, text, WholeNumbersOf(m_options));
}

void CGridCtrlEdit::End(bool release) {
    if (m_bInEnd)
        return;
    const RaisedFlag inEnd(m_bInEnd);
    const Session session(*this);
    if (m_bChanged && m_pDisp)
        Commit();
    if (m_pDisp && !session.IsOn())
        return; // another edit has begun
    m_bChanged = false;
    if (release)
        Drop();
}

void CGridCtrlEdit::Drop() {
    ++m_session;
    m_pDisp = nullptr;
    m_strName.clear();
    m_bChanged = false;
}

// Names are copied for each call, because a host may rename the member within it. That the member is read
// before it is written is kept: objects may count on it, and one without a value yet can be given its first.
void CGridCtrlEdit::Commit() {
    const Session session(*this);
    const auto name = [this] { return m_strName; };
    EDataTyps type = DT_Void;
    const bool isTyped = m_pDisp->GetMemberType(name(), type);
    if (!session.IsOn())
        return;
    if (!isTyped)
        throw Error("");
    CVariantValue value, unused;
    if (!GetValue(type, value) || !session.IsOn())
        return;
    m_pDisp->GetMember(name(), unused);
    if (!session.IsOn())
        return;
    try {
        if (m_pObserver)
            m_pObserver->OnChange(m_pDisp, nullptr, name(), value);
        if (session.IsOn() && !m_pDisp->SetMember(name(), value))
            throw Error("");
    } catch (...) {
        TellHeldValue(session);
        throw;
    }
}

// What fails here is dropped: the failure that led here is the one to tell.
void CGridCtrlEdit::TellHeldValue(const Session& session) {
    FirstFailure dropped;
    CVariantValue held;
    const auto isHeld = [&] { return session.IsOn() && m_pDisp->GetMember(std::string(m_strName), held); };
    dropped.Try([&] {
        if (!isHeld() || !session.IsOn())
            return;
        if (m_heldValueHook)
            m_heldValueHook(m_pDisp, std::string(m_strName), held);
        if (m_pObserver && session.IsOn())
            m_pObserver->OnChange(m_pDisp, nullptr, std::string(m_strName), held);
    });
}

void CGridCtrlEdit::StepValue(double delta) {
    const Session session(*this);
    const std::string text = GetWindowTextA();
    if (!m_pDisp || IsFormula(text) || IsTakenByEntityFunction(text) || !session.IsOn())
        return;
    CVariantValue member;
    if (!m_pDisp->GetMember(std::string(m_strName), member) || !session.IsOn())
        return;
    if (const auto stepped = SteppedCellText(member.Type, text, delta, m_options))
        SetWindowTextA(*stepped);
}

LRESULT CGridCtrlEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CHAR:
        if (wParam == VK_RETURN || wParam == VK_ESCAPE)
            return Leave(wParam), 0;
        if (wParam == CharacterOfCtrlQ)
            return 0;
        break;
    case WM_KEYDOWN:
        if (const UINT command = CommandOf(wParam))
            return SendMessageA(WM_COMMAND, command);
        break;
    case WM_GETDLGCODE:
        return CEdit::WindowProc(message, wParam, lParam) | DLGC_WANTALLKEYS;
    case WM_DESTROY:
        Drop(); // what was typed has been written when the focus left
        break;
    default:
        break;
    }
    return CEdit::WindowProc(message, wParam, lParam);
}

void CGridCtrlEdit::Leave(WPARAM character) {
    const bool isCancelled = character == VK_ESCAPE && m_options.Has(EGridOption::EscapeCancels);
    if (isCancelled)
        m_bChanged = false;
    // An input method may hand over its text now, which is cancelled too.
    const RaisedFlag cancelling(m_isCancelling);
    m_isCancelling = isCancelled;
    korvel::SetFocus(korvel::GetParent(m_hWnd));
}

bool CGridCtrlEdit::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message == WM_COMMAND && HIWORD(wParam) == EN_CHANGE) {
        m_bChanged = m_bChanged || !m_isCancelling;
        return true;
    }
    if (message == WM_COMMAND && HIWORD(wParam) == EN_KILLFOCUS && m_CompanionWindows.contains(GetFocus()))
        return true;
    return CEdit::OnChildNotify(message, wParam, lParam, result);
}

bool CGridCtrlEdit::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (lParam != 0)
        return CEdit::OnCommand(wParam, lParam);
    switch (LOWORD(wParam)) {
    case ID_EDIT_COPY:
        return Copy(), true;
    case ID_EDIT_CUT:
        return Cut(), true;
    case ID_EDIT_PASTE:
        return Paste(), true;
    default:
        return CEdit::OnCommand(wParam, lParam);
    }
}

// Cut and paste replace the selection rather than set the text, which could not be undone.
bool CGridCtrlEdit::Copy() const {
    const CString text = GetWindowTextA();
    return !text.empty() && Display().SetClipboardText(text).IsSet();
}

void CGridCtrlEdit::Cut() {
    if (!Copy())
        return;
    SetSel(0, -1);
    ReplaceSel("");
}

void CGridCtrlEdit::Paste() {
    const auto text = Display().ClipboardText();
    if (!text || text->empty())
        return;
    SetSel(0, -1);
    ReplaceSel(*text);
}

} // namespace korvel

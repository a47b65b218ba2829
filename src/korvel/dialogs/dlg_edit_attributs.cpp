#include "korvel/dialogs/dlg_edit_attributs.h"

#include "korvel/dialogs/attribute_types.h"
#include "korvel/dialogs/dialog_ids.h"
#include "korvel/editors/wnd_item.h"
#include "korvel/layout/base_item.h"
#include "korvel/layout/pane_manager.h"
#include "korvel/platform/code_page.h"
#include "korvel/values/refusal_text.h"
#include "korvel/values/text_table.h"
#include "korvel/window/dialog/dialog_items.h"

namespace korvel {

using namespace internal;

namespace {

constexpr int UnknownFailureText = 46;
constexpr std::size_t LongestProblem = 1000; // bytes

} // namespace

/// The value of the dialog: what is refused is said there.
class CDlgEditAttributs::ValueItem : public CWndItem {
public:
    explicit ValueItem(CDlgEditAttributs& dialog) : m_dialog(dialog) {}

    bool TryEnd() {
        KeepTypedText();
        return Try([this] { End(); });
    }

    /// Whether `act` went through; what it throws is said in the dialog.
    template <class Act>
    bool Try(Act act) {
        try {
            act();
        } catch (const std::exception& refusal) {
            return Refuse(refusal.what());
        } catch (...) {
            return Refuse(Text(UnknownFailureText));
        }
        if (!m_pActive) // read
            m_dialog.SetProblems(m_dialog.m_nameProblem, {});
        return true;
    }

    /// What the user typed last, read or refused; not what Escape gave up.
    const std::string& TypedText() {
        KeepTypedText();
        return m_typed;
    }

    void ForgetTypedText() {
        Drop();
        m_typed.clear();
    }

protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override {
        if (HIWORD(wParam) == EN_KILLFOCUS)
            KeepTypedText(); // before the field forgets it

        bool isHandled = true; // also what is refused
        Try([&] { isHandled = CWndItem::OnCommand(wParam, lParam); });
        return isHandled;
    }

private:
    void KeepTypedText() {
        if (m_pActive != &m_Edit)
            return;
        if (m_Edit.m_bChanged)
            m_typed = m_Edit.GetWindowTextA();
        else if (m_isRefused) // and given up since
            m_typed.clear();
        m_isRefused = false;
    }

    bool Refuse(const std::string& problem) {
        m_isRefused = true;
        m_dialog.SetProblems(m_dialog.m_nameProblem, platform::Abbreviate(problem, LongestProblem));
        return false;
    }

    CDlgEditAttributs& m_dialog;
    std::string m_typed;
    bool m_isRefused = false;
};

CDlgEditAttributs::CDlgEditAttributs(IObserverGrid* observer, IMemberDispatch* disp,
                                     IEnumContainer* enumerations, std::uint32_t types,
                                     bool allowWriteProtect, CWnd* parent)
    : CDialog(EditAttributsTemplateId, parent), m_pObserver(observer), m_pDisp(disp),
      m_pEnumContainer(enumerations), m_types(types), m_allowWriteProtect(allowWriteProtect),
      m_item(std::make_unique<ValueItem>(*this)) {}

// The item would destroy an enumeration that says IsAutoDestroy.
CDlgEditAttributs::~CDlgEditAttributs() {
    m_item->SetValue({});
}

std::intptr_t CDlgEditAttributs::DoModal() {
    return DoModalOfLibrary();
}

void CDlgEditAttributs::SetOptions(GridOptions options) {
    m_options = options;
    m_item->SetOptions(options);
}

BOOL CDlgEditAttributs::OnInitDialog() {
    ForgetChoice();
    m_nameProblem.clear();
    m_valueProblem.clear();
    m_item->ForgetTypedText();
    CDialog::OnInitDialog();
    m_typeBox.SubclassDlgItem(AttributeTypeId, this);
    m_item->SubclassDlgItem(AttributeValueId, this);
    m_choices = AttributeTypes(m_types, m_pEnumContainer);
    for (const AttributeType& choice : m_choices)
        m_typeBox.AddString(choice.label);
    m_typeBox.SetCurSel(0);
    ShowType();
    korvel::EnableWindow(korvel::GetDlgItem(m_hWnd, IDOK), !m_choices.empty());
    korvel::ShowWindow(korvel::GetDlgItem(m_hWnd, AttributeProtectId),
                       m_allowWriteProtect ? SW_SHOW : SW_HIDE);
    BuildLayout();
    return 1;
}

void CDlgEditAttributs::ForgetChoice() {
    m_name.clear();
    m_value = {};
    m_isWriteProtected = false;
}

void CDlgEditAttributs::BuildLayout() {
    InitializeLayout();
    const auto leaf = [this](int id, UINT flags) { return new CBaseItem(m_hWnd, id, flags); };
    const auto row = [&](int label, int field) {
        return (new CPaneManager(1, ItemGrowX))->Add(leaf(label, 0))->Add(leaf(field, ItemGrowX));
    };
    auto* column = new CPaneManager(0, ItemGrowX | ItemGrowY);
    root = column;
    column->SetRect(clientRect);
    column->Add(row(AttributeNameLabelId, AttributeNameId));
    column->Add(row(AttributeTypeLabelId, AttributeTypeId));
    column->Add(row(AttributeValueLabelId, AttributeValueId));
    column->Add(leaf(AttributeProtectId, ItemGrowX));
    column->Add(leaf(AttributeProblemId, ItemGrowX | ItemGrowY));
    column->Add((new CPaneManager(1, 0))->Add(leaf(IDOK, 0))->Add(leaf(IDCANCEL, 0)));
}

LRESULT CDlgEditAttributs::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GETMINMAXINFO && LimitTrackSize(*reinterpret_cast<MINMAXINFO*>(lParam)))
        return 0;
    if (message == WM_ERASEBKGND && EraseLayout(reinterpret_cast<CDC*>(wParam)))
        return 1;
    if (message == WM_DESTROY)
        DestroyLayout();
    const LRESULT result = CDialog::WindowProc(message, wParam, lParam);
    if (message == WM_SIZE)
        ResizeLayout(LayoutForm::Dialog, LOWORD(lParam), HIWORD(lParam));
    return result;
}

bool CDlgEditAttributs::OnCommand(WPARAM wParam, LPARAM lParam) {
    const unsigned id = LOWORD(wParam);
    const UINT code = HIWORD(wParam);
    if (id == AttributeTypeId && code == CBN_SELCHANGE)
        ShowType();
    if (id == AttributeNameId && code == EN_CHANGE) {
        const std::string name = GetDlgItemTextA(m_hWnd, AttributeNameId);
        SetProblems(name.empty() ? "" : ProblemOf(name), m_valueProblem);
    }
    return CDialog::OnCommand(wParam, lParam);
}

void CDlgEditAttributs::ShowType() {
    const auto chosen = static_cast<std::size_t>(m_typeBox.GetCurSel());
    if (chosen >= m_choices.size())
        return;
    const CVariantValue& fresh = m_choices[chosen].value;
    m_item->SetValue(FromTypedText(fresh, m_item->TypedText(), m_options));
    SetProblems(m_nameProblem, {});
}

std::string CDlgEditAttributs::ProblemOf(const std::string& name) const {
    EDataTyps type = DT_Void;
    if (name.empty())
        return InvalidNameText(name);
    return m_pDisp && m_pDisp->GetMemberType(name, type) ? TakenNameText(name) : "";
}

void CDlgEditAttributs::SetProblems(const std::string& ofName, const std::string& ofValue) {
    const std::string name = ofName; // may be the dialog's own
    m_valueProblem = ofValue;
    m_nameProblem = name;
    SetDlgItemTextA(m_hWnd, AttributeProblemId, name.empty() ? m_valueProblem : name);
}

void CDlgEditAttributs::OnOK() {
    const std::string name = GetDlgItemTextA(m_hWnd, AttributeNameId);
    SetProblems(ProblemOf(name), m_valueProblem);
    const bool isRead = m_item->TryEnd();
    if (!m_nameProblem.empty())
        return GotoDlgCtrl(GetDlgItem(AttributeNameId));
    if (!isRead)
        return GotoDlgCtrl(m_item.get());
    m_name = name;
    m_value = m_item->GetValue();
    m_isWriteProtected = m_allowWriteProtect && IsDlgButtonChecked(m_hWnd, AttributeProtectId) == BST_CHECKED;
    if (!m_item->Try([this] { Accept(); }))
        return GotoDlgCtrl(m_item.get());
    CDialog::OnOK();
}

// What is being typed is not looked at any more.
void CDlgEditAttributs::OnCancel() {
    m_item->Drop();
    ForgetChoice();
    CDialog::OnCancel();
}

} // namespace korvel

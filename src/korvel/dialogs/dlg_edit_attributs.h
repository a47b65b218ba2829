#pragma once

#include "korvel/editors/grid_option.h"
#include "korvel/layout/layout_manager.h"
#include "korvel/values/enum_value.h"
#include "korvel/values/observer_grid.h"
#include "korvel/window/controls/combo_box.h"
#include "korvel/window/dialog/dialog.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace korvel {

namespace internal {
struct AttributeType;
}

/// Asks the user for a new attribute of an object: its name, its type, its value, and whether it is write
/// protected. It adds nothing itself.
///
///     CDlgEditAttributs dialog(&observer, &axis, &enumerations, 0xFFFFFFFF, true, &grid);
///     if (dialog.DoModal() == IDOK &&
///         axis.AddMember(dialog.GetName(), !dialog.IsWriteProtected(), dialog.GetValue()))
///         observer.OnAdd(&axis, nullptr, dialog.GetName(), dialog.GetValue());
///
/// It offers text, the plain numbers, flag, date, colors, file, angles, measures and a list of each
/// enumeration of the container, as far as the mask of types allows them ((mask & type) == type). A name that
/// is empty or that the object has already, and a text that is no value of the type, are said in the dialog,
/// and OK waits for others. What was typed goes over to another type where it is a value of that.
class KORVEL_API CDlgEditAttributs : public CDialog, public CLayoutManager<CDlgEditAttributs> {
public:
    /// Pointers may be null; none is owned, and all but `parent` must live while the dialog does. `observer`
    /// is kept for derived dialogs. Enumerations stay the host's, whatever IsAutoDestroy says.
    CDlgEditAttributs(IObserverGrid* observer, IMemberDispatch* disp, IEnumContainer* enumerations,
                      std::uint32_t types, bool allowWriteProtect, CWnd* parent = nullptr);
    ~CDlgEditAttributs() override;

    std::intptr_t DoModal() override;

    /// For the field of the value, before DoModal.
    void SetOptions(GridOptions options);

    // What the user chose, after IDOK; else empty.
    const std::string& GetName() const { return m_name; }
    const CVariantValue& GetValue() const { return m_value; }
    bool IsWriteProtected() const { return m_isWriteProtected; }

    BOOL OnInitDialog() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    /// OK, with name and value in order: the getters answer them. What it throws is said in the dialog, which
    /// stays open with all that was entered.
    virtual void Accept() {}

    void OnOK() override;
    void OnCancel() override;
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;

    IObserverGrid* const m_pObserver;
    IMemberDispatch* const m_pDisp;
    IEnumContainer* const m_pEnumContainer;

private:
    class ValueItem;

    void ForgetChoice();
    void BuildLayout();
    void ShowType();
    std::string ProblemOf(const std::string& name) const;
    void SetProblems(const std::string& ofName, const std::string& ofValue);

    const std::uint32_t m_types;
    const bool m_allowWriteProtect;
    GridOptions m_options;
    std::vector<internal::AttributeType> m_choices;
    CComboBox m_typeBox;
    std::unique_ptr<ValueItem> m_item;
    std::string m_nameProblem;
    std::string m_valueProblem;
    std::string m_name;
    CVariantValue m_value;
    bool m_isWriteProtected = false;
};

} // namespace korvel

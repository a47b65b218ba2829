#include "korvel/dialogs/attribute_types.h"
#include "korvel/dialogs/dialog_ids.h"
#include "korvel/dialogs/dlg_edit_attributs.h"
#include "korvel/dialogs/file_container.h"
#include "korvel/output/angles.h"
#include "korvel/platform/error.h"
#include "korvel/values/language.h"
#include "korvel/values/member_dispatch_imp.h"
#include "support/dialog_fixture.h"
#include "support/make_value.h"
#include "support/test_enumeration.h"

#include <map>

namespace korvel {
namespace {

using namespace internal;

constexpr std::uint32_t AllTypes = 0xFFFFFFFF;

// The enumerations of a host by their names; null ones may be among them.
class Enumerations : public IEnumContainer {
public:
    std::map<std::string, IEnumValue*> all;

    IEnumValue* GetEnumValue(const SEnumPosition& position) override { return all.at(position.name); }
    void GetBegin(SEnumPosition& position) override { Set(position, all.begin()); }
    const SEnumPosition& GetEnd(SEnumPosition& position) override { return Set(position, all.end()); }
    void GetNext(SEnumPosition& position) override { Set(position, std::next(all.find(position.name))); }

private:
    const SEnumPosition& Set(SEnumPosition& position, std::map<std::string, IEnumValue*>::iterator at) {
        position = at == all.end() ? SEnumPosition{"", true} : SEnumPosition{at->first, false};
        return position;
    }
};

class Object : public TMemberDispatchImp<Object> {};

class EditAttributsTest : public DialogTest {
protected:
    EditAttributsTest() {
        SetLanguageForThisRun("English");
        surfaces.isAutoDestroy = true;
        surfaces.pattern = &pattern;
        enumerations.all = {{"Gone", nullptr}, {"Surface", &surfaces}};
        object.AddMember("length", true, MakeValue(DT_Double, 1.0));
    }

    // Shows the dialog, does `act` in it, and says how it ended.
    std::intptr_t Run(std::function<void()> act) {
        display.Then([this, act] {
            act();
            if (dialog.m_hWnd && IsWindowVisible(dialog.m_hWnd))
                dialog.SendMessageA(WM_COMMAND, IDCANCEL);
        });
        return dialog.DoModal();
    }
    void Ok() {
        const HWND ok = GetDlgItem(dialog.m_hWnd, IDOK);
        input::Mouse(ok, WM_LBUTTONDOWN, MK_LBUTTON, {5, 5});
        input::Mouse(ok, WM_LBUTTONUP, 0, {5, 5});
    }
    void SetName(const std::string& name) { SetDlgItemTextA(dialog.m_hWnd, AttributeNameId, name); }
    std::string Problem() { return GetDlgItemTextA(dialog.m_hWnd, AttributeProblemId); }
    void ChooseType(const std::string& label) {
        const HWND box = GetDlgItem(dialog.m_hWnd, AttributeTypeId);
        const LRESULT index = SendMessageA(box, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                           reinterpret_cast<LPARAM>(label.c_str()));
        EXPECT_NE(index, CB_ERR) << label;
        SendMessageA(box, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        NotifyParentCommand(box, CBN_SELCHANGE);
    }
    void TypeValue(const std::string& text) {
        SetFocus(GetDlgItem(dialog.m_hWnd, AttributeValueId));
        Press(VK_F2);
        for (const char letter : text)
            Press(static_cast<UINT>(letter), CString(1, letter)); // '\r' is VK_RETURN
    }

    TestEnumeration surfaces{{"asphalt", "gravel"}};
    const CVariantValue pattern = MakeValue(DT_Group, ",1,");
    Enumerations enumerations;
    Object object;
    CDlgEditAttributs dialog{nullptr, &object, &enumerations, AllTypes, true, &frame};
};

TEST_F(EditAttributsTest, OffersWhatTheMaskAllows) {
    const auto labels = [this](std::uint32_t allowed, bool hasContainer) {
        std::string all;
        for (const AttributeType& type : AttributeTypes(allowed, hasContainer ? &enumerations : nullptr))
            all += (all.empty() ? "" : ", ") + type.label;
        return all;
    };
    for (const auto& [border, allowed, hasContainer, offered] : Table<std::uint32_t, bool, const char*>{
             {"all", AllTypes, true,
              "Text, Integer, Unsigned integer, Long, Float, Double, Bool, Date, Color RGB, Color ARGB, File "
              "name, "
              "Angle (32-Bit), Angle (64-Bit), Length, Area, Volumen, Percent, Currency, Man-days, Surface"},
             {"no enumerations", DT_String | TypeBitList, false, "Text"},
             {"a list of texts only", DT_ListString, true, "Text, Surface"},
             {"a measure of one width", DT_LengthFloat, true, "Float, Length"},
             {"all bits of the type count", DT_Date & ~DT_String, true, ""}})
        EXPECT_EQ(labels(allowed, hasContainer), offered) << border;
    for (const AttributeType& type : AttributeTypes(AllTypes, &enumerations)) {
        if (type.label == "Length")
            EXPECT_EQ(type.value, MakeValue(DT_LengthDouble, 0.0));
        if (type.label == "File name")
            EXPECT_EQ(type.value.EnumContext, GetFileContainer().GetFileValue(0));
        if (type.label == "Surface")
            EXPECT_EQ(type.value, surfaces.ValueOf(",1,")) << "made of the template";
    }
}

TEST_F(EditAttributsTest, SaysWhatIsWrongAndWaits) {
    const auto isOpen = [this] { return dialog.m_hWnd && IsWindowVisible(dialog.m_hWnd); };
    EXPECT_EQ(Run([&] {
                  EXPECT_EQ(Problem(), "");
                  Ok();
                  EXPECT_EQ(Problem(), "attribute name '' Invalid");
                  EXPECT_EQ(GetDlgCtrlID(GetFocus()), AttributeNameId);
                  SetName("length");
                  EXPECT_EQ(Problem(), "attribute name 'length' already existing") << "while it is typed";
                  Ok();
                  EXPECT_TRUE(isOpen());
                  SetName("Length");
                  EXPECT_EQ(Problem(), "");
                  ChooseType("Integer");
                  TypeValue("abc");
                  Ok();
                  EXPECT_TRUE(isOpen());
                  EXPECT_EQ(Problem(), "invalid input: 'abc' can not be converted in data type Integer");
                  EXPECT_EQ(GetParent(GetFocus()), GetDlgItem(dialog.m_hWnd, AttributeValueId))
                      << "in the field with the refused text";
                  SetName("width");
                  EXPECT_NE(Problem(), "");
                  TypeValue("7");
                  Press(VK_RETURN, "\r");
                  EXPECT_EQ(Problem(), "");
                  Ok();
                  EXPECT_FALSE(isOpen());
              }),
              IDOK);
    EXPECT_EQ(dialog.GetName(), "width");
    EXPECT_FALSE(dialog.IsWriteProtected());
    EXPECT_EQ(display.ShownBoxes().size(), 0u);
}

TEST_F(EditAttributsTest, GivesNothingAfterARefusalAndCancel) {
    struct Refusing : CDlgEditAttributs {
        using CDlgEditAttributs::CDlgEditAttributs;
        void Accept() override {
            EXPECT_EQ(GetName(), "width");
            throw Error("no");
        }
    } refusing(nullptr, &object, nullptr, AllTypes, false, &frame);
    display.Then([&] {
        SetDlgItemTextA(refusing.m_hWnd, AttributeNameId, "width");
        refusing.SendMessageA(WM_COMMAND, IDOK);
        EXPECT_EQ(GetDlgItemTextA(refusing.m_hWnd, AttributeProblemId), "no");
        refusing.SendMessageA(WM_COMMAND, IDCANCEL);
    });
    EXPECT_EQ(refusing.DoModal(), IDCANCEL);
    EXPECT_EQ(refusing.GetName(), "");
    EXPECT_EQ(refusing.GetValue().Type, DT_Void);
}

TEST_F(EditAttributsTest, WhatWasTypedGoesOverToAnotherType) {
    SetAngleUnit('g');
    const CVariantValue black = MakeValue(DT_ColorRGB, 0xFF000000u);
    for (const auto& [border, first, typed, types, value] :
         Table<const char*, const char*, std::vector<const char*>, CVariantValue>{
             {"a number", "Integer", "200", {"Angle (64-Bit)"}, MakeValue(DT_AngleDouble, 3.141592653589793)},
             {"past a flag", "Integer", "5", {"Bool", "Length"}, MakeValue(DT_LengthDouble, 5.0)},
             {"a text", "Text", "12.5", {"Length"}, MakeValue(DT_LengthDouble, 12.5)},
             {"what is no number", "Text", "abc", {"Length", "Color RGB"}, black},
             {"what was refused", "Integer", "abc", {"Text"}, MakeValue(DT_String, "abc")}}) {
        EXPECT_EQ(Run([&, first = first, typed = typed, types = types] {
                      SetName("bend");
                      ChooseType(first);
                      TypeValue(typed);
                      SetFocus(GetDlgItem(dialog.m_hWnd, AttributeTypeId));
                      for (const char* type : types)
                          ChooseType(type);
                      Ok();
                  }),
                  IDOK)
            << border;
        EXPECT_EQ(dialog.GetValue(), value) << border;
    }
    SetAngleUnit('r');
}

TEST_F(EditAttributsTest, WhatEscapeGaveUpDoesNotGoOverToAnotherType) {
    GridOptions options;
    options.Set(EGridOption::EscapeCancels, true);
    dialog.SetOptions(options);
    for (const auto& [border, typed, next, value] : Table<const char*, const char*, CVariantValue>{
             {"a number", "200", "Length", MakeValue(DT_LengthDouble, 0.0)},
             {"a refused text", "abc\r", "Text", MakeValue(DT_String, "")}}) {
        EXPECT_EQ(Run([this, typed = typed, next = next] {
                      SetName("bend");
                      ChooseType("Integer");
                      TypeValue(typed);
                      Press(VK_ESCAPE, "\x1B");
                      SetFocus(GetDlgItem(dialog.m_hWnd, AttributeTypeId));
                      ChooseType(next);
                      Ok();
                  }),
                  IDOK);
        EXPECT_EQ(dialog.GetValue(), value) << border;
    }
}

TEST_F(EditAttributsTest, BeginsAnew) {
    Run([this] {
        SetName("width");
        CheckDlgButton(dialog.m_hWnd, AttributeProtectId, BST_CHECKED);
        Ok();
    });
    EXPECT_TRUE(dialog.IsWriteProtected());
    Run([this] {
        SetName("length");
        ChooseType("Text");
        TypeValue("7");
    });
    EXPECT_EQ(dialog.GetName(), "");
    EXPECT_FALSE(dialog.IsWriteProtected());
    Run([this] {
        EXPECT_EQ(Problem(), "");
        ChooseType("Integer");
        SetName("width");
        Ok();
    });
    EXPECT_EQ(dialog.GetValue(), MakeValue(DT_Int, 0));
}

TEST_F(EditAttributsTest, WithoutWriteProtectionOrTypes) {
    CDlgEditAttributs none(nullptr, nullptr, nullptr, 0, false, &frame);
    display.Then([&] {
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(none.m_hWnd, IDOK)));
        EXPECT_FALSE(IsWindowVisible(GetDlgItem(none.m_hWnd, AttributeProtectId)));
        none.SendMessageA(WM_COMMAND, IDCANCEL);
    });
    EXPECT_EQ(none.DoModal(), IDCANCEL);
}

TEST_F(EditAttributsTest, ALargerDialogGivesItsFieldsRoom) {
    Run([this] {
        const auto place = [this](int id) { return GetWindowRect(GetDlgItem(dialog.m_hWnd, id)); };
        std::map<int, CRect> before;
        for (const int id : {AttributeNameId, AttributeTypeId, AttributeValueId, AttributeProtectId, IDOK})
            before[id] = place(id);
        CRect larger = dialog.GetWindowRect();
        larger.right += 100;
        larger.bottom += 50;
        dialog.SetWindowPos(nullptr, larger, SWP_NOZORDER);
        for (const auto& [id, former] : before) {
            CRect expected = former;
            if (id == IDOK)
                expected.OffsetRect(100, 50);
            else
                expected.right += 100;
            EXPECT_EQ(place(id), expected) << id;
        }
    });
}

} // namespace
} // namespace korvel

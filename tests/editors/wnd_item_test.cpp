#include "korvel/editors/cell_geometry.h"
#include "korvel/editors/wnd_item.h"
#include "korvel/output/angles.h"
#include "korvel/output/dates.h"
#include "korvel/output/format_persistence.h"
#include "korvel/output/system_change.h"
#include "korvel/platform/regional_settings.h"
#include "korvel/values/language.h"
#include "support/dialog_fixture.h"
#include "support/file_chooser.h"
#include "support/make_value.h"
#include "support/picture.h"
#include "support/test_enumeration.h"

namespace korvel {
namespace {

class Item : public CWndItem {
public:
    using CWndItem::m_DateTime;
    using CWndItem::m_Dispatch;
    using CWndItem::m_Edit;
    using CWndItem::m_List;
    using CWndItem::m_pActive;
};

// A window that hears what the item says.
class Around : public RecordedDialog {
public:
    std::string heard;
    std::function<void(UINT)> onCode;

protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override {
        if (LOWORD(wParam) == 12) {
            heard += std::to_string(HIWORD(wParam)) + " ";
            if (onCode)
                onCode(HIWORD(wParam));
        }
        return RecordedDialog::OnCommand(wParam, lParam);
    }
};

class ItemTest : public DialogTest {
protected:
    ItemTest() {
        SetLanguageForThisRun("English");
        platform::UseLocale("de-DE");
        Fire_OnSystemChanged(nullptr, nullptr);
        SetAngleUnit('\xB0');
        SetDateCurrentFormatString(false, "%Y-%m-%d");
        Have({{300, "Values", Plain, {10, 10, 200, 100}, Items}});
        dialog.Create(300, &frame);
        dialog.ShowWindow(SW_SHOW);
        item.SubclassDlgItem(12, &dialog);
    }

    ~ItemTest() override {
        platform::UseLocale("");
        ResetFormatStates();
        Fire_OnSystemChanged(nullptr, nullptr);
    }

    std::string Heard() { return std::exchange(dialog.heard, {}); }
    CRect Client() const { return item.GetClientRect(); }
    void Click(CPoint point) { input::Mouse(item.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, point); }
    void ClickValue() { Click({2, Client().Height() / 2}); }
    void ClickButton() { Click({Client().right - 3, Client().Height() / 2}); }
    void Type(const std::string& text) {
        for (const char letter : text)
            Press(static_cast<UINT>(letter), CString(1, letter));
    }
    HWND Other() const { return GetDlgItem(dialog.m_hWnd, 13); }
    bool IsEditing() const { return item.m_Edit.IsWindowVisible(); }
    CVariantValue Member() {
        CVariantValue value;
        item.m_Dispatch.GetMember("Member", value);
        return value;
    }

private:
    static constexpr DialogItem Items[] = {
        {"EDIT", "", 11, WS_TABSTOP, {7, 7, 100, 14}},
        {"KorvelItem", "", 12, WS_TABSTOP, {7, 27, 100, 14}},
        {"EDIT", "", 13, WS_TABSTOP, {7, 47, 100, 14}},
    };
    Item m_first; // makes the class

protected:
    FileChooser file;
    TestEnumeration surfaces{{"asphalt", "gravel", "grass"}};
    TestEnumeration paths{{"asphalt", "wild\\-grass"}, ENF_Tree};
    TestEnumeration broken{{"asphalt"}};
    Around dialog;
    Item item;
};

TEST_F(ItemTest, EveryTextIsTypedInItsField) {
    for (const auto& [border, value, opened, typed, shown] :
         Table<CVariantValue, const char*, const char*, const char*>{
             {"a number", MakeValue(DT_Int, 7), "7", "2*(3+4)", "14"},
             {"an angle", MakeValue(DT_AngleDouble, 3.141592653589793), "180.000000", "90", "1.5708"},
             {"a text", MakeValue(DT_String, "old"), "old", "new", "new"},
             {"a file without a chooser", MakeValue(DT_FileName, "a.xml"), "a.xml", "b.xml", "b.xml"},
             {"nothing typed", MakeValue(DT_Double, 0.1), "0.100000", "", "0.1"}}) {
        item.SetValue(value);
        ClickValue();
        EXPECT_TRUE(IsEditing()) << border;
        EXPECT_EQ(GetFocus(), item.m_Edit.m_hWnd) << border;
        EXPECT_EQ(item.m_Edit.GetWindowTextA(), opened) << border;
        Type(typed);
        SetFocus(Other());
        EXPECT_FALSE(IsEditing()) << border;
        EXPECT_EQ(item.GetValue().ToText(TextForm::Plain), shown) << border;
        EXPECT_EQ(Member(), item.GetValue()) << border;
        EXPECT_EQ(Heard(), "") << border;
    }
}

TEST_F(ItemTest, ARefusedTextStaysInItsField) {
    const std::string notRead = "can not be converted in data type ";
    for (const auto& [border, value, typed, told] : Table<CVariantValue, const char*, std::string>{
             {"no arithmetic", MakeValue(DT_Int, 7), "abc", "invalid input: 'abc' " + notRead + "Integer"},
             {"nothing", MakeValue(DT_LengthDouble, 7.0), " ", "invalid input: ' ' " + notRead + "Length"},
             {"a text of its own", MakeValue(DT_RangeInt, 7), "150",
              "150: Value is outside the ranges of 0-100!"}}) {
        item.SetValue(value);
        ClickValue();
        Type(typed);
        for (const bool byFocus : {true, false}) {
            try {
                byFocus ? static_cast<void>(SetFocus(Other())) : static_cast<void>(item.End());
                ADD_FAILURE() << border;
            } catch (const std::exception& failure) {
                EXPECT_EQ(failure.what(), told);
            }
            EXPECT_TRUE(IsEditing()) << border;
            EXPECT_EQ(item.m_Edit.GetWindowTextA(), typed) << border;
            EXPECT_EQ(item.GetValue(), value) << border;
            if (GetFocus() == Other())
                item.SetFocus();
            EXPECT_EQ(GetFocus(), item.m_Edit.m_hWnd) << border;
        }
        item.m_Edit.SetSel(0, -1);
        Press('8', "8");
        SetFocus(Other());
        EXPECT_FALSE(IsEditing()) << border;
        EXPECT_EQ(item.GetValue().ToText(TextForm::Plain), "8") << border;
    }
}

TEST_F(ItemTest, WhatCanBeReadIsTakenWhenTheItemGoes) {
    for (const auto& [border, typed, act, value] : Table<const char*, std::function<void()>, int>{
             {"dropped", "9", [this] { item.Drop(); }, 7},
             {"hidden", "9", [this] { item.ShowWindow(SW_HIDE); }, 9},
             {"hidden, refused", "abc", [this] { item.ShowWindow(SW_HIDE); }, 7},
             {"disabled", "9", [this] { item.EnableWindow(false); }, 9},
             {"disabled, refused", "abc", [this] { item.EnableWindow(false); }, 7},
             {"destroyed", "9", [this] { item.DestroyWindow(); }, 9}}) {
        item.ShowWindow(SW_SHOW);
        item.EnableWindow(true);
        item.SetValue(MakeValue(DT_Int, 7));
        ClickValue();
        Type(typed);
        display.AnswerNext(IDOK);
        MessageBoxA(dialog.m_hWnd, "?", "", MB_OK);
        EXPECT_EQ(GetFocus(), item.m_Edit.m_hWnd) << "a box gives the focus back";
        act();
        EXPECT_FALSE(IsEditing()) << border;
        EXPECT_EQ(item.GetValue(), MakeValue(DT_Int, value)) << border;
    }
}

TEST_F(ItemTest, APressChangesWhatNeedsNoEditor) {
    CVariantValue path = MakeValue(DT_FileName, "old.xml");
    path.EnumContext = &file;
    const CVariantValue red = MakeValue(DT_ColorRGB, 0xFF0000FFu);
    item.SetValue(MakeValue(DT_Bool, false));
    ClickValue();
    EXPECT_TRUE(item.GetValue().Value.Bool);
    EXPECT_EQ(Heard(), "1 ");

    item.SetValue(path);
    ClickButton();
    EXPECT_EQ(file.asked + " " + item.GetValue().Text, "old.xml b.xml");
    EXPECT_EQ(Heard(), "1 ");
    ClickValue();
    EXPECT_EQ(Heard(), "") << "the same file again";
    file.chosen = nullptr;
    ClickValue();
    EXPECT_EQ(Heard() + item.GetValue().Text, "b.xml") << "no file";

    item.SetValue(red);
    display.AnswerNextColor(std::nullopt);
    ClickValue();
    EXPECT_EQ(Heard(), "");
    display.AnswerNextColor(0x00FF00);
    ClickValue();
    EXPECT_EQ(item.GetValue(), MakeValue(DT_ColorRGB, 0xFF00FF00u));
    EXPECT_EQ(Heard(), "1 ");

    item.SetValue(MakeValue(DT_ColorARGB, 0x80123456u));
    display.Then([this] { Press(VK_RETURN); });
    ClickValue();
    EXPECT_EQ(item.GetValue(), MakeValue(DT_ColorARGB, 0x7F123456u));

    item.SetValue(MakeValue(DT_RandomInt, 500));
    ClickButton();
    EXPECT_EQ(item.GetValue().Type, DT_RandomUInt);
    EXPECT_TRUE(item.GetValue().Value.UInt >= 1 && item.GetValue().Value.UInt <= 99);

    item.SetValue(MakeValue(DT_AngleDouble, 3.141592653589793));
    ClickButton();
    EXPECT_EQ(GetAngleUnit(), 'r');
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Member(), item.GetValue());
    for (const EDataTyps type : {DT_Group, DT_Void, DT_ListString}) {
        item.SetValue(MakeValue(type, 0));
        ClickValue();
        EXPECT_EQ(item.m_pActive, nullptr) << type;
        EXPECT_FALSE(item.IsDropped()) << type;
    }
}

TEST_F(ItemTest, AListDropsAndKeepsTheFocusOnTheItem) {
    item.SetValue(surfaces.ValueOf(",1,"));
    ClickValue();
    EXPECT_TRUE(item.IsDropped());
    EXPECT_EQ(GetFocus(), item.m_hWnd);
    const CRect field = item.GetWindowRect();
    const CRect list = item.m_List.GetWindowRect();
    EXPECT_EQ(list.left, field.left);
    EXPECT_EQ(list.right, field.right);
    EXPECT_EQ(list.top, field.bottom);
    EXPECT_LE(list.Height(), 100);
    ClickValue();
    EXPECT_FALSE(item.IsDropped());
    EXPECT_EQ(Heard(), "7 8 ");

    SetFocus(Other());
    item.DropDown();
    EXPECT_EQ(GetFocus(), item.m_hWnd) << "which gets the keys for the list";
    input::Mouse(item.m_List.m_hWnd, WM_MOUSEMOVE, 0, {5, 25});
    input::Mouse(item.m_List.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, {5, 25});
    EXPECT_FALSE(item.IsDropped());
    EXPECT_EQ(item.GetValue().Text, ",2,");
    EXPECT_EQ(Member(), item.GetValue());

    for (const auto& [border, act] : Table<std::function<void()>>{
             {"the focus goes", [this] { SetFocus(Other()); }},
             {"a press beside it", [this] { input::Mouse(dialog.m_hWnd, WM_LBUTTONDOWN, 0, {}); }},
             {"another value", [&] { item.SetValue(surfaces.ValueOf(",3,")); }},
             {"it is disabled", [this] { item.EnableWindow(false); }},
             {"its window goes", [this] { item.DestroyWindow(); }}}) {
        item.EnableWindow(true);
        ClickValue();
        EXPECT_TRUE(item.IsDropped()) << border;
        act();
        EXPECT_FALSE(item.IsDropped()) << border;
        EXPECT_FALSE(item.m_List.IsWindowVisible()) << border;
        EXPECT_FALSE(item.m_List.IsInitialized()) << border;
    }
}

TEST_F(ItemTest, KeysOpenWhatAPressOpensAndGoToAListThatIsDropped) {
    using Keys = std::vector<std::pair<UINT, const char*>>;
    const CVariantValue text = MakeValue(DT_String, "a"), list = surfaces.ValueOf(",1,");
    const std::pair<UINT, const char*> space{VK_SPACE, " "}, f4{VK_F4, ""}, down{VK_DOWN, ""};
    const std::pair<UINT, const char*> f2{VK_F2, ""}, end{VK_END, ""}, enter{VK_RETURN, ""},
        escape{VK_ESCAPE, ""};
    for (const auto& [border, value, keys, result] : Table<CVariantValue, Keys, const char*>{
             {"a flag", MakeValue(DT_Bool, false), {space}, "1"},
             {"F2 on a text", text, {f2, end, {'B', "b"}}, "ab"},
             {"typed over a text", text, {{'X', "x"}, space, {'Y', "y"}}, "x y"},
             {"a character outside the page", text, {{'X', "\x81\x41"}}, "\x81\x41"},
             {"no text", text, {{'X', "\x18"}, f4, {VK_LEFT, ""}}, "a"},
             {"the list", list, {f4, down, enter}, ",2,"},
             {"F4 closes", list, {f2, end, f4}, ",3,"},
             {"Escape takes", list, {space, down, escape}, ",2,"},
             {"a letter finds", list, {f4, {'G', "gra"}, enter}, ",2,"},
             {"Escape cancels", list, {f4, down, escape}, ",1,"}}) {
        GridOptions options;
        options.Set(EGridOption::EscapeCancels, std::string(border) == "Escape cancels");
        item.SetOptions(options);
        item.SetValue(value);
        item.SetFocus();
        for (const auto& [key, letter] : keys)
            Press(key, letter);
        EXPECT_FALSE(item.IsDropped()) << border;
        item.End();
        const bool isFlag = item.GetValue().Type == DT_Bool;
        EXPECT_EQ(isFlag ? item.GetValue().ToText(TextForm::Plain) : item.GetValue().Text, result) << border;
        EXPECT_EQ(Member(), item.GetValue()) << border;
    }
    item.SetValue(surfaces.ValueOf(",1,"));
    PressWith(VK_MENU, VK_DOWN);
    EXPECT_TRUE(item.IsDropped());
    PressWith(VK_MENU, VK_UP);
    EXPECT_TRUE(item.IsDropped()) << "as in a grid";
}

TEST_F(ItemTest, TabLeavesTheItemFromEachOfItsEditors) {
    for (const auto& [border, value] : Table<CVariantValue>{{"the field", MakeValue(DT_String, "a")},
                                                            {"the list", surfaces.ValueOf(",1,")},
                                                            {"the picker", MakeDate("GDT_VALID", 44000)},
                                                            {"nothing open", MakeValue(DT_Void, 0)}}) {
        for (const bool isBack : {false, true}) {
            item.SetValue(value);
            item.SetFocus();
            if (value.Type != DT_Void)
                Press(VK_F2);
            if (isBack)
                PressWith(VK_SHIFT, VK_TAB);
            else
                Press(VK_TAB);
            EXPECT_EQ(GetDlgCtrlID(GetFocus()), isBack ? 11 : 13) << border;
            EXPECT_EQ(item.m_pActive, nullptr) << border;
            EXPECT_FALSE(item.IsDropped()) << border;
        }
    }
}

TEST_F(ItemTest, ADateShowsItsPickerUntilThatLosesTheFocus) {
    item.SetValue(MakeDate("GDT_VALID", 44000.25));
    EXPECT_TRUE(item.m_DateTime.IsWindowVisible());
    EXPECT_EQ(item.m_DateTime.GetWindowRect(), item.GetWindowRect());
    EXPECT_EQ(GetFocus() == item.m_DateTime.m_hWnd, false);
    item.SetFocus();
    EXPECT_EQ(GetFocus(), item.m_DateTime.m_hWnd) << "Tab leads to what can be typed in";
    item.m_DateTime.SetFormat("yyyy-MM-dd");
    Press(VK_UP);
    EXPECT_EQ(item.GetValue(), MakeDate("GDT_VALID", 44365.25)) << "at once";
    EXPECT_TRUE(item.m_DateTime.IsWindowVisible()) << "more is typed";
    Press(VK_F4);
    EXPECT_TRUE(item.m_DateTime.IsWindowVisible());
    Press(VK_F4);
    Press(VK_RETURN);
    EXPECT_EQ(GetFocus(), item.m_hWnd);
    EXPECT_FALSE(item.m_DateTime.IsWindowVisible());
    EXPECT_NE(Picture{display.PaintWindow(item.m_hWnd)}.FindText("2021-06-18"), nullptr);
    ClickValue();
    EXPECT_EQ(GetFocus(), item.m_DateTime.m_hWnd);
    SetFocus(Other());
    EXPECT_FALSE(item.m_DateTime.IsWindowVisible());
    EXPECT_EQ(Member(), MakeDate("GDT_VALID", 44365.25));
    item.EnableWindow(false);
    item.SetValue(MakeDate("GDT_VALID", 44000));
    EXPECT_FALSE(item.m_DateTime.IsWindowVisible()) << "it cannot be used";

    item.EnableWindow(true);
    item.UnsubclassWindow();
    Item late;
    late.SetValue(MakeDate("GDT_VALID", 44000));
    late.SubclassDlgItem(12, &dialog);
    EXPECT_TRUE(late.m_DateTime.IsWindowVisible()) << "which was set before there was a window";
}

TEST_F(ItemTest, EscapeGivesUpADateThatWasWrittenWhileItChanged) {
    GridOptions options;
    options.Set(EGridOption::EscapeCancels, true);
    item.SetOptions(options);
    item.SetValue(MakeDate("GDT_VALID", 44000.25));
    item.m_DateTime.SetFormat("yyyy-MM-dd");
    item.SetFocus();
    Press(VK_UP);
    EXPECT_EQ(item.GetValue(), MakeDate("GDT_VALID", 44365.25));
    Press(VK_ESCAPE);
    EXPECT_EQ(item.GetValue(), MakeDate("GDT_VALID", 44000.25));
    EXPECT_EQ(Member(), item.GetValue());
    EXPECT_EQ(GetFocus(), item.m_hWnd);
    EXPECT_FALSE(item.m_DateTime.IsWindowVisible());
}

TEST_F(ItemTest, ItLooksLikeACell) {
    broken.onCall = [](const std::string& operation, long) {
        if (operation == "name")
            throw std::runtime_error("no name");
    };
    for (const auto& [border, value, text] : Table<CVariantValue, const char*>{
             {"an angle", MakeValue(DT_AngleDouble, 3.141592653589793), "180,00"},
             {"an entry of a tree", paths.ValueOf(",2,"), "wild-grass"},
             {"a color", MakeValue(DT_ColorRGB, 0xFF0000FFu), "0xff0000ff"},
             {"a formula", MakeValue(EDataTyps(DT_Double | TypeBitButton), "<VB x/>"), "<VB x/>"},
             {"an enumeration that throws", broken.ValueOf(",1,"), nullptr},
             {"nothing", CVariantValue(), nullptr}}) {
        item.SetValue(value);
        item.Drop();
        const Picture picture{display.PaintWindow(item.m_hWnd)};
        if (text)
            EXPECT_NE(picture.FindText(text), nullptr) << border;
        else
            EXPECT_EQ(std::count_if(picture.calls.begin(), picture.calls.end(),
                                    [](const PaintCall& call) { return call.kind == PaintCall::Kind::Text; }),
                      0)
                << border;
    }
    display.SetColor(COLOR_WINDOW, 0xFFFFFF);
    display.SetColor(COLOR_BTNFACE, 0xCCCCCC);
    CVariantValue path = MakeValue(DT_FileName, "a.xml");
    path.EnumContext = &file;
    item.SetValue(path);
    for (const bool isEnabled : {true, false}) {
        item.EnableWindow(isEnabled);
        EXPECT_EQ(Picture{display.PaintWindow(item.m_hWnd)}.FindText("...") != nullptr, isEnabled);
        EXPECT_EQ(display.PaintWindow(item.m_hWnd).front().color, isEnabled ? 0xFFFFFFu : 0xCCCCCCu);
    }
}

TEST_F(ItemTest, AHostMayDoAnythingWhileItIsAsked) {
    CVariantValue path = MakeValue(DT_FileName, "old.xml");
    path.EnumContext = &file;
    item.SetValue(path);
    file.onCall = [this](const auto& call) {
        call == "choose" ? item.SetValue(MakeValue(DT_Int, 3)) : void();
    };
    ClickValue();
    EXPECT_EQ(item.GetValue(), MakeValue(DT_Int, 3)) << "the file was chosen for another value";

    surfaces.onCall = [&](const std::string& operation, long) {
        if (operation == "first")
            item.SetValue(MakeValue(DT_Int, 4));
    };
    item.SetValue(surfaces.ValueOf(",1,"));
    item.DropDown();
    EXPECT_FALSE(item.IsDropped());
    EXPECT_EQ(item.GetValue(), MakeValue(DT_Int, 4));
    EXPECT_FALSE(item.m_List.IsInitialized()) << "the former enumeration need not live any longer";
    surfaces.onCall = nullptr;

    item.SetValue(surfaces.ValueOf(",1,"));
    item.SetFocus();
    item.DropDown();
    dialog.onCode = [this](UINT code) {
        if (code == CBN_CLOSEUP)
            item.SetValue(MakeDate("GDT_VALID", 44000));
    };
    Press(VK_RETURN);
    EXPECT_TRUE(item.m_DateTime.IsWindowVisible()) << "a date set when the list closes";

    item.SetValue(surfaces.ValueOf(",1,"));
    dialog.onCode = [this](UINT) { item.DestroyWindow(); };
    item.DropDown();
    EXPECT_EQ(item.m_hWnd, nullptr);
    EXPECT_FALSE(item.IsDropped());
}

TEST(WndItem, HoldsItsValueInAnObjectOfOneMember) {
    TestEnumeration owned({"a"});
    owned.isAutoDestroy = true;
    {
        Item item;
        EXPECT_EQ(item.m_Dispatch.GetIdent(), "t");
        std::list<std::string> names;
        item.m_Dispatch.GetMemberNames(names);
        EXPECT_EQ(names, std::list<std::string>{"Member"});
        item.SetValue(owned.ValueOf(",1,"));
        item.SetValue(CVariantValue());
        item.SetValue(owned.ValueOf(",1,"));
        EXPECT_EQ(owned.destroyed, 0);
    }
    EXPECT_EQ(owned.destroyed, 1);
}

} // namespace
} // namespace korvel

#include "korvel/editors/cell_geometry.h"
#include "korvel/editors/wnd_item.h"
#include "korvel/output/angles.h"
#include "korvel/output/dates.h"
#include "korvel/output/format_persistence.h"
#include "korvel/output/system_change.h"
#include "korvel/platform/regional_settings.h"
#include "korvel/values/language.h"
#include "support/dialog_fixture.h"
#include "support/make_value.h"
#include "support/picture.h"
#include "support/test_enumeration.h"

namespace korvel {
namespace {

class File : public IFileValue {
public:
    bool IsAutoDestroy() const override { return false; }
    const char* Choose(const char* path, CWnd*) override {
        asked = path;
        if (onChoose)
            onChoose();
        return chosen;
    }
    const std::uint32_t& GetFileType() const override { return m_type; }
    void SetFileType(std::uint32_t type) override { m_type = type; }

    std::string asked;
    const char* chosen = "new.xml";
    std::function<void()> onChoose;

private:
    std::uint32_t m_type = 0;
};

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
    File file;
    TestEnumeration surfaces{{"asphalt", "gravel", "grass"}};
    TestEnumeration paths{{"asphalt", "wild\\-grass"}, ENF_Tree};
    TestEnumeration broken{{"asphalt"}};
    Around dialog;
    Item item;
};

CVariantValue Value(EDataTyps type, double number) {
    CVariantValue value;
    value.Type = type;
    if (type & DT_Double)
        value.Value.Double = number;
    else if (type & DT_Float)
        value.Value.Float = static_cast<float>(number);
    else
        value.Value.Int = static_cast<int>(number);
    return value;
}

TEST_F(ItemTest, EveryTextIsTypedInItsField) {
    for (const auto& [border, value, opened, typed, shown] :
         Table<CVariantValue, const char*, const char*, const char*>{
             {"a number", Value(DT_Int, 7), "7", "2*(3+4)", "14"},
             {"a length", Value(DT_LengthDouble, 1.5), "1.500000", "2", "2"},
             {"an angle", Value(DT_AngleDouble, 3.141592653589793), "180.000000", "90", "1.5708"},
             {"a range", Value(DT_RangeInt, 5), "5", "100", "100"},
             {"a random number", Value(DT_RandomInt, 5), "5", "6", "6"},
             {"a text", MakeValue(DT_String, "old"), "old", "new", "new"},
             {"a file without a chooser", MakeValue(DT_FileName, "a.xml"), "a.xml", "b.xml", "b.xml"},
             {"nothing typed", Value(DT_Double, 0.1), "0.100000", "", "0.1"}}) {
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
    item.SetValue(Value(DT_Int, 7));
    for (const auto& [border, type, typed, told] : Table<EDataTyps, const char*, const char*>{
             {"no arithmetic", DT_Int, "abc",
              "invalid input: 'abc' can not be converted in data type Integer"},
             {"nothing", DT_LengthDouble, " ", "invalid input: ' ' can not be converted in data type Length"},
             {"a text of its own", DT_RangeInt, "150", "150: Value is outside the ranges of 0-100!"}}) {
        const CVariantValue value = Value(type, 7);
        item.SetValue(value);
        ClickValue();
        Type(typed);
        const std::function<void()> waysOut[] = {[this] { SetFocus(Other()); }, [this] { item.End(); }};
        for (const auto& leave : waysOut) {
            try {
                leave();
                ADD_FAILURE() << border;
            } catch (const std::exception& failure) {
                EXPECT_STREQ(failure.what(), told);
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
    for (const auto& [border, act] :
         Table<std::function<void()>>{{"it is dropped", [this] { item.Drop(); }},
                                      {"it is hidden", [this] { item.ShowWindow(SW_HIDE); }},
                                      {"it is disabled", [this] { item.EnableWindow(false); }},
                                      {"it is destroyed", [this] { item.DestroyWindow(); }}}) {
        item.ShowWindow(SW_SHOW);
        item.EnableWindow(true);
        ClickValue();
        Type("abc");
        display.AnswerNext(IDOK);
        MessageBoxA(dialog.m_hWnd, "?", "", MB_OK);
        EXPECT_EQ(GetFocus(), item.m_Edit.m_hWnd) << "a box gives the focus back";
        act();
        EXPECT_FALSE(IsEditing()) << border;
        EXPECT_EQ(item.GetValue().ToText(TextForm::Plain), "8") << border;
    }
}

TEST_F(ItemTest, WhatIsTypedIsReadWhenTheItemGoes) {
    for (const auto& [border, act] :
         Table<std::function<void()>>{{"it is hidden", [this] { item.ShowWindow(SW_HIDE); }},
                                      {"it is disabled", [this] { item.EnableWindow(false); }},
                                      {"it is destroyed", [this] { item.DestroyWindow(); }}}) {
        item.ShowWindow(SW_SHOW);
        item.EnableWindow(true);
        item.SetValue(Value(DT_Int, 7));
        ClickValue();
        Type("9");
        act();
        EXPECT_FALSE(IsEditing()) << border;
        EXPECT_EQ(item.GetValue(), Value(DT_Int, 9)) << border;
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
    EXPECT_EQ(file.asked + " " + item.GetValue().Text, "old.xml new.xml");
    EXPECT_EQ(Heard(), "1 ");
    ClickValue();
    EXPECT_EQ(Heard(), "") << "the same file again";
    file.chosen = nullptr;
    ClickValue();
    EXPECT_EQ(Heard() + item.GetValue().Text, "new.xml") << "no file";

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

    item.SetValue(Value(DT_AngleDouble, 3.141592653589793));
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

    for (const auto& [border, act] :
         Table<std::function<void()>>{{"the focus goes", [this] { SetFocus(Other()); }},
                                      {"a press beside it",
                                       [this] {
                                           input::Mouse(dialog.m_hWnd, WM_LBUTTONDOWN, 0, {3, 3});
                                       }},
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
    struct Step {
        UINT key;
        const char* letter = "";
    };
    for (const auto& [border, value, cancels, steps, result] :
         Table<CVariantValue, bool, std::vector<Step>, const char*>{
             {"a flag", MakeValue(DT_Bool, false), false, {{VK_SPACE, " "}}, "1"},
             {"F2 on a text", MakeValue(DT_String, "a"), false, {{VK_F2}, {VK_END}, {'B', "b"}}, "ab"},
             {"typed over a text",
              MakeValue(DT_String, "a"),
              false,
              {{'X', "x"}, {VK_SPACE, " "}, {'Y', "y"}},
              "x y"},
             {"a character outside the page",
              MakeValue(DT_String, "a"),
              false,
              {{'X', "\x81\x41"}},
              "\x81\x41"},
             {"no text", MakeValue(DT_String, "a"), false, {{'X', "\x18"}, {VK_F4}, {VK_LEFT}}, "a"},
             {"the list", surfaces.ValueOf(",1,"), false, {{VK_F4}, {VK_DOWN}, {VK_RETURN}}, ",2,"},
             {"F4 closes", surfaces.ValueOf(",1,"), false, {{VK_F2}, {VK_END}, {VK_F4}}, ",3,"},
             {"Escape takes",
              surfaces.ValueOf(",1,"),
              false,
              {{VK_SPACE, " "}, {VK_DOWN}, {VK_ESCAPE}},
              ",2,"},
             {"Escape cancels", surfaces.ValueOf(",1,"), true, {{VK_F4}, {VK_DOWN}, {VK_ESCAPE}}, ",1,"},
             {"a letter finds",
              surfaces.ValueOf(",1,"),
              false,
              {{VK_F4}, {'G', "gra"}, {VK_RETURN}},
              ",2,"}}) {
        GridOptions options;
        options.Set(EGridOption::EscapeCancels, cancels);
        item.SetOptions(options);
        item.SetValue(value);
        item.SetFocus();
        for (const Step& step : steps)
            Press(step.key, step.letter);
        EXPECT_FALSE(item.IsDropped()) << border;
        item.End();
        EXPECT_EQ(item.GetValue().Type == DT_Bool ? item.GetValue().ToText(TextForm::Plain)
                                                  : item.GetValue().Text,
                  result)
            << border;
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
             {"a length", Value(DT_LengthDouble, 12.5), "12,50 m"},
             {"an angle", Value(DT_AngleDouble, 3.141592653589793), "180,00"},
             {"a date", MakeDate("GDT_VALID", 44000), "2020-06-18"},
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
    file.onChoose = [this] { item.SetValue(Value(DT_Int, 3)); };
    ClickValue();
    EXPECT_EQ(item.GetValue(), Value(DT_Int, 3)) << "the file was chosen for another value";

    surfaces.onCall = [&](const std::string& operation, long) {
        if (operation == "first")
            item.SetValue(Value(DT_Int, 4));
    };
    item.SetValue(surfaces.ValueOf(",1,"));
    item.DropDown();
    EXPECT_FALSE(item.IsDropped());
    EXPECT_EQ(item.GetValue(), Value(DT_Int, 4));
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
    TestEnum owned({TextValue("a")});
    owned.isAutoDestroy = true;
    {
        Item item;
        EXPECT_EQ(item.m_Dispatch.GetIdent(), "t");
        std::list<std::string> names;
        item.m_Dispatch.GetMemberNames(names);
        EXPECT_EQ(names, std::list<std::string>{"Member"});
        item.SetValue(MakeList(DT_ListString, "1", &owned));
        item.SetValue(CVariantValue());
        item.SetValue(MakeList(DT_ListString, "1", &owned));
        EXPECT_EQ(owned.destroyed, 0);
    }
    EXPECT_EQ(owned.destroyed, 1);
}

} // namespace
} // namespace korvel

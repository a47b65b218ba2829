#include "korvel/editors/grid_ctrl_edit.h"
#include "korvel/platform/error.h"
#include "korvel/values/entity_function.h"
#include "korvel/values/language.h"
#include "support/control_fixture.h"
#include "support/edited_object.h"
#include "support/make_value.h"

#include <optional>
#include <stdexcept>

namespace korvel {
namespace {

// The host's entity function: takes one text.
class TakesOneText : public KorvelCommonEntityFunction::IKorvelCommonEntityFunction {
public:
    explicit TakesOneText(
        std::string text, std::function<void()> act = [] {})
        : m_text(std::move(text)), m_act(std::move(act)) {
        KV_SetKorvelCommonEntityFunction(this);
    }
    ~TakesOneText() override { KV_SetKorvelCommonEntityFunction(nullptr); }
    bool OnText(const char* text) override {
        asked += std::string(text) + " ";
        m_act();
        return text == m_text;
    }
    std::string asked;

private:
    std::string m_text;
    std::function<void()> m_act;
};

class GridEditTest : public ControlTest {
protected:
    void SetUp() override {
        ControlTest::SetUp();
        SetLanguageForThisRun("English");
        object.AddMember("length", true, MakeValue(DT_LengthDouble, 12.5));
        object.AddMember("count", true, MakeValue(DT_Int, 3));
        object.AddMember("name", true, MakeValue(DT_String, "axis"));
        object.AddMember("share", true, MakeValue(DT_RangeDouble, 50.0));
        edit.emplace(&object);
        edit->Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, {0, 0, 100, 20}, &parent, 105);
        edit->SetHeldValueHook([this](IMemberDispatch*, const std::string&, const CVariantValue& held) {
            object.log += "row " + held.ToText(TextForm::Plain) + " ";
        });
    }
    void Start(const std::string& name, const std::string& typed = {}) {
        edit->Start(&object, name);
        edit->SetFocus();
        if (!typed.empty())
            input::Key(edit->m_hWnd, WM_KEYDOWN, 0, typed);
        object.Take();
        parent.Take();
    }
    // What End comes to: the calls, and "! text" for an exception.
    std::string End(bool release = true) {
        try {
            edit->End(release);
        } catch (const std::exception& exception) {
            return object.Take() + "! " + exception.what();
        }
        return object.Take();
    }
    void Set(EGridOption option) {
        GridOptions options;
        options.Set(option, true);
        edit->SetOptions(options);
    }
    bool Press(UINT key, const std::vector<UINT>& modifiers = {}, const CString& characters = {}) {
        for (const UINT modifier : modifiers)
            display.PressKey(modifier, true);
        const bool isTaken = input::Key(edit->m_hWnd, WM_KEYDOWN, key, characters);
        for (const UINT modifier : modifiers)
            display.PressKey(modifier, false);
        return isTaken;
    }

    EditedObject object;
    std::optional<CGridCtrlEdit> edit;
};

TEST_F(GridEditTest, AnEditOpensWithTheWholeValueSelectedAndUnchanged) {
    edit->Start(&object, "length");
    EXPECT_EQ(object.Take(), "get ");
    EXPECT_EQ(edit->GetWindowTextA(), "12.500000");
    EXPECT_FALSE(edit->m_bChanged);
    input::Key(edit->m_hWnd, WM_KEYDOWN, 0, "7");
    EXPECT_EQ(edit->GetWindowTextA(), "7");
    EXPECT_TRUE(edit->m_bChanged);
    const std::string longText(40'000, 'x');
    object.SetMember("name", MakeValue(DT_String, longText));
    edit->Start(&object, "name");
    edit->SetSel(0, 0);
    input::Key(edit->m_hWnd, WM_KEYDOWN, 0, "7");
    EXPECT_EQ(edit->GetWindowTextA(), "7" + longText);
    Set(EGridOption::ExactEditText);
    edit->Start(&object, "length");
    EXPECT_EQ(edit->GetWindowTextA(), "12.5");
    edit->Start(edit->m_pDisp, edit->m_strName);
    EXPECT_EQ(edit->m_strName, "length");
    edit->Start(&object, "absent");
    EXPECT_EQ(edit->GetWindowTextA(), "");
    object.Misbehave("get", []() -> bool { throw std::runtime_error("no value"); });
    EXPECT_THROW(edit->Start(&object, "length"), std::runtime_error);
    EXPECT_EQ(edit->m_pDisp, nullptr) << "no edit has begun";
    object.Misbehave("get", [this] { return edit->Drop(), true; });
    edit->Start(&object, "length");
    EXPECT_EQ(edit->m_pDisp, nullptr) << "the object has ended it";
    EXPECT_EQ(edit->GetWindowTextA(), "");
}

TEST_F(GridEditTest, TheObserverHearsOfAValueBeforeTheObjectGetsIt) {
    for (const auto& [border, name, typed, calls] : Table<const char*, const char*, const char*>{
             {"a number", "length", "2*(3+4)", "type get told 14 set 14 "},
             {"cut off", "count", "7/2", "type get told 3 set 3 "},
             {"a text", "name", "a\x81\xE2\xE1", "type get told a\x81\xE2\xE1 set a\x81\xE2\xE1 "},
             {"nothing typed", "length", "", ""},
             {"letters", "length", "abc", "type ! "},
             {"too high", "count", "2147483648.", "type ! invalid input: 2147483648."},
             {"outside", "share", "100.0001", "type ! 100.0001: Value is outside the ranges of 0-100!"}}) {
        SCOPED_TRACE(border);
        Start(name, typed);
        EXPECT_EQ(End(), calls);
        const bool isRefused = std::string(calls).find('!') != std::string::npos;
        EXPECT_EQ(edit->m_pDisp != nullptr, isRefused) << "a refused edit goes on";
        EXPECT_EQ(edit->m_bChanged, isRefused);
        EXPECT_EQ(edit->GetWindowTextA() == typed, isRefused || *typed) << "the text stays";
        EXPECT_FALSE(edit->m_bInEnd);
    }
    edit->Start(&object, "length");
    SetWindowTextA(edit->m_hWnd, "3");
    edit->End(false);
    EXPECT_EQ(edit->m_pDisp, &object);
    object.Take();
    EXPECT_EQ(End(), "") << "what is written is not written again";
    EXPECT_EQ(edit->m_strName, "");
}

TEST_F(GridEditTest, AFormulaIsKeptAndTheEntityFunctionMayTakeAText) {
    Start("length", "<VB 2*x/>");
    EXPECT_EQ(End(), "type get get told  set  ");
    EXPECT_EQ(object.Get("length").Type, DT_LengthDouble | TypeBitButton);
    EXPECT_EQ(object.Get("length").Text, "<VB 2*x/>");
    EXPECT_EQ(object.Get("length").Value.Double, 12.5);
    Start("length", "7");
    EXPECT_EQ(End(), "type get told 7 set 7 ");
    EXPECT_EQ(object.Get("length").Type, DT_LengthDouble);
    TakesOneText function("8");
    Start("length", "8");
    EXPECT_EQ(End(), "type ");
    Start("length", "9");
    edit->StepValue(1);
    EXPECT_EQ(End(), "get type get told 10 set 10 ");
    Start("length", "8");
    edit->StepValue(1);
    EXPECT_EQ(edit->GetWindowTextA(), "8");
    edit->SetWindowTextA("<VB 1/>");
    edit->StepValue(1);
    EXPECT_EQ(edit->GetWindowTextA(), "<VB 1/>");
    EXPECT_EQ(function.asked, "8 9 10.000000 8 ");
}

TEST_F(GridEditTest, AValueThatIsRefusedLateIsTakenBackFromRowAndObserver) {
    const auto fails = [] { return false; };
    const auto throws = []() -> bool { throw std::runtime_error("refused"); };
    for (const auto& [border, at, how, calls] : Table<const char*, std::function<bool()>, const char*>{
             {"no type", "type", fails, "type ! "},
             {"the object refuses", "set", fails, "type get told 14 set 14 get row 12.5 told 12.5 ! "},
             {"the object throws", "set", throws, "type get told 14 set 14 get row 12.5 told 12.5 ! refused"},
             {"the observer throws", "told", throws, "type get told 14 get row 12.5 told 12.5 ! refused"},
             {"before the observer knows", "get", throws, "type get ! refused"}}) {
        Start("length", "14");
        object.Misbehave(at, how);
        EXPECT_EQ(End(), calls) << border;
        EXPECT_FALSE(edit->m_bInEnd) << border;
        EXPECT_EQ(object.Get("length").Value.Double, 12.5) << border;
    }
    Start("length", "14");
    object.Misbehave("get", fails);
    EXPECT_EQ(End(), "type get told 14 set 14 ") << "the first value of a member without one";
}

TEST_F(GridEditTest, NothingIsWrittenOnceTheHostHasEndedTheEdit) {
    for (const char* at : {"type", "get", "told", "set"})
        for (const auto& [border, act] :
             Table<std::function<void()>>{{"dropped", [this] { edit->Drop(); }},
                                          {"begun anew", [this] { edit->Start(&object, "name"); }},
                                          {"window destroyed", [this] { edit->DestroyWindow(); }},
                                          {"parent destroyed", [this] { parent.DestroyWindow(); }}})
            for (const bool isRefused : {false, true}) {
                SCOPED_TRACE(std::string(at) + ", " + border);
                SetUp();
                Start("length", "14");
                object.Misbehave(at, [act = act, isRefused] { return act(), !isRefused; });
                const std::string calls = End();
                const bool isWritten = std::string(at) == "set";
                EXPECT_EQ(calls.find("set") != std::string::npos, isWritten) << calls;
                EXPECT_EQ(calls.find("row"), std::string::npos) << calls;
                EXPECT_FALSE(edit->m_bInEnd);
                if (border == std::string("begun anew"))
                    EXPECT_EQ(edit->m_strName, "name") << "the new edit is not ended";
                else
                    EXPECT_EQ(edit->m_pDisp, nullptr);
                edit.reset();
                parent.DestroyWindow();
                for (const char* name : {"length", "count", "name", "share"})
                    object.RemoveMember(name);
            }
}

TEST_F(GridEditTest, AMemberRenamedWhileItIsWrittenIsWrittenUnderItsNewName) {
    Start("length", "14");
    object.Misbehave("told", [this] {
        object.RenameMember("length", "width");
        edit->m_strName = "width";
        return true;
    });
    End();
    EXPECT_EQ(object.Get("width").Value.Double, 14);
}

TEST_F(GridEditTest, AnEditThatBeginsWithinAnotherIsWhole) {
    Start("length", "14");
    object.Misbehave("told", [this] {
        edit->Start(&object, "name");
        edit->SetWindowTextA("road");
        edit->End(true);
        return true;
    });
    EXPECT_EQ(End(), "type get told 14 get type get told road set road ");
}

TEST_F(GridEditTest, AnEditThatEndsInARefusalOrAStepIsLeftAlone) {
    Start("length", "14");
    edit->SetHeldValueHook([this](auto...) { edit->Drop(); });
    object.Misbehave("set", [] { return false; });
    EXPECT_EQ(End(), "type get told 14 set 14 get ! ") << "the observer is not told of what is over";
    Start("share", "7");
    object.Misbehave("get", [this] { return edit->Drop(), true; });
    edit->StepValue(1);
    EXPECT_EQ(edit->GetWindowTextA(), "7");
    Start("share", "abc");
    TakesOneText function("8", [this] { edit->Drop(); });
    EXPECT_EQ(End(), "type ");
}

TEST_F(GridEditTest, ReturnAndEscapeHandTheFocusToTheParent) {
    for (const auto& [border, key, characters, isCancelling, log] :
         Table<UINT, const char*, bool, const char*>{
             {"Return", VK_RETURN, "\r", false, "type get told 14 set 14 "},
             {"Escape ends, too", VK_ESCAPE, "\x1B", false, "type get told 14 set 14 "},
             {"Escape drops the text", VK_ESCAPE, "\x1B", true, ""},
             {"Return with that option", VK_RETURN, "\r", true, "type get told 14 set 14 "}}) {
        GridOptions options;
        options.Set(EGridOption::EscapeCancels, isCancelling);
        edit->SetOptions(options);
        Start("length", "14");
        EXPECT_TRUE(Press(key, {}, characters)) << border;
        EXPECT_EQ(GetFocus(), parent.m_hWnd) << border;
        EXPECT_EQ(parent.Take(), Codes{EN_KILLFOCUS}) << border;
        EXPECT_EQ(End(), log) << border;
    }
    Start("length", "1");
    EXPECT_TRUE(Press('Q', {VK_CONTROL}, "\x11"));
    EXPECT_EQ(edit->GetWindowTextA(), "1");
    EXPECT_EQ(edit->SendMessageA(WM_GETDLGCODE) & DLGC_WANTALLKEYS, DLGC_WANTALLKEYS);
}

TEST_F(GridEditTest, EscapeDropsWhatAnInputMethodHandsOverWithTheFocus) {
    struct Composing : HeadlessDisplay {
        void Focus(HWND window) override {
            HeadlessDisplay::Focus(window);
            if (window != edit)
                input::Edited(edit, "14", 2, 2);
        }
        HWND edit = nullptr;
    } composing;
    SetDisplay(&composing);
    composing.edit = edit->m_hWnd;
    Set(EGridOption::EscapeCancels);
    for (const auto& [key, characters, calls] :
         {std::tuple(VK_ESCAPE, "\x1B", ""), std::tuple(VK_RETURN, "\r", "type get told 14 set 14 ")}) {
        Start("length");
        Press(key, {}, characters);
        EXPECT_EQ(edit->GetWindowTextA(), "14");
        EXPECT_EQ(End(), calls);
    }
    SetDisplay(&display);
}

TEST_F(GridEditTest, ACompanionMayTakeTheFocus) {
    CWnd companion;
    companion.CreateEx(0, "KorvelFrame", "", WS_CHILD | WS_VISIBLE, {0, 30, 20, 50}, &parent, 7);
    // The parent hears of a notice before the field does; it acts on what the field lets through.
    struct Parent : CWnd {
        bool OnCommand(WPARAM wParam, LPARAM lParam) override {
            if (!CWnd::OnCommand(wParam, lParam))
                passed.push_back(HIWORD(wParam));
            return true;
        }
        Codes passed;
    } owner;
    owner.CreateEx(0, "KorvelFrame", "", WS_CHILD | WS_VISIBLE, {0, 60, 99, 99}, &parent, 8);
    SetParent(edit->m_hWnd, owner.m_hWnd);
    for (const bool isCompanion : {true, false}) {
        edit->m_CompanionWindows = {isCompanion ? companion.m_hWnd : parent.m_hWnd};
        edit->SetFocus();
        owner.passed.clear();
        companion.SetFocus();
        EXPECT_EQ(owner.passed, isCompanion ? Codes{} : Codes{EN_KILLFOCUS});
    }
    owner.passed.clear();
    edit->SetWindowTextA("x");
    EXPECT_EQ(owner.passed, Codes{EN_UPDATE}) << "EN_CHANGE is the field's";
}

TEST_F(GridEditTest, CommandsAndKeysCopyCutAndPasteTheWholeText) {
    struct Case {
        const char* border;
        std::vector<UINT> keys; // the modifiers, then the key; or the command
        const char* before;
        const char* text;
        const char* copied; // null: nothing
    };
    const auto run = [this](const std::vector<Case>& cases) {
        for (const auto& [border, keys, before, text, copied] : cases) {
            SCOPED_TRACE(border);
            edit->Start(&object, "name");
            edit->SetWindowTextA(before);
            edit->SetSel(1, 2);
            edit->m_bChanged = false;
            if (keys.back() >= ID_EDIT_COPY)
                edit->SendMessageA(WM_COMMAND, keys.back());
            else
                Press(keys.back(), {keys.begin(), keys.end() - 1});
            EXPECT_EQ(edit->GetWindowTextA(), text);
            EXPECT_EQ(edit->m_bChanged, CString(text) != before);
            EXPECT_EQ(display.ClipboardText(), copied ? std::optional<CString>(copied) : std::nullopt);
        }
    };
    run({{"nothing to paste", {VK_CONTROL, 'V'}, "abc", "abc", nullptr},
         {"nothing to copy", {VK_CONTROL, 'C'}, "", "", nullptr},
         {"copy", {VK_CONTROL, 'C'}, "abc", "abc", "abc"},
         {"the command to copy", {ID_EDIT_COPY}, "d", "d", "d"},
         {"cut", {VK_CONTROL, 'X'}, "fg", "", "fg"},
         {"the command to cut", {ID_EDIT_CUT}, "h", "", "h"},
         {"the other keys to cut", {VK_SHIFT, VK_DELETE}, "1+2", "", "1+2"},
         {"paste", {VK_CONTROL, 'V'}, "abc", "1+2", "1+2"},
         {"the command to paste", {ID_EDIT_PASTE}, "abc", "1+2", "1+2"},
         {"the other keys to paste", {VK_SHIFT, VK_INSERT}, "abc", "1+2", "1+2"},
         {"with Shift the field's own", {VK_CONTROL, VK_SHIFT, 'V'}, "abc", "a1+2c", "1+2"},
         {"AltGr as well", {VK_CONTROL, VK_MENU, 'V'}, "abc", "a1+2c", "1+2"}});
    display.SetClipboardText("");
    run({{"an empty text to paste", {VK_CONTROL, 'V'}, "abc", "abc", ""}});
}

TEST_F(GridEditTest, ParseNumberReadsByAFormatAndConvertByTheOptions) {
    _numberfmtA format;
    format.DecimalSep = ";";
    EXPECT_EQ(edit->ParseNumber(format, "1;5+1"), 2.5);
    EXPECT_THROW(edit->ParseNumber(format, "1,5"), Error);
    EXPECT_EQ(edit->ParseNumber(format, "3000000000"), 2147483647);
    Set(EGridOption::WideIntegers);
    EXPECT_EQ(edit->ParseNumber(format, "3000000000"), 3000000000);
    CVariantValue value;
    EXPECT_TRUE(edit->Convert(DT_Double, "3000000000", value));
    EXPECT_EQ(value.Value.Double, 3000000000);
    EXPECT_FALSE(edit->Convert(DT_Bool, "1", value));
    EXPECT_EQ(value.Value.Double, 3000000000) << "a refusal leaves the value";
}

TEST_F(GridEditTest, AStepIsShownAndWrittenAtTheEnd) {
    Start("share", "99.5");
    edit->StepValue(1);
    EXPECT_EQ(edit->GetWindowTextA(), "100.000000");
    EXPECT_EQ(End(false), "get type get told 100 set 100 ");
    Set(EGridOption::ExactEditText);
    edit->StepValue(-0.5);
    EXPECT_EQ(edit->GetWindowTextA(), "99.5");
    edit->Drop();
    object.Take();
    edit->StepValue(1);
    EXPECT_EQ(object.Take(), "") << "nothing is edited";
}

} // namespace
} // namespace korvel

// Derived lists and hosts that end a binding, throw or take entries away in calls of their own.

#include "korvel/editors/combo_list_codes.h"
#include "korvel/platform/error.h"
#include "korvel/window/core/exception_handler.h"
#include "support/combo_fixture.h"

#include <stdexcept>

namespace korvel {
namespace {

class HeedfulList : public OpenList {
public:
    using OpenList::OpenList;
    std::function<void(UINT message)> onMessage;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (onMessage)
            onMessage(message);
        return CComboList::WindowProc(message, wParam, lParam);
    }
};

class ComboHandlers : public ComboTest {
protected:
    HeedfulList& MakeHeedful() {
        auto made = std::make_unique<HeedfulList>(eDesignFlat);
        HeedfulList& heedful = *made;
        heedful.Create(WS_CHILD | WS_VISIBLE, {0, 0, 200, 200}, &frame, 106);
        list = std::move(made);
        return heedful;
    }
    TestEnumeration shown{{"a", "b"}};
};

TEST_F(ComboHandlers, ABindingMayEndWhileItsColumnsAreMade) {
    HeedfulList& heedful = MakeHeedful();
    heedful.onMessage = [&](UINT message) { message == WM_STYLECHANGED ? heedful.UnIntialize() : void(); };
    heedful.Initialize("value", shown.ValueOf(",1,"));
    EXPECT_FALSE(heedful.IsInitialized());
    EXPECT_EQ(heedful.GetColumnCount(), 0);
    EXPECT_EQ(heedful.GetItemCount(), 0);
}

TEST_F(ComboHandlers, NoRowIsLeftOfABindingWhoseEndThrows) {
    HeedfulList& heedful = MakeHeedful();
    heedful.Initialize("value", shown.ValueOf(",1,"));
    heedful.SetColumnWidth(0, 500); // its bar goes with the column, so that the list has another size
    heedful.onMessage = [](UINT message) {
        message == WM_SIZE ? throw std::runtime_error("of the host") : void();
    };
    EXPECT_THROW(heedful.UnIntialize(), std::runtime_error);
    heedful.onMessage = nullptr;
    EXPECT_EQ(heedful.GetItemCount(), 0);
    EXPECT_EQ(heedful.GetColumnCount(), 0);
}

WNDPROC formerProcedure = nullptr;

LRESULT FailingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return message == WM_DESTROY ? throw std::runtime_error("second")
                                 : CallWindowProcA(formerProcedure, window, message, wParam, lParam);
}

TEST_F(ComboHandlers, OfTwoFailuresAtTheEndOfTheWindowTheFirstGoesOn) {
    const HWND window =
        CreateWindowExA(0, "SysListView32", "", WS_CHILD | WS_VISIBLE, {0, 0, 200, 200}, frame.m_hWnd, 106);
    formerProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LPARAM>(FailingProcedure)));
    HeedfulList attached(eDesignFlat);
    ASSERT_TRUE(attached.SubclassWindow(window));
    attached.Initialize("value", shown.ValueOf(",1,"));
    attached.SetColumnWidth(0, 500);
    attached.onMessage = [](UINT message) {
        message == WM_SIZE ? throw std::runtime_error("first") : void();
    };
    std::string failure;
    try {
        attached.DestroyWindow();
    } catch (const std::runtime_error& error) {
        failure = error.what();
    }
    EXPECT_EQ(failure, "first");
}

TEST_F(ComboHandlers, AListThatIsDeletedSaysThatItLosesTheKeyboardAndThrowsNothing) {
    std::string failure;
    SetExceptionHandler([&](const CString& text) { failure = text; });
    Show(shown, eDesignFlat).SetFocus();
    frame.onCode = [](int code) { code == ComboListKillFocus ? throw Error("of the owner") : void(); };
    list.reset();
    EXPECT_EQ(Heard(), "3 4");
    EXPECT_EQ(failure, "of the owner");
    SetExceptionHandler(nullptr);
    frame.onCode = nullptr;
}

TEST_F(ComboHandlers, LabelsAreWrittenAnewAlsoAfterAnEntryThatItsOwnTextTakesAway) {
    TestEnumeration first{{"x"}};
    TestEnumeration second{{"g/former"}};
    shown = TestEnumeration({}, ENF_Tree);
    shown.entries = {{1, first.ValueOf(",1,")}, {2, second.ValueOf(",1,")}};
    Show(shown, eDropDown, ",2,");
    second.entries[0].name = TextValue("g/now");
    first.onCall = [&](const std::string&, long) {
        if (shown.Find(1)) {
            shown.Forget(1);
            list->OnDestroyEnumValue(&shown, 1);
        }
    };
    list->OnEventFormatChanged();
    EXPECT_EQ(Rows(), "-g|  xnow") << "a group keeps its own";
}

} // namespace
} // namespace korvel

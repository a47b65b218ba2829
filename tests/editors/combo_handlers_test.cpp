// Derived lists and hosts that end a binding, throw or take entries away in calls of their own.

#include "support/combo_fixture.h"

#include <stdexcept>

namespace korvel {
namespace {

class HeedfulList : public CComboList {
public:
    using CComboList::CComboList;
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

TEST_F(ComboHandlers, LabelsAreWrittenAnewAlsoAfterAnEntryThatItsOwnTextTakesAway) {
    TestEnumeration first{{"x"}};
    TestEnumeration second{{"former"}};
    shown.entries = {{1, first.ValueOf(",1,")}, {2, second.ValueOf(",1,")}};
    Show(shown);
    second.entries[0].name = TextValue("now");
    first.onCall = [&](const std::string&, long) {
        if (shown.Find(1)) {
            shown.Forget(1);
            list->OnDestroyEnumValue(&shown, 1);
        }
    };
    list->OnEventFormatChanged();
    EXPECT_EQ(Rows(), "now");
}

} // namespace
} // namespace korvel

#include "korvel/window/core/input.h"
#include "korvel/window/display/headless_display.h"
#include "korvel/window/menu/menu.h"
#include "support/recorded_window.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace korvel {
namespace {

std::string Shown(const std::vector<MenuEntry>& menu) {
    std::string text;
    for (const MenuEntry& entry : menu)
        text += (entry.checked ? "*" : "") + std::string(entry.enabled ? "" : "~") +
                (entry.text.empty() ? "-" : entry.text) +
                (entry.popup.empty() ? "" : "{" + Shown(entry.popup) + "}") + ";";
    return text;
}

class MenuTest : public testing::Test {
protected:
    MenuTest() {
        SetDisplay(&display);
        window.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 100, 100}, nullptr, 0);
        menu.CreatePopupMenu();
        CMenu copy;
        copy.CreatePopupMenu();
        copy.AppendMenuA(MF_STRING, 11, "&Value");
        copy.AppendMenuA(MF_STRING | MF_GRAYED, 12, "Row");
        menu.AppendMenuA(MF_STRING, 10, "Open");
        menu.AppendMenuA(MF_STRING, copy, "&Copy");
        EXPECT_EQ(copy.GetMenuItemCount(), -1) << "taken over";
        menu.AppendMenuA(MF_SEPARATOR, 10, "ignored");
        menu.AppendMenuA(MF_STRING | MF_CHECKED, 13, "Co&&ver");
    }
    ~MenuTest() override { SetDisplay(nullptr); }

    std::string Track() {
        display.AnswerNext(0);
        menu.TrackPopupMenu(TPM_RIGHTBUTTON, 0, 0, &window);
        return Shown(display.ShownMenus().back());
    }

    /// What reaches the window of the menu.
    struct Owner : CWnd {
        bool OnCommand(WPARAM wParam, LPARAM lParam) override {
            log += std::to_string(wParam) + (lParam ? " with a control " : " ");
            return true;
        }
        std::string log;
    };

    HeadlessDisplay display;
    Owner window;
    CMenu menu;
};

TEST_F(MenuTest, LinesAreFoundByCommandInPopupsTooAndByPosition) {
    EXPECT_EQ(Track(), "Open;&Copy{&Value;~Row;};-;*Co&&ver;");
    EXPECT_EQ(menu.GetMenuItemCount(), 4);
    EXPECT_EQ(menu.GetMenuItemID(0), 10u);
    EXPECT_EQ(menu.GetMenuItemID(1), NoMenuItem) << "a popup";
    EXPECT_EQ(menu.GetMenuItemID(2), 0u) << "a separator";
    EXPECT_EQ(menu.GetMenuItemID(-1), NoMenuItem);
    EXPECT_EQ(menu.GetMenuStringA(12, MF_BYCOMMAND), "Row");
    EXPECT_EQ(menu.GetMenuStringA(1, MF_BYPOSITION), "&Copy");
    EXPECT_EQ(menu.GetMenuState(12, MF_BYCOMMAND), MF_GRAYED);
    EXPECT_EQ(menu.GetSubMenu(1)->GetMenuItemCount(), 2);
    EXPECT_EQ(menu.GetSubMenu(0), nullptr);

    EXPECT_EQ(menu.CheckMenuItem(13, MF_UNCHECKED), MF_CHECKED);
    EXPECT_EQ(menu.EnableMenuItem(12, MF_ENABLED), MF_GRAYED);
    EXPECT_EQ(menu.EnableMenuItem(1, MF_BYPOSITION | MF_GRAYED), MF_ENABLED);
    EXPECT_EQ(menu.CheckMenuItem(0, MF_CHECKED), NoMenuItem) << "the command of no line";
    EXPECT_TRUE(menu.InsertMenuA(12, MF_BYCOMMAND, 14, "Column"));
    EXPECT_TRUE(menu.InsertMenuA(0, MF_BYPOSITION | MF_SEPARATOR));
    EXPECT_TRUE(menu.InsertMenuA(99, MF_BYPOSITION, 15, "Last"));
    EXPECT_EQ(Track(), "-;Open;~&Copy{&Value;Column;Row;};-;Co&&ver;Last;");
}

TEST_F(MenuTest, AMenuThatIsNotThereRefuses) {
    CMenu none;
    EXPECT_FALSE(none.AppendMenuA(MF_STRING, 1, "x"));
    EXPECT_FALSE(none.DestroyMenu());
    EXPECT_EQ(none.GetMenuItemCount(), -1);
    EXPECT_EQ(none.TrackPopupMenu(0, 0, 0, &window), 0u);
    EXPECT_TRUE(none.CreatePopupMenu());
    EXPECT_FALSE(none.CreatePopupMenu());
    EXPECT_EQ(none.TrackPopupMenu(0, 0, 0, &window), 0u) << "without lines";
    EXPECT_FALSE(menu.AppendMenuA(MF_STRING, menu, "itself"));
    EXPECT_FALSE(menu.GetSubMenu(1)->AppendMenuA(MF_STRING, menu, "what holds it"));
    EXPECT_TRUE(menu.DestroyMenu());
    EXPECT_FALSE(none.AppendMenuA(MF_STRING, menu, "gone"));
    EXPECT_TRUE(display.ShownMenus().empty());
}

TEST_F(MenuTest, TheChoiceIsPostedToTheOwnerOrReturned) {
    for (const auto& [border, flags, keys, returned, heard] : Table<UINT, const char*, UINT, const char*>{
             {"an access key in a popup", TPM_RIGHTBUTTON, "cv", 1, "11 "},
             {"the first letter where none is marked", 0, "o", 1, "10 "},
             {"returned", TPM_RETURNCMD, "CV", 11, ""},
             {"a grey line", TPM_RETURNCMD, "cr", 0, ""},
             {"no such line", 0, "x", 1, ""}}) {
        display.AnswerNextMenu(
            [keys = keys](const auto& shown) { return HeadlessDisplay::PressMenuKeys(shown, keys); });
        EXPECT_EQ(menu.TrackPopupMenu(flags, 0, 0, &window), returned) << border;
        EXPECT_EQ(window.log, "") << border << ": before the menu is over";
        input::DispatchMessages();
        EXPECT_EQ(std::exchange(window.log, {}), heard) << border;
    }
    display.AnswerNext(12);
    EXPECT_EQ(menu.TrackPopupMenu(TPM_RETURNCMD, 0, 0, nullptr), 0u) << "grey";
}

TEST_F(MenuTest, TheMenuAndItsOwnerMayGoWhileItIsOpen) {
    display.AnswerNextMenu([&](const auto& shown) {
        menu.DestroyMenu();
        window.DestroyWindow();
        return HeadlessDisplay::PressMenuKeys(shown, "cv");
    });
    EXPECT_EQ(menu.TrackPopupMenu(0, 0, 0, &window), 1u);
    input::DispatchMessages();
    EXPECT_EQ(window.log, "");
}

TEST_F(MenuTest, KeysAskForTheMenuOfTheWindow) {
    struct Asked : CWnd {
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_CONTEXTMENU)
                log += lParam == MAKELPARAM(-1, -1) ? "asked " : "at a point ";
            return CWnd::WindowProc(message, wParam, lParam);
        }
        std::string log;
    } asked;
    asked.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 100, 100}, nullptr, 0);
    for (const auto& [border, shift, message, key, log] : Table<bool, UINT, UINT, const char*>{
             {"the menu key, when it comes up", false, WM_KEYUP, 0x5D, "asked "},
             {"not when it goes down", false, WM_KEYDOWN, 0x5D, ""},
             {"Shift+F10", true, WM_KEYDOWN, 0x79, "asked "},
             {"as a system key", true, WM_SYSKEYDOWN, 0x79, "asked "},
             {"F10", false, WM_KEYDOWN, 0x79, ""}}) {
        display.PressKey(VK_SHIFT, shift);
        input::Key(asked.m_hWnd, message, key, "");
        input::DispatchMessages(); // after the key
        EXPECT_EQ(std::exchange(asked.log, {}), log) << border;
    }
}

} // namespace
} // namespace korvel

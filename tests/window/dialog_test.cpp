#include "support/dialog_fixture.h"

#include <atomic>
#include <thread>

namespace korvel {
namespace {

constexpr DialogItem Items[] = {
    {"STATIC", "&Name:", 10, 0, {7, 9, 40, 8}},
    {"EDIT", "", 11, WS_TABSTOP, {50, 7, 120, 14}},
    {"BUTTON", "OK", IDOK, WS_TABSTOP | BS_DEFPUSHBUTTON, {66, 28, 50, 14}},
    {"BUTTON", "Cancel", IDCANCEL, WS_TABSTOP, {120, 28, 50, 14}},
};
constexpr DialogItem Unknown[] = {{"EDIT", "", 11, 0, {}}, {"Sextant", "", 12, 0, {}}};

class ModalTest : public DialogTest {
protected:
    ModalTest() {
        Have({{300, "Rename", Plain, {10, 5, 177, 49}, Items},
              {301, "Page", WS_CHILD | WS_VISIBLE, {0, 0, 100, 40}, Items},
              {302, "Unknown", Plain, {0, 0, 100, 40}, Unknown},
              {303, "Centered", Plain | DS_CENTER, {10, 5, 40, 20}, {}},
              {304, "On the screen", Plain | DS_ABSALIGN, {10, 5, 40, 20}, {}},
              {0, "Named", Plain, {0, 0, 40, 20}, {}, 0, "Rename"}});
        edit.CreateEx(0, "EDIT", "", WS_CHILD | WS_VISIBLE, {0, 0, 50, 20}, &frame, 7);
        edit.SetFocus();
    }

    CWnd edit; // of the frame
};

TEST_F(ModalTest, TurnsDialogUnitsIntoPixelsOfTheFont) {
    RecordedDialog dialog;
    ASSERT_TRUE(dialog.Create(300u, &frame));
    const auto placeOf = [&](int id) {
        CRect rect = GetWindowRect(dialog.Item(id));
        const CPoint origin = GetWindowRect(dialog.m_hWnd).TopLeft();
        rect.OffsetRect(-origin.x, -origin.y);
        return rect;
    };
    EXPECT_EQ(placeOf(11), (CRect{88, 14, 88 + 210, 14 + 28}));
    EXPECT_EQ(placeOf(IDOK).Width(), placeOf(IDCANCEL).Width()) << "wherever they are";
    CRect units{1, -1, -2, 3};
    dialog.MapDialogRect(&units);
    EXPECT_EQ(units, (CRect{2, -2, -4, 6}));
}

TEST_F(ModalTest, LiesWhereItsTemplateSays) {
    for (const auto& [border, id, place] : Table<UINT, CPoint>{{"in the parent", 300, {118, 110}},
                                                               {"centered", 303, {465, 380}},
                                                               {"on the screen", 304, {18, 10}}}) {
        RecordedDialog dialog;
        dialog.Create(id, &frame);
        EXPECT_EQ(dialog.GetWindowRect().TopLeft(), place) << border;
    }
    host.m_pMainWnd = &frame;
    RecordedDialog dialog;
    ASSERT_TRUE(dialog.Create("rename"));
    EXPECT_EQ(dialog.GetWindowTextA(), "Named");
    EXPECT_EQ(GetOwner(dialog.m_hWnd), frame.m_hWnd) << "the main window";
    EXPECT_EQ(dialog.GetWindowRect().TopLeft(), (CPoint{465, 380})) << "without a place";
}

TEST_F(ModalTest, GivesTheFocusAsTheInitialHandlerSays) {
    for (const auto& [border, answer, byHandler, focused] :
         Table<BOOL, int, int>{{"first tab stop", 1, 0, 11},
                               {"another, set by the handler", 0, IDCANCEL, IDCANCEL},
                               {"a first tab stop that the handler disabled", 1, -11, IDOK}}) {
        RecordedDialog dialog(300, &frame);
        dialog.onInit = [&, code = answer, id = byHandler] {
            EXPECT_FALSE(dialog.IsWindowVisible());
            if (id < 0)
                EnableWindow(dialog.Item(-id), false);
            else
                SetFocus(dialog.Item(id));
            return code;
        };
        display.Then([&, id = focused, title = border] {
            EXPECT_EQ(GetFocus(), dialog.Item(id)) << title;
            dialog.EndDialog(5);
        });
        EXPECT_EQ(dialog.DoModal(), 5) << border;
    }
}

TEST_F(ModalTest, EndsInEachWayAndPutsBackWhatWasThere) {
    RecordedDialog dialog(300, &frame);
    const auto nothing = [] {};
    const auto fail = [] { throw std::runtime_error("handler"); };
    for (const auto& [border, atInit, later, result] :
         Table<std::function<void()>, std::function<void()>, int>{
             {"Return", nothing, [&] { Press(VK_RETURN, "\r"); }, IDOK},
             {"Escape", nothing, [&] { Press(VK_ESCAPE); }, IDCANCEL},
             {"its close button", nothing, [&] { input::Close(dialog.m_hWnd); }, IDCANCEL},
             {"ended twice", nothing, [&] { dialog.EndDialog(7), dialog.EndDialog(8); }, 8},
             {"ended at its beginning", [&] { dialog.EndDialog(9); }, fail, 9},
             {"destroyed", nothing, [&] { dialog.DestroyWindow(); }, -1},
             {"destroyed at its beginning", [&] { dialog.DestroyWindow(); }, fail, -1},
             {"a handler throws", nothing, fail, 0},
             {"its beginning throws", fail, nothing, 0}}) {
        SCOPED_TRACE(border);
        edit.SetFocus();
        dialog.onInit = [act = atInit] { return act(), 1; };
        HeadlessDisplay own; // its steps end with the row
        SetDisplay(&own);
        own.Then([&, act = later] {
            EXPECT_FALSE(frame.IsWindowEnabled());
            EXPECT_TRUE(dialog.IsWindowVisible());
            EXPECT_EQ(dialog.DoModal(), -1) << "it is shown already";
            act();
        });
        if (result == 0)
            EXPECT_THROW(dialog.DoModal(), std::runtime_error);
        else
            EXPECT_EQ(dialog.DoModal(), result);
        EXPECT_EQ(dialog.m_hWnd, nullptr);
        EXPECT_TRUE(frame.IsWindowEnabled());
        EXPECT_EQ(GetFocus(), edit.m_hWnd);
    }
}

TEST_F(ModalTest, NestsAndLeavesADisabledOwnerDisabled) {
    RecordedDialog outer(300, &edit);
    RecordedDialog inner(300, &outer);
    RecordedDialog beside(300, &frame);
    display.Then([&] {
        EXPECT_EQ(inner.DoModal(), IDOK);
        EXPECT_TRUE(outer.IsWindowEnabled());
        EXPECT_EQ(GetFocus(), outer.Item(11));
        EXPECT_EQ(beside.DoModal(), IDCANCEL);
        EXPECT_FALSE(frame.IsWindowEnabled()) << "disabled by the outer one";
        frame.DestroyWindow();
    });
    display.Then([&] {
        EXPECT_FALSE(outer.IsWindowEnabled());
        Press(VK_RETURN, "\r");
    });
    display.Then([&] { Press(VK_ESCAPE); });
    EXPECT_EQ(outer.DoModal(), -1) << "gone with its owner";
}

TEST_F(ModalTest, CannotBeMadeOfWhatIsUnknown) {
    for (const auto& [border, id] : Table<UINT>{{"template", 999}, {"class of a control", 302}}) {
        RecordedDialog dialog(id, &frame);
        EXPECT_EQ(dialog.DoModal(), -1) << border;
        EXPECT_FALSE(dialog.Create(id, &frame)) << border;
        EXPECT_EQ(dialog.m_hWnd, nullptr) << border;
    }
    RecordedDialog nameless(static_cast<const char*>(nullptr), &frame);
    EXPECT_EQ(nameless.DoModal(), -1);
    EXPECT_EQ(GetFocus(), edit.m_hWnd);
    RecordedDialog page;
    EXPECT_FALSE(page.Create(301u)) << "a page lies in a window";
    ASSERT_TRUE(page.Create(301u, &frame));
    EXPECT_EQ(GetFocus(), edit.m_hWnd) << "a page leaves the focus";
}

TEST_F(ModalTest, AHostsTemplatesHideBehindTheLibrarysOwnState) {
    const ModuleStateGuard library;
    EXPECT_EQ(FindDialogTemplate(300u), nullptr);
    EXPECT_STREQ(GetModuleState().app->m_pszAppName, "KorvelCommonDialogs");
}

TEST_F(ModalTest, AWorkerShowsItOnTheDisplaysThread) {
    RecordedDialog dialog(300, &frame);
    std::intptr_t result = 0;
    display.Then([&] { Press(VK_ESCAPE); });
    std::thread worker([&] { result = dialog.DoModal(); });
    display.PumpUntil([&] { return !dialog.commands.empty(); });
    worker.join();
    EXPECT_EQ(result, IDCANCEL);

    RecordedDialog modeless;
    std::atomic<bool> isMade = false;
    std::thread maker([&] {
        modeless.Create(300u, &frame);
        isMade = true;
    });
    display.PumpUntil([&] { return isMade.load(); });
    maker.join();
    EXPECT_EQ(modeless.GetDefID(), static_cast<UINT>(IDOK));
}

} // namespace
} // namespace korvel

#include "korvel/window/core/display.h"
#include "korvel/window/list/list_ctrl.h"
#include "qt/users.h"

namespace korvel::test {

namespace {

constexpr UINT Shown = WS_VISIBLE;
constexpr UINT Child = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
enum Id { FirstEdit = 1, SecondEdit, Check, Push, Rows, Surface };

class Scenario {
public:
    explicit Scenario(User& user) : m_user(user) {}
    /// Works with a frame of controls from its creation to its end; the log of messages, and of what the
    /// windows hold after each step, depends on no display.
    std::string Run() {
        for (const auto step :
             {&Scenario::Make, &Scenario::Type, &Scenario::ChangeTextWhileItChanges, &Scenario::MeetLimits,
              &Scenario::ClickButtons, &Scenario::MoveInList, &Scenario::UseDropDown, &Scenario::LoseFocus,
              &Scenario::DestroyEditWhileItChanges, &Scenario::Ask, &Scenario::RunModal})
            (this->*step)();
        Step("the end");
        m_frame.DestroyWindow();
        std::string lines; // as one text, so that a failure is shown as a difference of lines
        for (const std::string& line : m_log)
            if (!line.ends_with(" size") && !line.ends_with(" placed") && !line.ends_with(" capture lost"))
                lines += line + "\n"; // sizes are the desktop's, and its native widgets do without capture
        return lines;
    }

private:
    void Step(const std::string& title) { m_log.push_back("-- " + title); }
    void Holds(const RecordedWindow& window) { m_log.push_back("text '" + window.GetWindowTextA() + "'"); }
    void AtChange(WPARAM id, std::function<void()> act) {
        m_frame.on[WM_COMMAND] = [=] {
            if (CWnd::GetCurrentMessage().wParam == MAKEWPARAM(id, EN_CHANGE))
                act();
        };
    }
    void MakeControl(RecordedWindow& control, const char* className, UINT style, const CRect& rect, int id) {
        control.CreateEx(0, className, "", Child | style, rect, &m_frame, id);
    }

    void Make() {
        m_frame.CreateEx(0, "KorvelFrame", "Scenario", WS_OVERLAPPEDWINDOW | Shown, {50, 50, 450, 350},
                         nullptr, 0);
        MakeControl(m_first, "EDIT", ES_AUTOHSCROLL, {10, 10, 150, 34}, FirstEdit);
        MakeControl(m_second, "EDIT", ES_AUTOHSCROLL | WS_BORDER, {10, 40, 150, 64}, SecondEdit);
        MakeControl(m_check, "BUTTON", BS_AUTOCHECKBOX, {10, 70, 150, 94}, Check);
        MakeControl(m_push, "BUTTON", BS_PUSHBUTTON, {10, 100, 150, 124}, Push);
        MakeControl(m_surface, "KorvelFrame", 0, {10, 130, 150, 160}, Surface);
        m_rows.Create(Child | LVS_REPORT | LVS_SINGLESEL, {160, 10, 390, 200}, &m_frame, Rows);
        m_rows.InsertColumn(0, "Name", 120);
        for (const char* name : {"one", "two", "three", "four"})
            m_rows.InsertItem(m_rows.GetItemCount(), name);
    }

    void Type() {
        Step("typing, with a letter that the window refuses");
        m_first.on[WM_CHAR] = [this] {
            m_first.answer.clear();
            if (CWnd::GetCurrentMessage().wParam == 'x')
                m_first.answer[WM_CHAR] = 0;
        };
        SetFocus(m_first.m_hWnd);
        m_user.Key('A', "a");
        m_user.Key('X', "x");
        m_user.Key('B', "b");
        m_user.Key(VK_LEFT);
        m_user.Key('C', "\xE7");
        Holds(m_first);
        m_user.Key(VK_BACK, "\b");
        m_user.Key(0, "\x81\xE2\xE1");
        m_user.Key('D', "d");
        Holds(m_first);
        m_user.Key(VK_BACK, "\b");
        m_user.Key(VK_BACK, "\b");
        m_user.Key(VK_DELETE);
        Holds(m_first);
    }

    void ChangeTextWhileItChanges() {
        Step("a text that its parent changes while it changes");
        AtChange(SecondEdit, [this] {
            if (m_second.GetWindowTextA() == "7")
                m_second.SetWindowTextA("seven");
        });
        m_user.Click(m_second.m_hWnd, {20, 8});
        m_user.Key('7', "7");
        Holds(m_second);
        m_frame.on.clear();
    }

    void MeetLimits() {
        for (const UINT style : {ES_AUTOHSCROLL, ES_MULTILINE}) {
            Step("a text that is full");
            RecordedWindow edit("limited edit", m_log);
            MakeControl(edit, "EDIT", style, {10, 170, 150, 194}, 98);
            edit.SendMessageA(EM_LIMITTEXT, 2);
            SetFocus(edit.m_hWnd);
            for (const char* typed : {"a", "b", "c"})
                m_user.Key('A', typed);
            m_user.Key(VK_RETURN, "\r");
            Holds(edit);
            m_user.Key(VK_BACK, "\b");
            m_user.Key('D', "d");
            Holds(edit);
            edit.DestroyWindow();
        }
    }

    void ClickButtons() {
        Step("buttons by mouse and keyboard");
        m_user.Click(m_check.m_hWnd, {8, 12});
        m_log.push_back("checked " + std::to_string(m_check.SendMessageA(BM_GETCHECK)));
        m_user.Key(VK_SPACE, " ");
        m_log.push_back("checked " + std::to_string(m_check.SendMessageA(BM_GETCHECK)));
        m_user.Click(m_push.m_hWnd, {30, 12});
    }

    void MoveInList() {
        Step("a list by mouse and keyboard");
        CRect row;
        m_rows.GetItemRect(1, &row);
        m_user.Click(m_rows.m_hWnd, {row.left + 10, row.top + 5});
        m_user.Key(VK_DOWN);
        m_user.Key(VK_END);
        m_log.push_back("selected " + std::to_string(m_rows.GetNextItem(-1, LVNI_SELECTED)));
    }

    void UseDropDown() {
        Step("a drop-down window takes neither focus nor keys");
        SetFocus(m_second.m_hWnd);
        RecordedWindow list("drop-down", m_log);
        list.CreateEx(WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, "KorvelFrame", "", WS_POPUP | WS_BORDER | Shown,
                      {60, 120, 200, 200}, &m_frame, 0);
        m_user.Click(list.m_hWnd, {10, 10});
        m_user.Key('Q', "q");
        Holds(m_second);
        list.DestroyWindow();
        m_log.push_back(GetFocus() == m_second.m_hWnd ? "focus kept" : "focus lost");
    }

    void LoseFocus() {
        Step("windows that lose the focus");
        m_second.EnableWindow(false);
        m_user.Click(m_second.m_hWnd, {20, 8});
        m_second.EnableWindow(true);
        SetFocus(m_second.m_hWnd);
        m_second.ShowWindow(SW_HIDE);
        m_log.push_back(GetFocus() == m_frame.m_hWnd ? "focus at the parent" : "focus elsewhere");
        m_second.ShowWindow(SW_SHOW);
        m_user.Click(m_surface.m_hWnd, {5, 5});
    }

    void DestroyEditWhileItChanges() {
        Step("an edit that dies while its text changes");
        RecordedWindow edit("mortal edit", m_log);
        MakeControl(edit, "EDIT", ES_AUTOHSCROLL, {10, 170, 150, 194}, 99);
        AtChange(99, [&] { edit.DestroyWindow(); });
        SetFocus(edit.m_hWnd);
        m_user.Key('A', "a");
        m_log.push_back(edit.m_hWnd ? "alive" : "gone");
        m_frame.on.clear();
    }

    void Ask() {
        Step("a box and a menu give the focus back");
        SetFocus(m_first.m_hWnd);
        m_user.AnswerBox(IDNO);
        const int answer = MessageBoxA(m_frame.m_hWnd, "Really?", "Scenario", MB_YESNO | MB_ICONQUESTION);
        m_log.push_back("answer " + std::to_string(answer));
        MenuEntry one, two;
        one.text = "one";
        one.command = 11;
        two.text = "two";
        two.command = 12;
        m_user.AnswerMenu(two.command);
        const unsigned command = Display().TrackMenu(m_frame.m_hWnd, {100, 100}, {one, two});
        m_log.push_back("command " + std::to_string(command));
        m_log.push_back(GetFocus() == m_first.m_hWnd ? "focus kept" : "focus lost");
        m_user.Key('Z', "z");
        Holds(m_first);
    }

    void RunModal() {
        Step("a modal window");
        RecordedWindow dialog("dialog", m_log);
        dialog.CreateEx(0, "KorvelFrame", "Modal", WS_POPUP | WS_CAPTION, {80, 80, 280, 180}, &m_frame, 0);
        RecordedWindow edit("edit of the dialog", m_log);
        edit.CreateEx(0, "EDIT", "", Child, {10, 10, 100, 34}, &dialog, 1);
        bool done = false;
        edit.on[WM_KEYDOWN] = [&] { done |= CWnd::GetCurrentMessage().wParam == VK_RETURN; };
        m_frame.EnableWindow(false);
        dialog.ShowWindow(SW_SHOW);
        SetFocus(edit.m_hWnd);
        m_user.WhenIdle([&] {
            m_user.Click(m_first.m_hWnd, {5, 5}); // the owner takes no input
            m_user.Key('M', "m");
            m_user.Key(VK_RETURN, "\r");
        });
        Display().RunUntil(dialog.m_hWnd, [&] { return done; });
        Holds(edit);
        m_frame.EnableWindow(true);
        dialog.DestroyWindow();
        SetFocus(m_first.m_hWnd);
        m_user.Key('E', "e");
        Holds(m_first);
    }

    User& m_user;
    Log m_log;
    RecordedWindow m_frame{"frame", m_log};
    RecordedWindow m_first{"first edit", m_log};
    RecordedWindow m_second{"second edit", m_log};
    RecordedWindow m_check{"check box", m_log};
    RecordedWindow m_push{"push button", m_log};
    RecordedWindow m_surface{"surface", m_log};
    CListCtrl m_rows;
};

// One comparison of everything: a difference is a fault of the display, or of what stands in for it.
TEST(Scenario, TheSameOnTheDesktopAsWithoutScreen) {
    std::string withoutScreen;
    {
        HeadlessUser user;
        withoutScreen = Scenario(user).Run();
    }
    QtUser user;
    EXPECT_EQ(withoutScreen, Scenario(user).Run());
    for (const char* held : {"text 'a'", "text 'seven'", "frame command 1281 of 98", "text 'ad'",
                             "focus kept", "gone", "answer 7", "command 12"})
        EXPECT_THAT(withoutScreen, testing::HasSubstr(held));
}

} // namespace

} // namespace korvel::test

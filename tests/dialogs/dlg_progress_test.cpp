#include "korvel/dialogs/dlg_progress.h"
#include "korvel/values/language.h"
#include "korvel/window/core/serve_sends.h"
#include "support/dialog_fixture.h"

#include <future>
#include <limits>
#include <memory>
#include <thread>

namespace korvel {
namespace {

using namespace std::chrono_literals;

constexpr int CancelButton = 15036;
constexpr int Bar = 15037;
constexpr int Status = 15038;
constexpr int Least = std::numeric_limits<int>::min();
constexpr int Most = std::numeric_limits<int>::max();

/// Writes down what it hears, and does then what the test says.
class Observer : public IObserver_DlgProgress {
public:
    explicit Observer(Log& log, std::string name = "") : m_log(log), m_name(std::move(name)) {}

    std::function<void()> act = [] {};
    std::thread::id thread; // of the last call

    void OnDlgInit(CDlgProgress*) override { Hear("init"); }
    void OnDlgDestroy(CDlgProgress* dialog) override {
        EXPECT_TRUE(IsWindow(dialog->m_hWnd));
        Hear("destroy");
    }
    void OnDlgCancelled(CDlgProgress* dialog) override {
        Hear(dialog->IsCancelled() ? "cancelled" : "not cancelled");
    }

private:
    void Hear(const char* what) {
        m_log.push_back(m_name + what);
        thread = std::this_thread::get_id();
        const auto run = act; // which may set another one
        run();
    }

    Log& m_log;
    std::string m_name;
};

/// Writes down the messages of the bar. One stands at a time.
class BarSpy {
public:
    BarSpy(HWND bar, Log& log) {
        TheLog() = &log;
        Former() = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(bar, GWLP_WNDPROC, reinterpret_cast<LPARAM>(&Procedure)));
    }

private:
    static Log*& TheLog() {
        static Log* log = nullptr;
        return log;
    }
    static WNDPROC& Former() {
        static WNDPROC former = nullptr;
        return former;
    }
    static LRESULT Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        const std::string first = std::to_string(static_cast<int>(wParam));
        if (message == PBM_SETRANGE32)
            TheLog()->push_back("range " + first + " " + std::to_string(lParam));
        if (message == PBM_SETPOS)
            TheLog()->push_back("position " + first);
        if (message == PBM_SETMARQUEE)
            TheLog()->push_back("marquee " + first + " " + std::to_string(lParam));
        if (message == WM_STYLECHANGED)
            TheLog()->push_back(
                "style " + std::to_string(GetWindowLongPtrA(window, GWL_STYLE) & (PBS_MARQUEE | PBS_SMOOTH)));
        return CallWindowProcA(Former(), window, message, wParam, lParam);
    }
};

struct DeleteDialog {
    void operator()(CDlgProgress* dialog) const { EXPECT_EQ(DeleteDlgProgress(dialog), 1); }
};
using Dialog = std::unique_ptr<CDlgProgress, DeleteDialog>;

class DlgProgressTest : public DialogTest {
protected:
    DlgProgressTest() { SetLanguageForThisRun("English"); }

    HWND Item(int id) const { return GetDlgItem(dialog->m_hWnd, id); }
    bool HasCancel() const { return IsWindowEnabled(Item(CancelButton)); }
    LRESULT AskBar(UINT message, WPARAM wParam = 0) const {
        return korvel::SendMessageA(Item(Bar), message, wParam, 0);
    }
    CString StatusShown() const { return GetWindowTextA(Item(Status)); }
    void Click() { korvel::SendMessageA(Item(CancelButton), BM_CLICK, 0, 0); }
    void Show() { EXPECT_EQ(CreateDlgProgress(dialog.get(), &frame), 1); }

    /// Runs `work` in a thread of its own, while this one serves its sends.
    template <class Work>
    void InWorker(Work work) {
        auto worker = std::async(std::launch::async, work);
        ServeSendsUntil([&] { return worker.wait_for(0s) == std::future_status::ready; });
        worker.get();
    }

    Observer observer{log};
    Dialog dialog{NewDlgProgress(0, &frame)};
};

TEST_F(DlgProgressTest, TheBarHearsWhatASetterSays) {
    using Act = std::function<void(CDlgProgress&)>;
    for (const auto& [border, act, heard] : Table<Act, Log>{
             {"range", [](auto& d) { d.SetRange(10, 20); }, {"range 10 20", "position 10"}},
             {"the same range", [](auto& d) { d.SetRange(0, 100); }, {"range 0 100", "position 0"}},
             {"equal ends", [](auto& d) { d.SetRange(5, 5); }, {"range 5 5", "position 5"}},
             {"reversed", [](auto& d) { d.SetRange(9, 3); }, {"range 9 3", "position 9"}},
             {"all of it",
              [](auto& d) { d.SetRange(Least, Most), d.SetPos(Most); },
              {"range -2147483648 2147483647", "position -2147483648", "position 2147483647"}},
             {"same position", [](auto& d) { d.SetPos(0); }, {}},
             {"beyond the range", [](auto& d) { d.SetPos(900); }, {"position 900"}},
             {"no step", [](auto& d) { d.Step(0); }, {}},
             {"steps", [](auto& d) { d.Step(3), d.Step(-5); }, {"position 3", "position -2"}},
             {"up over the end",
              [](auto& d) { d.SetPos(Most), d.Step(1); },
              {"position 2147483647", "position -2147483648"}},
             {"down over the end",
              [](auto& d) { d.Step(-1), d.Step(Least); },
              {"position -1", "position 2147483647"}},
             {"marquee", [](auto& d) { d.SetMarquee(true); }, {"style 8", "marquee 1 0"}},
             {"no marquee", [](auto& d) { d.SetMarquee(false); }, {}},
             {"marquee ends",
              [](auto& d) { d.SetMarquee(true), d.SetMarquee(false); },
              {"style 8", "marquee 1 0", "marquee 0 0", "style 1"}},
         }) {
        SCOPED_TRACE(border);
        dialog.reset(NewDlgProgress(0, &frame));
        Show();
        const BarSpy spy(Item(Bar), log);
        act(*dialog);
        EXPECT_EQ(Heard(), heard);
    }
}

TEST_F(DlgProgressTest, TheWindowShowsWhatWasSetBefore) {
    dialog.reset(NewDlgProgress(1, &frame));
    dialog->SetRange(10, 20);
    dialog->Step(4);
    dialog->SetText("A & B");
    dialog->SetMarquee(true);
    const auto check = [&] {
        EXPECT_EQ(AskBar(PBM_GETRANGE, 1), 10);
        EXPECT_EQ(AskBar(PBM_GETRANGE, 0), 20);
        EXPECT_EQ(AskBar(PBM_GETPOS), 14);
        EXPECT_EQ(GetWindowLongPtrA(Item(Bar), GWL_STYLE) & (PBS_MARQUEE | PBS_SMOOTH), PBS_MARQUEE);
        EXPECT_EQ(StatusShown(), "A & B");
        EXPECT_FALSE(HasCancel());
        EXPECT_EQ(dialog->GetWindowTextA(), "Verarbeitung l\xE4uft...");
    };
    Show();
    EXPECT_TRUE(dialog->IsWindowVisible());
    EXPECT_EQ(GetModuleState().app, &host) << "the host's is in force again";
    EXPECT_EQ(CreateDlgProgress(dialog.get(), &frame), 0) << "there is one already";
    check();
    dialog->Close();
    EXPECT_EQ(dialog->GetPos(), 14);
    display.Then([&] { check(), dialog->EndDialog(7); });
    EXPECT_EQ(dialog->DoModal(), 7);
}

TEST_F(DlgProgressTest, TextsAreKeptWhole) {
    Show();
    for (const CString& text :
         {CString("two\r\nlines"), CString(1 << 20, 'x'), CString("cut\0off", 7), CString()}) {
        dialog->SetText(text);
        EXPECT_EQ(dialog->GetText(), text);
        EXPECT_EQ(StatusShown(), CString(text.c_str()));
    }
    dialog->SetText("some");
    korvel::SetWindowTextA(Item(Status), "untouched");
    dialog->SetText("some");
    EXPECT_EQ(StatusShown(), "untouched");
    dialog->ClearText();
    EXPECT_EQ(StatusShown(), "");
}

TEST_F(DlgProgressTest, TheUserIsAskedBeforeTheWorkIsCancelled) {
    dialog->m_Observers = {&observer, nullptr};
    Show();
    Heard();
    display.AnswerNext(IDNO);
    Click();
    EXPECT_FALSE(dialog->IsCancelled());
    EXPECT_THAT(Heard(), IsEmpty());
    display.AnswerNext(IDYES);
    Click();
    EXPECT_THAT(Heard(), ElementsAre("cancelled"));
    EXPECT_FALSE(HasCancel());
    EXPECT_EQ(display.CursorShown(), IDC_WAIT);
    dialog->SendMessageA(WM_COMMAND, CancelButton); // asks nothing: there is no answer to come
    dialog->SetCancelled(true);
    EXPECT_THAT(Heard(), IsEmpty());
    dialog->SetCancelled(false);
    EXPECT_THAT(Heard(), ElementsAre("not cancelled"));
    EXPECT_TRUE(HasCancel());
    EXPECT_EQ(display.CursorShown(), IDC_ARROW);
    EXPECT_TRUE(dialog->IsWindowVisible());
    EXPECT_EQ(display.ShownBoxes().back().text, "Do you want to cancel the processing?");
    EXPECT_EQ(display.ShownBoxes().back().caption, "Cancel processing");
    EXPECT_EQ(display.ShownBoxes().back().type, 0x24u);
}

TEST_F(DlgProgressTest, TheWorkMayEndWhileTheUserIsAsked) {
    struct ClosingDisplay : HeadlessDisplay {
        std::function<void()> work;
        int MessageBox(HWND, const CString&, const CString&, UINT) override { return work(), IDYES; }
    } asking;
    SetDisplay(&asking);
    asking.work = [&] { InWorker([&] { dialog->SetPos(100), dialog->Close(); }); };
    dialog->m_Observers = {&observer};
    Show();
    Click();
    EXPECT_TRUE(dialog->IsCancelled());
    EXPECT_THAT(Heard(), ElementsAre("init", "destroy", "cancelled"));
    EXPECT_NE(asking.CursorShown(), IDC_WAIT);
    dialog.reset();
    SetDisplay(&display);
}

TEST_F(DlgProgressTest, TheWaitCursorIsOnWhileTheWindowIs) {
    const auto ask = [&] {
        SetCursor(IDC_ARROW);
        return korvel::SendMessageA(Item(Bar), WM_SETCURSOR, 0, 0);
    };
    const CWaitCursor another; // of the host
    dialog->SetCancelled(true);
    dialog->SetCancelled(false); // without a window it had not begun to wait
    Show();
    dialog->Close(); // without a cancel
    Show();
    EXPECT_EQ(ask(), 0);
    dialog->SetCancelled(true);
    EXPECT_EQ(ask(), 1);
    EXPECT_EQ(display.CursorShown(), IDC_WAIT);
    dialog->Close();
    dialog->SetCancelled(false);
    SetCursor(IDC_ARROW);
    RestoreWaitCursor();
    EXPECT_EQ(display.CursorShown(), IDC_WAIT) << "the host's is still on";
    dialog->SetCancelled(true);
    Show();
    EXPECT_EQ(ask(), 1);
    EXPECT_FALSE(HasCancel());
    EXPECT_EQ(display.CursorShown(), IDC_WAIT);
}

TEST_F(DlgProgressTest, OnlyReturnEndsItFromTheKeyboard) {
    dialog.reset(NewDlgProgress(1, &frame)); // no button takes the Return
    Show();
    SetFocus(dialog->m_hWnd);
    Press(VK_ESCAPE);
    dialog->SendMessageA(WM_CLOSE);
    EXPECT_TRUE(dialog->IsWindowVisible());
    input::Key(dialog->m_hWnd, WM_KEYDOWN, VK_RETURN, "\r");
    EXPECT_FALSE(dialog->IsWindowVisible());
    dialog->SetPos(7);
    EXPECT_EQ(AskBar(PBM_GETPOS), 7) << "the work goes on";
    dialog->Close();
    display.Then([&] {
        input::Key(dialog->m_hWnd, WM_KEYDOWN, VK_ESCAPE, "");
        input::Key(dialog->m_hWnd, WM_KEYDOWN, VK_RETURN, "\r");
    });
    EXPECT_EQ(dialog->DoModal(), IDOK);
}

TEST_F(DlgProgressTest, EveryEndOfTheWindowIsToldOnce) {
    CWnd owner;
    for (const auto& [way, end] : Table<std::function<void()>>{
             {"closed", [&] { dialog->Close(); }},
             {"closed by a worker", [&] { InWorker([&] { dialog->Close(); }); }},
             {"destroyed by a worker", [&] { InWorker([&] { dialog->DestroyWindow(); }); }},
             {"by its handle", [&] { korvel::DestroyWindow(dialog->m_hWnd); }},
             {"with its owner", [&] { owner.DestroyWindow(); }},
             {"deleted", [&] { dialog.reset(); }},
             {"deleted by a worker", [&] { InWorker([&] { dialog.reset(); }); }},
             {"closed again in it", [&] {
                  observer.act = [&] { dialog->Close(); };
                  dialog->Close();
              }}}) {
        SCOPED_TRACE(way);
        owner.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 9, 9}, nullptr, 0);
        dialog.reset(NewDlgProgress(0, nullptr));
        dialog->m_Observers = {&observer};
        EXPECT_EQ(CreateDlgProgress(dialog.get(), &owner), 1);
        Heard();
        const HWND window = dialog->m_hWnd;
        end();
        EXPECT_FALSE(IsWindow(window));
        EXPECT_EQ(observer.thread, std::this_thread::get_id());
        owner.DestroyWindow();
        dialog.reset();
        EXPECT_THAT(Heard(), ElementsAre("destroy"));
    }
    EXPECT_EQ(CreateDlgProgress(nullptr, &owner), 0);
    EXPECT_EQ(DeleteDlgProgress(nullptr), 0);
}

TEST_F(DlgProgressTest, AnObserverMayDoAnythingButDelete) {
    std::array<Observer, 3> three{Observer(log, "1 "), Observer(log, "2 "), Observer(log, "3 ")};
    const auto isLockFree = [&] {
        return std::async(std::launch::async, [&] { return dialog->GetPos(); }).wait_for(30s) ==
               std::future_status::ready;
    };
    const Log all{"1 cancelled", "2 cancelled", "3 cancelled"};
    for (const auto& [border, act, heard] : Table<std::function<void()>, Log>{
             {"leaves", [&] { dialog->m_Observers.erase(&three[1]); }, all},
             {"takes the next one out", [&] { dialog->m_Observers.erase(&three[2]); }, {all[0], all[1]}},
             {"takes all out", [&] { dialog->m_Observers.clear(); }, {all[0], all[1]}},
             {"throws", [] { throw std::runtime_error("full"); }, all},
             {"closes",
              [&] { dialog->Close(); },
              {all[0], all[1], "1 destroy", "2 destroy", "3 destroy", all[2]}},
             {"changes its mind",
              [&] { dialog->SetCancelled(false); },
              {all[0], all[1], "1 not cancelled", "2 not cancelled", "3 not cancelled",
               "3 not cancelled"}}}) {
        SCOPED_TRACE(border);
        dialog.reset(NewDlgProgress(0, &frame));
        dialog->m_Observers = {&three[0], &three[1], &three[2]};
        Show();
        Heard();
        three[1].act = [&, act = act] {
            three[1].act = [] {};
            act();
        };
        try {
            dialog->SetCancelled(true);
            EXPECT_STRNE(border, "throws");
        } catch (const std::runtime_error&) {
            EXPECT_STREQ(border, "throws");
        }
        EXPECT_EQ(Heard(), heard);
        EXPECT_TRUE(isLockFree());
        dialog->m_Observers.clear();
    }
}

TEST_F(DlgProgressTest, AnObserverThatThrowsLeavesNoHalfWindow) {
    Observer second(log);
    dialog->m_Observers = {&observer, &second};
    observer.act = second.act = [] { throw std::runtime_error("full"); };
    EXPECT_THROW(CreateDlgProgress(dialog.get(), &frame), std::runtime_error);
    EXPECT_EQ(dialog->m_hWnd, nullptr);
    EXPECT_THAT(Heard(), ElementsAre("init", "init", "destroy", "destroy"));
    observer.act = second.act = [] {};
    Show();
    observer.act = [] { throw std::runtime_error("full"); };
    EXPECT_THROW(dialog->Close(), std::runtime_error);
    EXPECT_EQ(dialog->m_hWnd, nullptr);
    observer.act = [&] { dialog->Close(); };
    EXPECT_EQ(CreateDlgProgress(dialog.get(), &frame), 0) << "closed before it was shown";
    EXPECT_EQ(dialog->m_hWnd, nullptr);
}

// --- workers ---

TEST_F(DlgProgressTest, AWorkerThatHoldsTheLockIsServedByWhoWaitsForIt) {
    Show();
    auto worker = std::async(std::launch::async, [&] {
        for (int i = 0; i < 500; ++i)
            dialog->SetRange(i, i + 10);
    });
    while (worker.wait_for(0s) != std::future_status::ready)
        EXPECT_LT(dialog->GetPos(), 500); // nothing else serves the worker
    EXPECT_EQ(AskBar(PBM_GETRANGE, 1), 499);
    EXPECT_EQ(AskBar(PBM_GETPOS), 499);
}

TEST_F(DlgProgressTest, WorkersAndTheWindowsThreadMayContend) {
    constexpr int Steps = 300;
    Show();
    const auto work = [&](bool isFirst) {
        for (int i = 1; i <= Steps; ++i) {
            dialog->SetRange(0, isFirst ? 1000 + i : 2000 + i);
            dialog->SetText(std::to_string(i));
            dialog->SetMarquee(i % 2 != 0);
            dialog->SetCancelled(i % 3 != 0);
            dialog->SetPos(i);
        }
    };
    auto first = std::async(std::launch::async, work, true);
    auto second = std::async(std::launch::async, work, false);
    const auto hasEnded = [](const std::future<void>& worker) {
        return worker.wait_for(0s) == std::future_status::ready;
    };
    ServeSendsUntil([&] {
        dialog->SetPos(dialog->GetLower() - 1);
        EXPECT_GE(dialog->GetUpper(), 100);
        return hasEnded(first) && hasEnded(second);
    });
    EXPECT_EQ(AskBar(PBM_GETRANGE, 0), dialog->GetUpper());
    EXPECT_EQ(AskBar(PBM_GETPOS), std::max(dialog->GetPos(), 0));
    EXPECT_EQ(StatusShown(), dialog->GetText());
    EXPECT_EQ(HasCancel(), !dialog->IsCancelled());
    EXPECT_EQ(display.CursorShown() == IDC_WAIT, dialog->IsCancelled());
}

TEST_F(DlgProgressTest, WhatAWorkersObserverSendsMayAskTheDialog) {
    RecordedWindow status("status", log);
    status.Create(0, &frame);
    status.on[WM_SETTEXT] = [&] { log.push_back(dialog->IsCancelled() ? "is cancelled" : "goes on"); };
    observer.act = [&] { status.SetWindowTextA("stopping"); }; // while the worker holds the lock
    dialog->m_Observers = {&observer};
    Heard();
    InWorker([&] { dialog->SetCancelled(true); });
    EXPECT_THAT(Heard(), ElementsAre("cancelled", "is cancelled"));
}

TEST_F(DlgProgressTest, TheWindowMayGoWhileAWorkerSetsValues) {
    std::atomic<bool> mayEnd = false;
    std::atomic<int> rounds = 0;
    CWnd owner;
    owner.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 9, 9}, nullptr, 0);
    EXPECT_EQ(CreateDlgProgress(dialog.get(), &owner), 1);
    auto worker = std::async(
        std::launch::async,
        [&] {
            for (; !mayEnd; ++rounds) {
                dialog->SetRange(0, 50);
                dialog->Step(1);
                dialog->SetText(std::to_string(rounds));
                dialog->SetMarquee(rounds % 2 != 0);
                dialog->SetCancelled(rounds % 2 != 0);
            }
        });
    const auto goOn = [&] {
        const int reached = rounds;
        ServeSendsUntil([&] { return rounds > reached + 3; });
    };
    goOn();
    owner.DestroyWindow();
    EXPECT_EQ(dialog->m_hWnd, nullptr);
    goOn();
    Show();
    goOn();
    dialog->Close();
    EXPECT_NE(display.CursorShown(), IDC_WAIT);
    mayEnd = true;
    ServeSendsUntil([&] { return worker.wait_for(0s) == std::future_status::ready; });
    Show();
    EXPECT_EQ(AskBar(PBM_GETPOS), 1);
    EXPECT_EQ(StatusShown(), dialog->GetText());
}

} // namespace
} // namespace korvel

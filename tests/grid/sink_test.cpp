#include "korvel/grid/sink_records.h"
#include "korvel/platform/error.h"
#include "korvel/window/core/exception_handler.h"
#include "korvel/window/core/serve_sends.h"
#include "support/grid_fixture.h"
#include "support/table.h"

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

namespace korvel {
namespace {

using namespace std::chrono_literals;
using Lines = std::vector<std::string>;

// Says of each record that reaches its window what it holds, and may keep it from the grid.
class HookedGrid final : public CEditableGrid {
public:
    using CEditableGrid::CEditableGrid;

    Lines heard;
    bool keepsRecords = false;
    const std::thread::id owner = std::this_thread::get_id();

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != WM_OPENGLSINK_NOTIFICATION || !lParam)
            return CEditableGrid::WindowProc(message, wParam, lParam);
        EXPECT_EQ(std::this_thread::get_id(), owner);
        heard.push_back(std::to_string(wParam) + " " +
                        TextOf(*reinterpret_cast<const SNotifyOpenGLSink*>(lParam)));
        return keepsRecords ? 0 : CEditableGrid::WindowProc(message, wParam, lParam);
    }

private:
    template <class Record>
    static const Record& As(const SNotifyOpenGLSink& record) {
        return static_cast<const Record&>(record);
    }
    static std::string TextOf(const CVariantValue& value) { return value.ToText(TextForm::Plain); }
    static std::string TextOf(const SNotifyOpenGLSink& any) {
        std::string text = std::to_string(any.GetKind()) + ":" + std::to_string(any.code);
        text += any.disp ? " of " + any.disp->GetIdent() + " " : " ";
        switch (any.GetKind()) {
        case SPSV::Kind:
            return text + As<SPSV>(any).name + " " + TextOf(As<SPSV>(any).value);
        case SPSS::Kind:
            return text + As<SPSS>(any).name + " " + As<SPSS>(any).newName;
        case SSS::Kind:
            return text + As<SSS>(any).name + " " + As<SSS>(any).newName;
        case SPSEV::Kind:
            return text + As<SPSEV>(any).name + " " + std::to_string(As<SPSEV>(any).type) + " " +
                   TextOf(As<SPSEV>(any).value);
        case SPNSV::Kind:
            return text + std::to_string(As<SPNSV>(any).position) + " " + As<SPNSV>(any).name + " " +
                   TextOf(As<SPNSV>(any).value);
        case SPS::Kind:
            return text + As<SPS>(any).name;
        case SPSb::Kind:
            return text + As<SPSb>(any).name + (As<SPSb>(any).flag ? " on" : " off");
        default:
            return text;
        }
    }
};

// Says when another thread wants something.
struct WakingDisplay : HeadlessDisplay {
    std::atomic<int> wakes = 0;
    void Wake() override {
        HeadlessDisplay::Wake();
        ++wakes;
    }
    void AwaitWake(int before) const {
        while (wakes == before)
            std::this_thread::yield();
    }
};

class Sinks : public GermanMachine, protected GridWindows {
protected:
    Sinks() {
        SetDisplay(&waking);
        Make(grid);
        point.With("x", Number(DT_Double, 1));
        root.With("length", Number(DT_Double, 2)).With("p", Group(&point));
    }
    ~Sinks() override {
        SetExceptionHandler(nullptr);
        grid.DestroyWindow();
        SetDisplay(&display);
    }

    void Bind(IMemberDispatch* object) {
        grid.Initialize(object, "Name", "Value", 0);
        grid.ExpandAll();
        grid.heard.clear();
    }
    IObserverGridSink& SinkOf(IMemberDispatch* object) { return *observer.sinks.at(object); }

    using Work = std::function<void()>;
    static void OfThisThread(const Work& work) { work(); }
    static void OfAWorker(const Work& work) {
        auto worker = std::async(std::launch::async, work);
        ServeSendsUntil([&] { return worker.wait_for(0s) == std::future_status::ready; });
        worker.get();
    }
    // A call of another thread that this one has not run yet.
    std::future<void> Waiting(const Work& work) {
        const int before = waking.wakes;
        auto worker = std::async(std::launch::async, work);
        waking.AwaitWake(before);
        return worker;
    }

    WakingDisplay waking;
    RecordingObserver observer;
    HookedGrid grid{&observer, nullptr};
};

TEST_F(Sinks, EachCallBringsItsRecordToTheWindowAndItsChangeToTheRows) {
    const CVariantValue five = Number(DT_Double, 5);
    struct Row {
        std::function<void(IObserverGridSink&)> call;
        const char* ofRoot;
        const char* ofPoint;
        const char* rowsOfPoint;
    };
    const Row table[] = {
        {[&](auto& sink) { sink.OnChangeIdent("a", "b"); }, "5 3:5 a b", "5 3:5 a b", "p|; x|1,00;"},
        {[&](auto& sink) { sink.OnChange("x", five); }, "1 1:1 x 5", "1 1:1 of point x 5", "p|; x|5,00;"},
        {[&](auto& sink) { sink.OnChangeEditFlag("x", false); }, "9 9:9 x off", "9 9:9 of point x off",
         "p|; x|1,00;"},
        {[&](auto& sink) { sink.OnOperationAdd("y", five); }, "1 1:2 y 5", "1 1:2 of point y 5",
         "p|; x|1,00; y|5,00;"},
        {[&](auto& sink) { sink.OnOperationInsert(0, "y", five); }, "7 7:7 0 y 5", "7 7:7 of point 0 y 5",
         "p|; y|5,00; x|1,00;"},
        {[&](auto& sink) { sink.OnOperationRemove("x", five); }, "1 1:3 x 5", "1 1:3 of point x 5", "p|;"},
        {[&](auto& sink) { sink.OnOperationRename("x", "y"); }, "4 2:4 x y", "4 2:4 of point x y",
         "p|; y|1,00;"},
        {[&](auto& sink) { sink.OnOperationChangeType("x", DT_Int, five); }, "6 4:6 x 1 5",
         "6 4:6 of point x 1 5", "p|; x|5,00;"},
        {[&](auto& sink) { sink.OnOperationChangeTupelPresentation("text"); }, "8 8:8 text",
         "8 8:8 of point text", "p|text; x|1,00;"},
    };
    for (const auto& run : {OfThisThread, OfAWorker})
        for (const Row& row : table) {
            Bind(&root);
            run([&] { row.call(SinkOf(&point)); });
            EXPECT_EQ(Text(grid), "length|2,00;" + std::string(row.rowsOfPoint)) << row.ofPoint;
            run([&] { row.call(SinkOf(&root)); });
            EXPECT_EQ(grid.heard, (Lines{row.ofPoint, row.ofRoot}));
            grid.Clear();
        }
}

TEST_F(Sinks, TheSinkOfTheRootMeansWhatTheGridIsBoundTo) {
    Bind(&root);
    IObserverGridSink& sink = SinkOf(&root);
    OfAWorker([&] { sink.OnChange("length", Number(DT_Double, 7)); });
    EXPECT_EQ(Rows(grid)[0], "length|7,00");
    grid.Clear();
    Bind(nullptr);
    OfAWorker([&] { sink.OnOperationAdd("length", Number(DT_Double, 8)); });
    EXPECT_EQ(grid.heard, (Lines{"1 1:2 length 8"}));
    EXPECT_EQ(Rows(grid), Lines());
    grid.DestroyWindow();
    sink.OnChange("length", Number(DT_Double, 9));
    OfAWorker([&] { sink.OnChange("length", Number(DT_Double, 9)); });
    EXPECT_EQ(grid.heard.size(), 1u);
}

TEST_F(Sinks, EachThreadKeepsItsOrder) {
    constexpr int Threads = 4;
    constexpr int Each = 500;
    for (int thread = 0; thread < Threads; ++thread)
        root.With(std::to_string(thread), Whole(DT_Int, -1));
    Bind(&root);
    const auto send = [&](int thread) {
        for (int i = 0; i < Each; ++i)
            SinkOf(&root).OnChange(std::to_string(thread), Whole(DT_Int, i));
    };
    std::vector<std::future<void>> workers;
    workers.reserve(Threads);
    for (int thread = 0; thread < Threads; ++thread)
        workers.push_back(std::async(std::launch::async, send, thread));
    ServeSendsUntil([&] { return grid.heard.size() == std::size_t{Threads} * Each; });
    for (int thread = 0; thread < Threads; ++thread) {
        const std::string prefix = "1 1:1 " + std::to_string(thread) + " ";
        int next = 0;
        for (const std::string& line : grid.heard)
            if (line.starts_with(prefix))
                EXPECT_EQ(line, prefix + std::to_string(next++));
        EXPECT_EQ(next, Each);
    }
}

TEST_F(Sinks, AModalLoopRunsWhatOtherThreadsSend) {
    Bind(&root);
    std::future<void> worker;
    waking.Then([&] { worker = Waiting([&] { SinkOf(&point).OnChange("x", Number(DT_Double, 6)); }); });
    waking.RunUntil(nullptr, [&] { return !grid.heard.empty(); });
    worker.get();
    EXPECT_EQ(Rows(grid)[2], " x|6,00");
}

TEST_F(Sinks, WhatWaitsForAnObjectThatGoesIsDropped) {
    Bind(&root);
    IObserverGridSink& sink = SinkOf(&point);
    auto worker = Waiting([&] { sink.OnChange("x", Number(DT_Double, 6)); });
    SinkOf(&root).OnOperationRemove("p", Group(&point));
    input::DispatchMessages();
    worker.get();
    EXPECT_EQ(grid.heard.size(), 2u);
    EXPECT_EQ(Rows(grid), (Lines{"length|2,00"}));
}

TEST_F(Sinks, AFailureReachesASenderOfTheOwnThreadAndTheHandlerForAnother) {
    CString told;
    SetExceptionHandler([&](const CString& text) { told = text; });
    Bind(&root);
    observer.onCall = [] { throw Error("broken"); };
    const auto fail = [&] { SinkOf(&root).OnOperationAdd("q", Group(&Object())); };
    EXPECT_THROW(fail(), Error);
    EXPECT_EQ(told, "");
    bool hasGoneOn = false;
    OfAWorker([&] { fail(), hasGoneOn = true; });
    EXPECT_EQ(told, "broken");
    EXPECT_TRUE(hasGoneOn);
    observer.onCall = nullptr;
}

// Addresses that are freed twice, never, or too early are for the address sanitizer to see.
TEST_F(Sinks, WhoDoesNotTakeARecordDoesNotFreeIt) {
    Bind(&root);
    const auto send = [&](auto* record) {
        return grid.SendMessageA(WM_OPENGLSINK_NOTIFICATION, 1, reinterpret_cast<LPARAM>(record));
    };
    const CVariantValue five = Number(DT_Double, 5);
    for (const int foreign : {0, -1, 10, static_cast<int>(SinkRename)}) {
        SPSV record(foreign, nullptr, "length", five);
        EXPECT_EQ(send(&record), 1) << foreign;
        EXPECT_EQ(record.name, "length");
    }
    EXPECT_EQ(send(static_cast<SPSV*>(nullptr)), 1);
    EXPECT_EQ(Rows(grid)[0], "length|2,00");

    EXPECT_EQ(send(new SPSV(SinkChange, nullptr, "length", five)), 1);
    EXPECT_EQ(Rows(grid)[0], "length|5,00");
    PostMessageA(grid.m_hWnd, WM_OPENGLSINK_NOTIFICATION, 1,
                 reinterpret_cast<LPARAM>(new SPSV(SinkChange, nullptr, "length", Number(DT_Double, 6))));
    input::DispatchMessages();
    EXPECT_EQ(Rows(grid)[0], "length|6,00");

    grid.keepsRecords = true;
    OfAWorker([&] { SinkOf(&root).OnChange("length", five); });
    SinkOf(&root).OnChange("length", five);
    EXPECT_EQ(Rows(grid)[0], "length|6,00");
}

TEST_F(Sinks, TheWindowMayGoWhileEightThreadsSend) {
    for (int round = 0; round < 20; ++round) {
        RecordingObserver own;
        HookedGrid doomed{&own, nullptr};
        Make(doomed);
        doomed.Initialize(&root, "Name", "Value", 0);
        IObserverGridSink& sink = *own.sinks.at(&root);
        const HWND handle = doomed.m_hWnd;
        std::atomic<bool> stop = false;
        std::atomic<int> sent = 0;
        std::vector<std::future<void>> workers;
        workers.reserve(8);
        for (int thread = 0; thread < 8; ++thread)
            workers.push_back(std::async(
                std::launch::async,
                [&] {
                    for (; !stop; ++sent) {
                        sink.OnChange("length", Number(DT_Double, sent));
                        korvel::SendMessageA(handle, WM_USER, 0, 0);
                        SetWindowTextA(handle, "text");
                    }
                }));
        ServeSendsUntil([&] { return sent > 50; });
        doomed.DestroyWindow();
        stop = true;
        for (auto& worker : workers) // nothing serves them any more
            EXPECT_EQ(worker.wait_for(30s), std::future_status::ready);
    }
}

} // namespace
} // namespace korvel

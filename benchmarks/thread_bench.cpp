#include "korvel/grid/editable_grid.h"
#include "korvel/grid/sink_records.h"
#include "korvel/window/core/registered_messages.h"
#include "korvel/window/core/serve_sends.h"
#include "korvel/window/display/headless_display.h"
#include "live_objects.h"
#include "measure.h"

#include <array>
#include <atomic>
#include <chrono>
#include <thread>

/// What a grid with many members costs that several threads tell of changes at once: from the first call of
/// a sink to the last row that shows its new value.

namespace {

using namespace korvel;

constexpr int Members = 100'000;
constexpr int Threads = 8;
constexpr int Each = 100'000;
constexpr double Goal = 5; // microseconds of an update, on all threads together

// The members of each thread lie side by side; it changes one after the other, and then again.
constexpr int MembersOfThread = Members / Threads;

// Only the root is shown: nobody else has a sink.
class RootObserver final : public IObserverGrid {
public:
    IObserverGridSink* sink = nullptr;

    void AddSink(IMemberDispatch*, IObserverGridSink* ofRoot) override { sink = ofRoot; }
    void RemoveSink(IMemberDispatch*, IObserverGridSink*) override { sink = nullptr; }
    void OnChange(IMemberDispatch*, void*, const std::string&, const CVariantValue&) override {}
    void OnRemove(IMemberDispatch*, void*, const std::string&) override {}
    void OnRename(IMemberDispatch*, void*, const std::string&, const std::string&) override {}
    void OnAdd(IMemberDispatch*, void*, const std::string&, const CVariantValue&) override {}
    void OnChangeEditFlag(IMemberDispatch*, void*, const std::string&, const bool&) override {}
    void OnChangeType(IMemberDispatch*, void*, const std::string&, EDataTyps, const CVariantValue&) override {
    }
};

// Counts what comes from each thread, and whether it comes in order: the values of a thread count up.
class OrderedGrid final : public CEditableGrid {
public:
    using CEditableGrid::CEditableGrid;

    std::array<int, Threads> next{};
    bool isInOrder = true;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_OPENGLSINK_NOTIFICATION) {
            const auto& record = *reinterpret_cast<const SPSV*>(lParam);
            const int member = std::atoi(record.name.c_str() + 1);
            isInOrder &= record.value.Value.Double == next[std::size_t(member / MembersOfThread)]++;
        }
        return CEditableGrid::WindowProc(message, wParam, lParam);
    }
};

using Update = std::function<void(const std::string& name, const CVariantValue& value)>;

void UpdateAll(int thread, const Update& update) {
    CVariantValue value;
    value.Type = DT_Double;
    for (int i = 0; i < Each; ++i) {
        value.Value.Double = i;
        update(bench::LiveGroup::NameOf(thread * MembersOfThread + i % MembersOfThread), value);
    }
}

double SecondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Microseconds of an update on the grid's own thread.
double MeasureHere(const Update& update) {
    return 1e6 / Each * SecondsOf([&] { UpdateAll(0, update); });
}

// The same of other threads, by the clock: most of it is waiting.
double MeasureThreads(const Update& update) {
    return 1e6 / (double{Threads} * Each) * SecondsOf([&] {
               std::atomic<int> ended = 0;
               std::array<std::thread, Threads> threads;
               for (int number = 0; number < Threads; ++number)
                   threads[std::size_t(number)] = std::thread([&ended, &update, number] {
                       UpdateAll(number, update);
                       ++ended;
                   });
               ServeSendsUntil([&] { return ended == Threads; });
               for (std::thread& thread : threads)
                   thread.join();
           });
}

} // namespace

int main() {
    HeadlessDisplay display;
    SetDisplay(&display);
    {
        bench::LiveGroup object("axis", Members, 1);
        RootObserver observer;
        CWnd frame;
        frame.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 500, 400}, nullptr, 0);
        OrderedGrid grid(&observer, nullptr);
        grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL, {0, 0, 400, 300}, &frame, 1);
        grid.Initialize(&object, "Name", "Value", 0);
        const Update directly = [&](auto& name, auto& value) { grid.OnChange(&object, name, value); };
        const Update bySink = [&](auto& name, auto& value) { observer.sink->OnChange(name, value); };
        const auto write = [](const char* operation, const char* subject, double figure) {
            bench::Write(operation, Members, subject, "us", figure);
        };
        const auto measure = [&](auto run, const Update& update) {
            return bench::MedianOf([&] { return grid.next = {}, run(update); });
        };
        write("update by a sink", "ours", measure(MeasureHere, bySink));
        write("update by a sink", "direct call", measure(MeasureHere, directly));
        write("update from 8 threads", "ours", measure(MeasureThreads, bySink));
        write("update from 8 threads", "goal", Goal);
        const bool areAllThere = std::ranges::all_of(grid.next, [](int count) { return count == Each; });
        if (!areAllThere || !grid.isInOrder) {
            std::fputs("thread_bench: updates are lost or out of order\n", stderr);
            return 1;
        }
    }
    SetDisplay(nullptr);
}

#include "korvel/grid/editable_grid.h"
#include "korvel/window/core/input.h"
#include "korvel/window/display/headless_display.h"
#include "live_objects.h"
#include "measure.h"

#include <map>

/// What it costs to end an edit in a grid with many members: from the Return key to the row that shows the
/// new value.

namespace {

using namespace korvel;

// Tells the grid of each change, as hosts do.
class ForwardingObserver final : public IObserverGrid {
public:
    void AddSink(IMemberDispatch* disp, IObserverGridSink* sink) override { m_sinks[disp] = sink; }
    void RemoveSink(IMemberDispatch* disp, IObserverGridSink*) override { m_sinks.erase(disp); }
    void OnChange(IMemberDispatch* disp, void*, const std::string& name,
                  const CVariantValue& value) override {
        m_sinks.at(disp)->OnChange(name, value);
    }
    void OnRemove(IMemberDispatch*, void*, const std::string&) override {}
    void OnRename(IMemberDispatch*, void*, const std::string&, const std::string&) override {}
    void OnAdd(IMemberDispatch*, void*, const std::string&, const CVariantValue&) override {}
    void OnChangeEditFlag(IMemberDispatch*, void*, const std::string&, const bool&) override {}
    void OnChangeType(IMemberDispatch*, void*, const std::string&, EDataTyps, const CVariantValue&) override {
    }

private:
    std::map<IMemberDispatch*, IObserverGridSink*> m_sinks;
};

constexpr int Members = 1'000'000;
constexpr int Edits = 2000;
constexpr double Goal = 100; // microseconds

// Microseconds of one commit.
double MeasureEdits(CEditableGrid& grid) {
    double seconds = 0;
    for (int edit = 0; edit < Edits; ++edit) {
        const CRect cell = grid.GetSubItemRect(grid.GetTopIndex() + edit % 10, 1);
        const CPoint point{cell.left + 2, cell.top + 2};
        input::Mouse(grid.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, point);
        input::Mouse(grid.m_hWnd, WM_LBUTTONUP, 0, point);
        SetWindowTextA(GetFocus(), std::to_string(edit) + "*2");
        seconds += bench::CpuSecondsOf([] { input::Key(GetFocus(), WM_KEYDOWN, VK_RETURN, "\r"); });
    }
    return seconds * 1e6 / Edits;
}

} // namespace

int main() {
    HeadlessDisplay display;
    SetDisplay(&display);
    {
        bench::LiveGroup object("axis", Members, 1);
        ForwardingObserver observer;
        CWnd frame;
        frame.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 500, 400}, nullptr, 0);
        CEditableGrid grid(&observer, nullptr);
        grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL, {0, 0, 400, 300}, &frame, 1);
        grid.Initialize(&object, "Name", "Value", 0);
        grid.EnsureVisible(Members / 2, false);
        const double figure = bench::MedianOf([&] { return MeasureEdits(grid); });
        const int lastRow = grid.GetTopIndex() + (Edits - 1) % 10;
        if (grid.IsEditing() || object.ValueOf(lastRow) != 2.0 * (Edits - 1)) {
            std::fputs("edit_bench: the edits were not written\n", stderr);
            return 1;
        }
        bench::Write("commit edit", Members, "ours", "us", figure);
        bench::Write("commit edit", Members, "goal", "us", Goal);
    }
    SetDisplay(nullptr);
}

// A host without a screen: binds an object of its own to the grid and changes it while it is shown.

#include "../../support/quiet_observer.h"
#include "../expect.h"

#include <korvel/grid/editable_grid.h>
#include <korvel/output/stations.h>
#include <korvel/values/language.h>
#include <korvel/values/member_dispatch_imp.h>
#include <korvel/window/display/headless_display.h>
#include <map>

using namespace korvel;

namespace {

struct Axis;

class Observer : public QuietObserver {
public:
    void AddSink(IMemberDispatch* disp, IObserverGridSink* sink) override { sinks[disp] = sink; }
    void RemoveSink(IMemberDispatch* disp, IObserverGridSink*) override { sinks.erase(disp); }

    std::map<IMemberDispatch*, IObserverGridSink*> sinks;
};

CVariantValue Station(double metres) {
    CVariantValue value;
    value.Type = DT_RoadStationDouble;
    value.Value.Double = metres;
    return value;
}

} // namespace

int main() {
    Expect(SetLanguageForThisRun("English"));
    HeadlessDisplay display;
    SetDisplay(&display);
    TMemberDispatchImp<Axis> axis("Axis 3");
    axis.AddMember("begin", true, Station(12345.6));

    CWnd frame;
    frame.CreateEx(0, "KorvelFrame", "Axis 3", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {0, 0, 500, 400}, nullptr,
                   0);
    Observer observer;
    CEditableGrid grid(&observer, nullptr);
    Expect(grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL, {0, 0, 400, 300}, &frame, 105));
    grid.Initialize(&axis, "Name", "Value", 0);
    Expect(grid.GetItemText(0, 0) == "begin");
    Expect(grid.GetItemText(0, 1) == RoadStationToString(12345.6));

    Expect(axis.SetMember("begin", Station(500.0)));
    observer.sinks.at(&axis)->OnChange("begin", Station(500.0));
    Expect(grid.GetItemText(0, 1) == RoadStationToString(500.0));
    Expect(!display.PaintWindow(grid.m_hWnd).empty());
    const TreeGridList& list = grid;
    Expect(!list.HasCheckBoxes());

    grid.Clear();
    Expect(observer.sinks.empty());
    return 0;
}

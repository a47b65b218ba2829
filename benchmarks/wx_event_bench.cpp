// wxListCtrl with the messages of the comparison of event lists.

#include "event_scenario.h"
#include "measure.h"

#include <cstdlib>
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/frame.h>
#include <wx/listctrl.h>

namespace {

void Wait() {
    while (wxTheApp->Pending())
        wxTheApp->Dispatch();
    wxTheApp->ProcessIdle();
}

double SecondsToAdd(long count) {
    auto* frame = new wxFrame(nullptr, wxID_ANY, "peer", wxDefaultPosition, wxSize(900, 600));
    auto* list = new wxListCtrl(frame, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxLC_REPORT);
    for (const char* title : {"Type", "Date", "Time", "Source", "Event"})
        list->AppendColumn(title);
    frame->Show();
    Wait();
    const auto messages = bench::EventsOf(count);
    const double spent = bench::CpuSecondsOf([&] {
        for (const korvel::CEventMessage& message : messages) {
            const auto cells = bench::CellsOf(message);
            list->InsertItem(0, cells[0]);
            for (int column = 1; column < 5; ++column)
                list->SetItem(0, column, cells[static_cast<std::size_t>(column)]);
        }
    });
    frame->Destroy();
    Wait();
    return spent;
}

} // namespace

class BenchmarkApp : public wxApp {
public:
    bool OnInit() override { return true; }
    int OnRun() override {
        wxEventLoop loop;
        const wxEventLoopActivator active(&loop);
        const long count = argc > 1 ? std::atol(argv[1].utf8_str()) : 100'000;
        bench::Write("event add on top", count, "wxListCtrl", "ms", 1e3 * SecondsToAdd(count));
        return 0;
    }
};

wxIMPLEMENT_APP(BenchmarkApp);

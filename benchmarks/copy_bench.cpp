#include "korvel/grid/editable_grid.h"
#include "korvel/window/display/headless_display.h"
#include "live_objects.h"
#include "measure.h"

#include <algorithm>

/// What it costs to copy a whole tree, whose groups are collapsed, to the clipboard.

namespace {

using namespace korvel;

constexpr int Groups = 100;
constexpr int Members = 100'000;
constexpr double Goal = 100; // milliseconds

} // namespace

int main() {
    HeadlessDisplay display;
    SetDisplay(&display);
    {
        bench::LiveRoot object(Groups, Members);
        CWnd frame;
        frame.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 500, 400}, nullptr, 0);
        CEditableGrid grid(nullptr, nullptr);
        grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL, {0, 0, 400, 300}, &frame, 1);
        grid.SetGridOption(EGridOption::QuietCopy, true);
        grid.Initialize(&object, "Name", "Value", 0);
        const double figure = bench::MedianOf(
            [&] { return 1e3 * bench::CpuSecondsOf([&] { grid.OnCopyClipboardRecursive(); }); });
        const CString copied = display.ClipboardText().value_or("");
        if (std::count(copied.begin(), copied.end(), '\n') != Groups + Members - 1) {
            std::fputs("copy_bench: the rows were not copied\n", stderr);
            return 1;
        }
        bench::Write("copy tree", Members, "ours", "ms", figure);
        bench::Write("copy tree", Members, "goal", "ms", Goal);
    }
    SetDisplay(nullptr);
}

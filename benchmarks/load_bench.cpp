#include "desktop/loading_dialog.h"
#include "editing/grid_pane.h"
#include "korvel/qt/qt_display.h"
#include "korvel/values/language.h"
#include "measure.h"

#include <QApplication>
#include <chrono>
#include <filesystem>
#include <fstream>

/// What the inspector takes until a terrain can be seen: in a thread of its own with progress, as it opens a
/// document, and without.

namespace {

using namespace korvel;
using namespace korvel::inspector;

constexpr int Points = 50'000; // and twice as many faces: about 4 MB
constexpr int Columns = 200;

void WriteTerrain(const std::string& path) {
    std::ofstream file(path, std::ios::binary);
    file << "<LandXML xmlns='http://www.landxml.org/schema/LandXML-1.2'><Surfaces><Surface name='Ground'>\n"
            "<Definition surfType='TIN'><Pnts>\n";
    for (int i = 0; i < Points; ++i)
        file << "<P id='" << i + 1 << "'>" << 6'700'000 + i / Columns << ".125 " << 385'000 + i % Columns
             << ".250 " << i % 97 << ".375</P>\n";
    file << "</Pnts><Faces>\n";
    for (int i = 1; i + Columns < Points; ++i)
        file << "<F>" << i << ' ' << i + 1 << ' ' << i + Columns << "</F>\n<F>" << i + 1 << ' ' << i + Columns
             << ' ' << i + Columns + 1 << "</F>\n";
    file << "</Faces></Definition></Surface></Surfaces></LandXML>\n";
}

// By the clock: what the user waits, on however many threads.
double MillisecondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

} // namespace

int main(int count, char** arguments) {
    QApplication application(count, arguments);
    SetLanguageForThisRun("English");
    qt::QtDisplay display;
    SetDisplay(&display);
    const std::string path = std::filesystem::temp_directory_path() / "korvel-load-bench.xml";
    WriteTerrain(path);
    {
        GridPane pane;
        const auto load = [&](bool withProgress) {
            std::unique_ptr<OpenDocument> shown;
            const auto read = [&](ReadingProgress* progress) {
                return ReadAndCheck(path, {}, pane.Observer(), progress);
            };
            const auto show = [&](CheckedDocument checked, ReadingProgress* progress) {
                pane.Show(*checked.document, progress);
                shown = std::move(checked.document);
            };
            const double figure = MillisecondsOf([&] {
                if (withProgress)
                    LoadingDialog(pane, {0, 0, 900, 600}).Run(read, show);
                else
                    show(read(nullptr), nullptr);
            });
            pane.Clear();
            return figure;
        };
        load(false); // so that neither pays for the memory
        std::array<double, bench::Runs> with{};
        std::array<double, bench::Runs> without{};
        for (int run = 0; run < bench::Runs; ++run) { // in turns, for the machine changes its pace
            with[static_cast<std::size_t>(run)] = load(true);
            without[static_cast<std::size_t>(run)] = load(false);
        }
        bench::Write("load terrain with progress", Points, "ours", "ms", bench::Median(with));
        bench::Write("load terrain with progress", Points, "without", "ms", bench::Median(without));
    }
    SetDisplay(nullptr);
    std::filesystem::remove(path);
}

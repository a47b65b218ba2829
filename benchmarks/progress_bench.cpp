// What a worker pays for each position that it shows: beside a QProgressBar that it sets by a blocking call.

#include "korvel/dialogs/dlg_progress.h"
#include "korvel/qt/qt_display.h"
#include "measure.h"

#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QProgressBar>
#include <chrono>
#include <thread>

namespace {

using namespace korvel;

constexpr int Positions = 10'000;

// Microseconds of a position by the clock; the event loop runs on this thread meanwhile.
double MeasureWorker(const std::function<void(int)>& setPosition) {
    QEventLoop loop;
    const auto start = std::chrono::steady_clock::now();
    std::thread worker([&] {
        for (int i = 1; i <= Positions; ++i)
            setPosition(i);
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec();
    const std::chrono::duration<double, std::micro> all = std::chrono::steady_clock::now() - start;
    worker.join();
    return all.count() / Positions;
}

double MeasureOurs() {
    CDlgProgress* dialog = NewDlgProgress(0, nullptr);
    dialog->SetRange(0, Positions);
    CreateDlgProgress(dialog, nullptr);
    const double figure = MeasureWorker([&](int position) { dialog->SetPos(position); });
    DeleteDlgProgress(dialog);
    return figure;
}

double MeasureQt() {
    QDialog dialog;
    dialog.resize(560, 108);
    QProgressBar bar(&dialog);
    bar.setGeometry(12, 12, 536, 21);
    bar.setRange(0, Positions);
    dialog.show();
    return MeasureWorker([&](int position) {
        QMetaObject::invokeMethod(
            &bar, [&, position] { bar.setValue(position); }, Qt::BlockingQueuedConnection);
    });
}

} // namespace

int main(int count, char** arguments) {
    QApplication application(count, arguments);
    qt::QtDisplay display;
    SetDisplay(&display);
    const auto write = [](const char* subject, auto measure) {
        bench::Write("position set by a worker", Positions, subject, "us", bench::MedianOf(measure));
    };
    write("ours", MeasureOurs);
    write("Qt", MeasureQt);
    write("goal", [] { return 100.0; }); // ten thousand a second
    SetDisplay(nullptr);
}

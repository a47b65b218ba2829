// The event list beside QTableWidget: messages that come one by one, the newest on top.

#include "event_scenario.h"
#include "korvel/events/event_queue.h"
#include "korvel/events/event_sink_observer.h"
#include "korvel/events/grid_events.h"
#include "korvel/output/dates.h"
#include "korvel/qt/qt_display.h"
#include "korvel/values/language.h"
#include "measure.h"

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QPainter>
#include <QTableWidget>
#include <cstdlib>
#include <memory>
#include <string>

namespace {

using namespace korvel;

constexpr int Width = 900;
constexpr int Height = 600;
constexpr double Milliseconds = 1e3;

class ShownList {
public:
    explicit ShownList(const qt::QtDisplay& display) : m_display(display) {
        m_frame.CreateEx(0, "KorvelFrame", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {0, 0, Width, Height},
                         nullptr, 0);
        list.Create(WS_CHILD | WS_VISIBLE, {0, 0, Width, Height}, &m_frame, 105);
        list.CreateHeader();
        QApplication::processEvents();
    }

    // Messages of the past, `step` seconds apart.
    void Fill(long count, long step) {
        for (long i = 0; i < count; ++i) {
            CEventMessage message = bench::EventOf(i);
            message.m_Time = bench::FirstMoment + i * step;
            message.m_Date += static_cast<double>(i * step) / bench::SecondsOfADay;
            list.OnAddEvent(message);
        }
        QApplication::processEvents();
    }

    void Paint() {
        QWidget* widget = m_display.WidgetOf(list.m_hWnd);
        QImage picture(widget->size(), QImage::Format_RGB32);
        widget->render(&picture);
        bench::Keep(picture);
    }

private:
    const qt::QtDisplay& m_display;
    CWnd m_frame;

public:
    CGridEvents list; // goes before its parent
};

using Messages = std::vector<CEventMessage>;

double SecondsToAdd(const qt::QtDisplay& display, const Messages& messages) {
    ShownList shown(display);
    return bench::CpuSecondsOf([&] {
        for (const CEventMessage& message : messages)
            shown.list.OnAddEvent(message);
    });
}

double SecondsToAddToTable(const Messages& messages) {
    QTableWidget table(0, 5);
    table.setHorizontalHeaderLabels({"Type", "Date", "Time", "Source", "Event"});
    table.verticalHeader()->hide();
    table.resize(Width, Height);
    table.show();
    QApplication::processEvents();
    return bench::CpuSecondsOf([&] {
        for (const CEventMessage& message : messages) {
            table.insertRow(0);
            int column = 0;
            for (const std::string& text : bench::CellsOf(message))
                table.setItem(0, column++, new QTableWidgetItem(QString::fromStdString(text)));
        }
    });
}

void MeasureMany(const qt::QtDisplay& display, long count) {
    const double heap = bench::HeapBytes();
    ShownList shown(display);
    shown.Fill(count, 1);
    bench::Write("event memory of a message", count, "ours", "bytes",
                 (bench::HeapBytes() - heap) / static_cast<double>(count));
    shown.Paint(); // fonts are loaded
    bench::Write("event paint a screen", count, "ours", "ms",
                 bench::MedianOf([&] { return Milliseconds * bench::CpuSecondsOf([&] { shown.Paint(); }); }));
    bench::Write("event paint a screen", count, "goal", "ms", 10);
    EventFilter filter;
    filter.SetText("station 77");
    bench::Write("event filter by text", count, "ours", "ms", bench::MedianOf([&] {
                     shown.list.SetFilter({});
                     return Milliseconds * bench::CpuSecondsOf([&] { shown.list.SetFilter(filter); });
                 }));
    bool isLong = false;
    bench::Write("event new date format, each its second", count, "ours", "ms", bench::MedianOf([&] {
                     isLong = !isLong;
                     return Milliseconds * bench::CpuSecondsOf([&] {
                                SetDateCurrentFormatString(isLong, isLong ? "%d.%m.%Y" : "%#d.%#m.%y");
                            });
                 }));
    bench::Write("event clear", count, "ours", "ms",
                 Milliseconds * bench::CpuSecondsOf([&] { shown.list.OnClearEvent(); }));
}

// What a report costs the thread that makes it, and the windows' thread.
void MeasureQueue(const qt::QtDisplay& display, long count) {
    ShownList shown(display);
    CEventSinkObserver source;
    source.AddSink(&shown.list);
    EventQueue queue(source);
    const double reported = bench::CpuSecondsOf([&] {
        for (long i = 0; i < count; ++i)
            queue.AddInfoMsg("Import", "Axis has no points");
    });
    bench::Write("event report to the queue", count, "ours", "ms", Milliseconds * reported);
    bench::Write("event hand over from the queue", count, "ours", "ms",
                 Milliseconds * bench::CpuSecondsOf([&] { queue.HandOver(); }));
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    SetLanguageForThisRun("English");
    const long added = argc > 1 ? std::atol(argv[1]) : 100'000;
    const long many = argc > 2 ? std::atol(argv[2]) : 1'000'000;
    const Messages messages = bench::EventsOf(added);
    {
        qt::QtDisplay display;
        SetDisplay(&display);
        bench::Write("event add on top", added, "ours", "ms",
                     bench::MedianOf([&] { return Milliseconds * SecondsToAdd(display, messages); }));
        MeasureMany(display, many);
        MeasureQueue(display, added);
        SetDisplay(nullptr);
    }
    bench::Write("event add on top", added, "QTableWidget", "ms",
                 bench::MedianOf([&] { return Milliseconds * SecondsToAddToTable(messages); }));
    return 0;
}

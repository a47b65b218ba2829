// What a grid of many rows costs while a screen reader or test tool reads it. The bus between the two is left
// out: it is the desktop's.

#include "korvel/grid/editable_grid.h"
#include "korvel/qt/announcer.h"
#include "korvel/qt/embed.h"
#include "korvel/qt/qt_display.h"
#include "korvel/window/list/list_ctrl.h"
#include "live_objects.h"
#include "measure.h"

#include <QApplication>
#include <QWidget>
#include <array>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string_view>

namespace {

using korvel::internal::Announcer;

constexpr int Groups = 100;
constexpr long Members = 1000000;
constexpr int ReadCells = 10000; // that the client keeps
constexpr double MostMilliseconds = 150;
constexpr double MostMicroseconds = 1000; // of a question
constexpr double LongestStall = 200;      // milliseconds

// A grid with the focus, and what somebody who does not see it asks of it.
class ReadGrid {
public:
    explicit ReadGrid(bench::LiveRoot& root) : m_grid(nullptr, nullptr) {
        m_frame.CreateEx(0, "KorvelFrame", "", korvel::WS_OVERLAPPEDWINDOW, {0, 0, 600, 800}, nullptr, 0);
        m_grid.Create(korvel::WS_CHILD | korvel::WS_VISIBLE | korvel::LVS_REPORT | korvel::LVS_SINGLESEL,
                      {0, 0, 600, 800}, &m_frame, 105);
        m_widget.reset(korvel::qt::Embed(m_frame.m_hWnd));
        m_widget->resize(600, 800);
        m_widget->show();
        m_widget->activateWindow();
        m_grid.SetFocus();
        m_grid.Initialize(&root, "Name", "Value", 0);
        Choose(0);
        QApplication::processEvents();
    }

    korvel::CEditableGrid& Grid() { return m_grid; }
    QAccessibleInterface& Tree(const korvel::qt::QtDisplay& display) {
        return *QAccessible::queryAccessibleInterface(display.WidgetOf(m_grid.m_hWnd));
    }
    void Choose(int row) {
        constexpr korvel::UINT State = korvel::LVIS_SELECTED | korvel::LVIS_FOCUSED;
        m_grid.SetItemState(row, State, State);
    }

private:
    korvel::CWnd m_frame;
    korvel::CEditableGrid m_grid;
    std::unique_ptr<QWidget> m_widget;
};

double Milliseconds(const std::function<void()>& work) {
    return 1e3 * bench::CpuSecondsOf([&] {
               work();
               QApplication::processEvents();
           });
}

// Everything that is asked of a cell when a reader comes to it.
void Ask(QAccessibleInterface& tree, int row) {
    QAccessibleInterface* cell = tree.tableInterface()->cellAt(row, 0);
    bench::Keep(cell->text(QAccessible::Name));
    bench::Keep(cell->text(QAccessible::Description));
    bench::Keep(cell->state());
    bench::Keep(cell->rect());
    bench::Keep(tree.indexOfChild(cell));
}

void WriteWithGoal(const char* operation, const char* unit, double figure, double goal) {
    bench::Write(operation, Members, "ours", unit, figure);
    bench::Write(operation, Members, "goal", unit, goal);
}

// Once with a client that holds cells and hears what is announced, once without one.
void MeasureRows(const korvel::qt::QtDisplay& display, bench::LiveRoot& root) {
    std::array<double, bench::Runs> expanded{}, collapsed{}, chosen{};
    for (std::size_t run = 0; run < bench::Runs; ++run) {
        long heard = 0;
        Announcer::SetListener([&](QAccessibleEvent&) { ++heard; });
        ReadGrid read(root);
        for (int row = 0; row < Groups; ++row)
            Ask(read.Tree(display), row);
        expanded[run] = Milliseconds([&] { read.Grid().ExpandAll(); });
        for (int cell = 0; cell < ReadCells; ++cell)
            Ask(read.Tree(display), cell * static_cast<int>(Members / ReadCells));
        constexpr int Choices = 1000;
        heard = 0;
        chosen[run] = Milliseconds([&] {
                          for (int choice = 0; choice < Choices; ++choice) {
                              read.Choose(choice);
                              QApplication::processEvents();
                          }
                      }) *
                      1e3 / Choices;
        if (heard < Choices)
            std::abort(); // nothing was measured
        collapsed[run] = Milliseconds([&] { read.Grid().CollapseAll(); });
        Announcer::SetListener({});
    }
    WriteWithGoal("read expand all", "ms", bench::Median(expanded), MostMilliseconds);
    WriteWithGoal("read collapse all", "ms", bench::Median(collapsed), MostMilliseconds);
    WriteWithGoal("read announce a choice", "us", bench::Median(chosen), MostMicroseconds);
}

void MeasureQuestions(const korvel::qt::QtDisplay& display, bench::LiveRoot& root) {
    ReadGrid read(root);
    read.Grid().ExpandAll();
    QAccessibleInterface& tree = read.Tree(display);
    const int last = read.Grid().GetItemCount() - 1;
    int row = 0;
    WriteWithGoal("read a cell", "us",
                  bench::NanosecondsPerCall([&] { Ask(tree, row = (row + 7919) % ReadCells); }) / 1e3,
                  MostMicroseconds);
    WriteWithGoal("read the last cell", "us", bench::NanosecondsPerCall([&] { Ask(tree, last); }) / 1e3,
                  MostMicroseconds);
    WriteWithGoal("read all children", "ms", Milliseconds([&] {
                      const int count = tree.childCount();
                      for (int index = 0; index < count; ++index)
                          bench::Keep(tree.child(index));
                  }),
                  LongestStall);
}

// Every other row leaves, with a client that keeps all cells and without one.
void MeasureRowsThatLeaveApart(const korvel::qt::QtDisplay& display) {
    constexpr int Rows = 65536;
    korvel::CWnd frame;
    frame.CreateEx(0, "KorvelFrame", "", korvel::WS_OVERLAPPEDWINDOW, {0, 0, 600, 800}, nullptr, 0);
    korvel::CListCtrl list;
    list.Create(korvel::WS_CHILD | korvel::WS_VISIBLE | korvel::LVS_REPORT, {0, 0, 600, 800}, &frame, 105);
    list.InsertColumn(0, "Name", 100);
    list.InsertColumn(1, "Value", 100);
    const std::unique_ptr<QWidget> widget(korvel::qt::Embed(frame.m_hWnd));
    widget->show();
    for (const char* subject : {"without", "ours"}) {
        const bool isRead = subject == std::string_view("ours");
        const double figure = bench::MedianOf([&] {
            list.DeleteAllItems();
            for (int row = 0; row < Rows; ++row)
                list.InsertItem(row, "name");
            QAccessibleInterface& tree =
                *QAccessible::queryAccessibleInterface(display.WidgetOf(list.m_hWnd));
            for (int row = 0; isRead && row < Rows; ++row)
                for (const int column : {0, 1})
                    bench::Keep(tree.tableInterface()->cellAt(row, column));
            return Milliseconds([&] {
                for (int row = 0; row < Rows / 2; ++row)
                    list.DeleteItem(row);
            });
        });
        bench::Write("read rows that leave apart", Rows, subject, "ms", figure);
    }
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    korvel::qt::QtDisplay display;
    korvel::SetDisplay(&display);
    bench::LiveRoot root(Groups, Members);
    MeasureRows(display, root);
    MeasureQuestions(display, root);
    MeasureRowsThatLeaveApart(display);
    korvel::SetDisplay(nullptr);
}

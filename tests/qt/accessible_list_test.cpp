// A list as screen readers and test tools see it. Offscreen nobody listens, so that announcements are heard by
// the test itself.

#include "korvel/qt/embed.h"
#include "korvel/qt/list_interface.h"
#include "korvel/window/controls/edit.h"
#include "korvel/window/list/list_ctrl.h"
#include "qt/accessible_list.h"
#include "support/table.h"

#include <QPointer>
#include <QVBoxLayout>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>
#include <random>

namespace korvel::test {
namespace {

using internal::ListInterface;

class AccessibleList : public DesktopTest<> {
protected:
    AccessibleList() { Make(LVS_SINGLESEL); }

    void Make(UINT style) {
        list.DestroyWindow();
        nextData = 0;
        list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | style, {10, 10, 300, 200}, &m_frame, 105);
        list.SetTextSource([this](LPARAM data, int column) {
            return (column == 0 ? "row " : valueWord) + std::to_string(data);
        });
        list.InsertColumn(0, "Name", 100);
        list.InsertColumn(1, "Value", 100);
        Insert(0, 10);
        list.SetFocus();
    }
    void Insert(int row, int count) {
        std::vector<LPARAM> data(static_cast<std::size_t>(count));
        std::iota(data.begin(), data.end(), nextData);
        nextData += count;
        internal::InsertModelRows(list.m_hWnd, row, data.data(), count, 0);
    }
    void Choose(int row) {
        constexpr UINT State = LVIS_SELECTED | LVIS_FOCUSED;
        list.SetItemState(row, State, State);
    }
    void Remove(int first, int last) { internal::DeleteModelRows(list.m_hWnd, first, last); }
    QAccessibleInterface& Tree() const { return blind.Of(list.m_hWnd); }
    QAccessibleInterface* Cell(int row, int column) const { return blind.Cell(list.m_hWnd, row, column); }

    LPARAM nextData = 0;
    std::string valueWord = "value ";
    BlindUser blind{m_user};
    CListCtrl list;
};

TEST_F(AccessibleList, IsATreeWithATableBehind) {
    EXPECT_EQ(Tree().role(), QAccessible::Tree);
    EXPECT_EQ(Tree().childCount(), 22);
    EXPECT_EQ(BlindUser::Name(Tree().child(1)), QStringLiteral("Value"));
    EXPECT_EQ(Tree().child(1)->role(), QAccessible::ColumnHeader);
    QAccessibleInterface* cell = Tree().child(2 + 2 * 3 + 1);
    EXPECT_EQ(BlindUser::Name(cell), QStringLiteral("value 3"));
    EXPECT_EQ(cell->text(QAccessible::Description), QStringLiteral("row 3"));
    EXPECT_EQ(Cell(3, 0)->text(QAccessible::Description), QStringLiteral("value 3"));
    EXPECT_EQ(cell, Cell(3, 1)) << "one interface for each cell";
    EXPECT_EQ(cell->parent(), &Tree());
    EXPECT_EQ(Tree().indexOfChild(cell), 9);
    EXPECT_EQ(cell->tableCellInterface()->rowHeaderCells(), QList{Cell(3, 0)});
    EXPECT_EQ(cell->tableCellInterface()->columnHeaderCells(), QList{Tree().child(1)});
    const QPoint middle = cell->rect().center();
    EXPECT_EQ(Tree().childAt(middle.x(), middle.y()), cell);
    const QPoint title = Tree().child(1)->rect().center();
    EXPECT_EQ(Tree().childAt(title.x(), title.y()), Tree().child(1)) << "not the widget that draws it";
}

TEST_F(AccessibleList, NoSuchCellIsNone) {
    constexpr int Farthest = std::numeric_limits<int>::max();
    constexpr int Lowest = std::numeric_limits<int>::min();
    for (const int index : {-1, Lowest, 22, Farthest})
        EXPECT_EQ(Tree().child(index), nullptr) << index;
    for (const auto& [row, column] : {std::pair(-1, -1),
                                      {-1, 0},
                                      {0, -1},
                                      {10, 0},
                                      {0, 2},
                                      {Farthest, Farthest},
                                      {Lowest, 0},
                                      {Farthest, 1}})
        EXPECT_EQ(Cell(row, column), nullptr) << row << ", " << column;
    QAccessibleTableInterface& table = blind.Table(list.m_hWnd);
    for (const int row : {-1, 10, Farthest, Lowest}) {
        EXPECT_FALSE(table.isRowSelected(row) || table.selectRow(row));
        EXPECT_EQ(table.rowDescription(row) + table.columnDescription(row), QString());
    }
    EXPECT_EQ(Tree().indexOfChild(nullptr), -1);
    EXPECT_EQ(Tree().childAt(-9999, 0), nullptr);
    list.DeleteColumn(1);
    list.DeleteColumn(0);
    EXPECT_EQ(Tree().childCount(), 0);
    EXPECT_EQ(Tree().child(0), nullptr);
}

TEST_F(AccessibleList, ACellKeepsItsIdentityUntilItsRowGoes) {
    const QAccessible::Id fifth = QAccessible::uniqueId(Cell(5, 1));
    const QAccessible::Id title = QAccessible::uniqueId(Tree().child(1));
    const auto nameOf = [](QAccessible::Id id) {
        QAccessibleInterface* cell = QAccessible::accessibleInterface(id);
        return cell && cell->isValid() ? BlindUser::Name(cell) : QStringLiteral("gone");
    };
    Insert(0, 3);
    Remove(1, 2);
    Insert(9, 2);
    EXPECT_EQ(nameOf(fifth), QStringLiteral("value 5"));
    EXPECT_EQ(QAccessible::uniqueId(Cell(7, 1)), fifth);
    EXPECT_EQ(nameOf(title), QStringLiteral("Value"));
    Remove(7, 8);
    EXPECT_EQ(nameOf(fifth), QStringLiteral("gone"));
    EXPECT_EQ(Tree().indexOfChild(QAccessible::accessibleInterface(fifth)), -1);
    EXPECT_NE(QAccessible::uniqueId(Cell(7, 1)), fifth);
    QApplication::processEvents();
    EXPECT_EQ(QAccessible::accessibleInterface(fifth), nullptr);
}

TEST_F(AccessibleList, ARowThatIsGivenToAnotherNodeIsAnotherOne) {
    QAccessibleInterface* former = Cell(2, 0);
    list.SetItemData(2, 77);
    EXPECT_FALSE(former->isValid());
    EXPECT_EQ(BlindUser::Name(former), QString());
    QAccessibleInterface* now = Cell(2, 0);
    EXPECT_NE(now, former);
    EXPECT_EQ(BlindUser::Name(now), QStringLiteral("row 77"));
}

TEST_F(AccessibleList, CellsEndWithTheirList) {
    const QAccessible::Id cell = QAccessible::uniqueId(Cell(2, 0));
    const QAccessible::Id tree = QAccessible::uniqueId(&Tree());
    list.DestroyWindow();
    if (QAccessibleInterface* left = QAccessible::accessibleInterface(cell))
        EXPECT_FALSE(left->isValid());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(QAccessible::accessibleInterface(cell), nullptr);
    EXPECT_EQ(QAccessible::accessibleInterface(tree), nullptr);
}

// What was asked is still there, as whoever asks goes on with it.
TEST_F(AccessibleList, TheHostMayDieInsideAQuestion) {
    struct MeddlingList final : CListCtrl {
        UINT at = 0;
        std::function<void()> act;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            const LRESULT result = CListCtrl::WindowProc(message, wParam, lParam);
            if (const auto now = message == at ? std::exchange(act, nullptr) : nullptr)
                now();
            return result;
        }
    };
    using Question = std::function<void(QAccessibleInterface&)>;
    const auto cellOf = [](auto& tree) { return tree.tableInterface()->cellAt(0, 0); };
    for (const auto& [border, message, ask] : Table<UINT, Question>{
             {"children", LVM_KORVEL_READLIST, [](auto& tree) { tree.childCount(); }},
             {"a child", LVM_KORVEL_READCELL, [](auto& tree) { tree.child(3); }},
             {"a point", LVM_KORVEL_READCELL, [](auto& tree) { tree.childAt(60, 60); }},
             {"a text", LVM_KORVEL_READLIST,
              [=](auto& tree) { cellOf(tree)->text(QAccessible::Description); }},
             {"a state", LVM_KORVEL_READLIST, [=](auto& tree) { cellOf(tree)->state(); }},
             {"selected", LVM_GETNEXTITEM, [](auto& tree) { tree.tableInterface()->selectedCells(); }},
             {"chosen", LVM_KORVEL_CHOOSECELL, [](auto& tree) { tree.tableInterface()->selectRow(0); }}}) {
        CWnd pane;
        MeddlingList inside;
        pane.CreateEx(0, "KorvelFrame", "", 0, {0, 0, 200, 200}, nullptr, 0);
        inside.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 0, 200, 200}, &pane, 1);
        inside.InsertColumn(0, "Name", 100);
        inside.InsertColumn(1, "Value", 50);
        inside.InsertItem(0, "a");
        inside.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
        auto* host = new QWidget;
        host->setLayout(new QVBoxLayout);
        host->layout()->addWidget(qt::Embed(pane.m_hWnd));
        host->show();
        const QPointer<QWidget> surface = m_user.Widget(inside.m_hWnd);
        inside.at = message;
        inside.act = [&] { delete host; };
        ask(blind.Of(inside.m_hWnd));
        EXPECT_EQ(inside.m_hWnd, nullptr) << border;
        EXPECT_TRUE(surface) << border;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(surface) << border;
    }
}

TEST_F(AccessibleList, TheHostMayRunAnEventLoopInsideAQuestion) {
    QAccessibleInterface* cell = Cell(5, 1);
    const QAccessible::Id id = QAccessible::uniqueId(cell);
    list.SetTextSource([this](LPARAM, int) {
        list.SetTextSource([](LPARAM, int) { return "anew"; });
        Remove(5, 6);
        Cell(0, 0); // the screen reader asks on
        QApplication::processEvents();
        return "late";
    });
    EXPECT_EQ(cell->text(QAccessible::Name), QString());
    EXPECT_EQ(QAccessible::accessibleInterface(id), cell);
    EXPECT_FALSE(cell->isValid());
    Cell(0, 0);
    QApplication::processEvents();
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

TEST_F(AccessibleList, AClientThatAsksForEverythingGetsWhatIsCounted) {
    constexpr int Many = 1000000;
    Insert(10, Many);
    EXPECT_EQ(Tree().childCount(), ListInterface::MostChildren);
    EXPECT_EQ(blind.Table(list.m_hWnd).rowCount(), Many + 10);
    EXPECT_EQ(BlindUser::Name(Cell(Many, 1)), QStringLiteral("value 1000000")) << "not counted, but there";
    const QAccessible::Id first = QAccessible::uniqueId(Tree().child(0));
    for (int index = 0; index < Tree().childCount(); ++index)
        ASSERT_NE(Tree().child(index), nullptr);
    EXPECT_EQ(QAccessible::uniqueId(Tree().child(0)), first) << "as many as are counted are kept";
    for (int row = 0; row < ListInterface::MostChildren; ++row)
        ASSERT_NE(Cell(500000 + row, 1), nullptr);
    QApplication::processEvents();
    EXPECT_EQ(QAccessible::accessibleInterface(first), nullptr)
        << "the half that was asked for first is dropped";
    EXPECT_EQ(BlindUser::Name(Tree().child(0)), QStringLiteral("Name"));
    EXPECT_EQ(Tree().indexOfChild(Cell(Many, 1)), 2 * Many + 3);
}

TEST_F(AccessibleList, RowsAreChosenAndCheckedByActions) {
    Make(0);
    Insert(10, 20);
    list.SetExtendedStyle(LVS_EX_CHECKBOXES);
    BlindUser::Do(Cell(20, 1), "SetFocus");
    EXPECT_EQ(blind.Table(list.m_hWnd).selectedRows(), QList<int>{20});
    EXPECT_TRUE(Cell(20, 0)->state().selected && Cell(20, 0)->state().checkable);
    EXPECT_FALSE(Cell(20, 0)->state().offscreen) << "brought into view";
    EXPECT_TRUE(Cell(list.GetTopIndex() - 1, 0)->state().offscreen) << "under the titles";
    BlindUser::Do(Cell(3, 0), "Toggle");
    EXPECT_TRUE(list.GetCheck(3));
    EXPECT_TRUE(Cell(3, 0)->state().checked && Tree().state().multiSelectable);
    EXPECT_TRUE(blind.Table(list.m_hWnd).selectRow(4));
    EXPECT_EQ(Tree().focusChild(), Cell(4, 0));
    list.EnableWindow(false);
    EXPECT_TRUE(Cell(4, 0)->state().disabled);
    BlindUser::Do(Cell(5, 0), "SetFocus");
    EXPECT_FALSE(list.GetItemState(5, LVIS_SELECTED));
}

TEST_F(AccessibleList, AnActionMayEndTheListThatItIsDoneIn) {
    struct Parent : CWnd {
        bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
            if (reinterpret_cast<const NMHDR*>(lParam)->code == LVN_ITEMCHANGED)
                doomed->DestroyWindow();
            return CWnd::OnNotify(wParam, lParam, result);
        }
        CListCtrl* doomed = nullptr;
    } parent;
    parent.CreateEx(0, "KorvelFrame", "", WS_CHILD | WS_VISIBLE, {0, 0, 200, 200}, &m_frame, 7);
    CListCtrl doomed;
    parent.doomed = &doomed;
    doomed.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 0, 200, 200}, &parent, 8);
    doomed.InsertColumn(0, "Name", 100);
    doomed.InsertItem(0, "only");
    BlindUser::Do(blind.Cell(doomed.m_hWnd, 0, 0), "Press");
    EXPECT_EQ(doomed.m_hWnd, nullptr);
}

TEST_F(AccessibleList, AnActionThatMayNotComeToItsRowIsNotDoneElsewhere) {
    struct Parent : CWnd {
        bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
            const auto& change = *reinterpret_cast<const NMLISTVIEW*>(lParam);
            if (change.hdr.code != LVN_ITEMCHANGING || change.iItem == 0)
                return CWnd::OnNotify(wParam, lParam, result);
            *result = 1;
            return true;
        }
    } parent;
    parent.CreateEx(0, "KorvelFrame", "", WS_CHILD | WS_VISIBLE, {0, 0, 200, 200}, &m_frame, 7);
    Choose(0);
    list.SetExtendedStyle(LVS_EX_CHECKBOXES);
    SetParent(list.m_hWnd, parent.m_hWnd);
    BlindUser::Do(Cell(1, 0), "Toggle");
    EXPECT_FALSE(list.GetCheck(0) || list.GetCheck(1));
    list.DestroyWindow();
}

TEST_F(AccessibleList, OnlyTheCellOfTheUserIsAnnouncedOnceATurn) {
    Ear ear;
    Choose(1);
    EXPECT_EQ(ear.Take(), "focus row 1|selected row 1");
    for (const auto& [border, act, heard] : Table<std::function<void()>, std::string>{
             {"nothing new", [&] { list.Invalidate(); }, ""},
             {"many steps", [&] { Choose(2), Choose(3), Choose(4); }, "focus row 4|selected row 4"},
             {"another row's text", [&] { list.RedrawItems(0, 1); }, ""},
             {"rows above", [&] { Insert(0, 5); }, ""},
             {"its value", [&] { valueWord = "new ", list.RedrawItems(9, 9); }, "description row 4"},
             {"it goes", [&] { Remove(9, 10); }, "focus row 5"}}) {
        act();
        EXPECT_EQ(ear.Take(), heard) << border;
    }
}

TEST_F(AccessibleList, TheUserIsInTheEditorAndThenInTheRowAgain) {
    Make(LVS_EDITLABELS);
    Ear ear;
    Choose(1);
    ear.Take();
    const HWND edit = list.EditLabel(1);
    ASSERT_TRUE(edit);
    EXPECT_EQ(ear.Take(), "") << "the field tells of itself";
    EXPECT_EQ(Tree().child(0), &blind.Of(edit)) << "before the cells";
    EXPECT_EQ(blind.Of(edit).text(QAccessible::Name), QStringLiteral("row 1"));
    EXPECT_EQ(Tree().focusChild(), &blind.Of(edit));
    list.CancelEditLabel();
    EXPECT_EQ(ear.Take(), "focus row 1|selected row 1");
    EXPECT_EQ(Tree().childCount(), 22);
}

TEST_F(AccessibleList, NothingIsAnnouncedWhileTheUserIsElsewhere) {
    Choose(1);
    CEdit field;
    field.Create(WS_CHILD | WS_VISIBLE, {320, 10, 400, 30}, &m_frame, 9);
    field.SetFocus();
    Ear ear;
    Choose(3);
    EXPECT_EQ(ear.Take(), "");
    list.SetFocus();
    EXPECT_EQ(ear.Take(), "focus row 3|selected row 3");
}

// The rows are those of a model that is kept beside: whatever is asked in between, each interface that was kept
// is of its row or ended.
TEST_F(AccessibleList, InterfacesHoldThroughAnyChanges) {
    constexpr int Changes = 10000;
    std::mt19937 random(5);
    const auto below = [&](int end) {
        return static_cast<int>(random() % static_cast<unsigned>(std::max(end, 1)));
    };
    std::vector<LPARAM> rows(10);
    std::iota(rows.begin(), rows.end(), 0);
    std::map<LPARAM, QAccessible::Id> held; // by the data of the row, which is unique
    Ear ear;
    for (int change = 0; change < Changes; ++change) {
        const int size = static_cast<int>(rows.size());
        const int first = below(size + 1);
        switch (below(6)) {
        case 0:
        case 1: {
            const int count = below(size < 200 ? 20 : 3);
            std::vector<LPARAM> added(static_cast<std::size_t>(count));
            std::iota(added.begin(), added.end(), nextData);
            rows.insert(rows.begin() + first, added.begin(), added.end());
            Insert(first, count);
            break;
        }
        case 2: {
            const int last = first + below(std::min(size - first, 15) + 1);
            rows.erase(rows.begin() + first, rows.begin() + last);
            below(2) ? Remove(first, last) : static_cast<void>(list.DeleteRows(first, last));
            break;
        }
        case 3:
            if (first < size)
                Choose(first);
            break;
        case 4:
            if (first < size)
                held[rows[static_cast<std::size_t>(first)]] = QAccessible::uniqueId(Cell(first, below(2)));
            break;
        default:
            below(50) == 0 ? QApplication::processEvents()
                           : static_cast<void>(Tree().child(below(2 * size + 8)));
        }
        if (change % 100 != 0)
            continue;
        ASSERT_EQ(list.GetItemCount(), static_cast<int>(rows.size()));
        for (const auto& [data, id] : held) {
            QAccessibleInterface* cell = QAccessible::accessibleInterface(id);
            const auto row = std::find(rows.begin(), rows.end(), data);
            ASSERT_EQ(cell && cell->isValid(), row != rows.end()) << "change " << change << ", row " << data;
            if (row == rows.end())
                continue;
            ASSERT_EQ(cell->tableCellInterface()->rowIndex(), row - rows.begin());
            ASSERT_TRUE(BlindUser::Name(cell).endsWith(QString::number(data)));
        }
    }
}

} // namespace
} // namespace korvel::test

#include "korvel/platform/error.h"
#include "support/list_fixture.h"

namespace korvel {
namespace {

class ListRows : public ListTest {};

TEST_F(ListRows, TextsAreStoredOrAskedForAndMoveWithTheirColumns) {
    MakeList(1);
    list.SetTextSource([](LPARAM data, int column) { return std::to_string(data * 10 + column); });
    InsertRows(1, {4, 5});
    list.SetItemText(2, 0, "own");
    list.SetItemText(0, 1, "value");
    EXPECT_FALSE(list.SetItemText(0, 2, "no such column"));
    for (const auto& [border, act, texts] : Table<std::function<void()>, std::string>{
             {"stored and asked for", [] {}, "row 0,value, 40,41,42 own,, "},
             {"a column in the middle", [this] { list.InsertColumn(1, "", 9); },
              "row 0,,value 40,41,42 own,, "},
             {"and away", [this] { list.DeleteColumn(1); }, "row 0,value, 40,41,42 own,, "},
             {"the labels stay without column 0", [this] { list.DeleteColumn(0); },
              "row 0,value, 40,41,42 own,, "},
             {"and with a new one", [this] { list.InsertColumn(0, "", 9); },
              "row 0,value, 40,41,42 own,, "}}) {
        act();
        std::string rows;
        for (int cell = 0; cell < 9; ++cell)
            rows += list.GetItemText(cell / 3, cell % 3) + (cell % 3 == 2 ? " " : ",");
        EXPECT_EQ(rows, texts) << border;
    }
}

TEST_F(ListRows, AnInsertionIsToldAndMayBeTakenBackByItsHandler) {
    MakeList(1);
    EXPECT_EQ(list.InsertItem(99, "last"), 1);
    EXPECT_EQ(list.InsertRow(0, {}), 0);
    EXPECT_EQ(list.InsertItem(-1, "refused"), -1);
    EXPECT_EQ(parent.Take(), (Notices{"insert 1", "insert 0"}));
    parent.on[LVN_INSERTITEM] = [this](const auto&) { return list.DeleteAllItems(); };
    EXPECT_EQ(list.InsertItem(1, "gone again"), 1);
    EXPECT_EQ(list.GetItemCount(), 0);
}

TEST_F(ListRows, ATextIsToldBeforeAndAfterItChanges) {
    MakeList(3);
    const auto log = [this](const NMLISTVIEW& notice) -> LRESULT {
        EXPECT_EQ(notice.uChanged, LVIF_TEXT);
        EXPECT_EQ(notice.iSubItem, 1);
        parent.notices.push_back(list.GetItemText(notice.iItem, 1));
        return 0;
    };
    parent.on = {{LVN_ITEMCHANGING, log}, {LVN_ITEMCHANGED, log}};
    EXPECT_TRUE(list.SetItemText(2, 1, "new"));
    EXPECT_EQ(parent.Take(), (Notices{"changing 2", "", "changed 2", "new"}));
    parent.on[LVN_ITEMCHANGING] = [](const auto&) { return 1; };
    EXPECT_FALSE(list.SetItemText(2, 1, "refused"));
    EXPECT_EQ(list.GetItemText(2, 1), "new");
    parent.on[LVN_ITEMCHANGING] = [this](const auto&) { return !list.DeleteItem(0); };
    EXPECT_TRUE(list.SetItemText(2, 1, "followed"));
    EXPECT_EQ(list.GetItemText(1, 1), "followed");
}

TEST_F(ListRows, DeletingDeselectsTellsFromTheLastRowUpAndMovesTheFocus) {
    for (const auto& [border, selected, first, last, notices, focusAfter] :
         Table<int, int, int, Notices, int>{
             {"the next row takes its place", 1, 1, 2, {"changing 1", "changed 1", "delete 1"}, 1},
             {"the last one has no next", 4, 4, 5, {"changing 4", "changed 4", "delete 4"}, 3},
             {"a range", 2, 1, 4, {"delete 3", "changing 2", "changed 2", "delete 2", "delete 1"}, 1},
             {"reaching beyond the rows: nothing happens", 2, 3, 6, {}, 2}}) {
        MakeList(5);
        Choose(selected);
        parent.notices.clear();
        parent.on[LVN_ITEMCHANGED] = [this](const NMLISTVIEW& notice) -> LRESULT {
            EXPECT_EQ(notice.uOldState, Both);
            EXPECT_EQ(notice.uNewState | list.GetItemState(notice.iItem, Both), 0u);
            return 0;
        };
        EXPECT_EQ(list.DeleteRows(first, last), !notices.empty()) << border;
        EXPECT_EQ(parent.Take(), notices) << border;
        EXPECT_EQ(Selected().empty(), !notices.empty()) << border;
        EXPECT_EQ(Focused(), focusAfter) << border;
    }
}

TEST_F(ListRows, RowsOfAModelComeAndGoQuietly) {
    MakeList(6, LVS_EDITLABELS);
    Choose(3);
    ASSERT_TRUE(list.SendMessageA(LVM_EDITLABEL, 3));
    EXPECT_FALSE(DeleteRowsQuietly(4, 7));
    parent.notices.clear();
    std::string told;
    parent.on[LVN_ENDLABELEDIT] = [&](const auto&) { return told += Labels(), 0; };
    EXPECT_TRUE(DeleteRowsQuietly(2, 5));
    EXPECT_EQ(told, "row 0,row 1,row 5") << "the edit ends when its row is gone";
    EXPECT_EQ(list.GetEditControl(), nullptr);
    EXPECT_EQ(Focused(), 2);
    EXPECT_EQ(Selected(), Rows{});
    Select(2);
    parent.notices.clear();
    EXPECT_EQ(InsertRows(0, {7, 8}, 3), 0);
    EXPECT_EQ(parent.Take(), Notices{});
    EXPECT_EQ(Selected(), Rows{4});
    EXPECT_EQ(Focused(), 4);
    EXPECT_EQ(list.GetItemData(1), 8);
    EXPECT_EQ(list.GetItemIndent(0), 3);
}

TEST_F(ListRows, TheAnswerToDeleteAllSuppressesTheSingleNotices) {
    const Notices single{"delete all -1", "delete 2", "delete 1", "delete 0"};
    for (const bool quiet : {false, true}) {
        MakeList(3);
        Choose(1); // no notice of a state
        parent.notices.clear();
        parent.on[LVN_DELETEALLITEMS] = [=](const auto&) { return quiet; };
        list.DeleteAllItems();
        EXPECT_EQ(parent.Take(), quiet ? Notices{"delete all -1"} : single);
        EXPECT_EQ(list.GetItemCount(), 0);
    }
}

TEST_F(ListRows, AHandlerMayInsertAndRemoveRowsOrEndTheListDuringARemoval) {
    const auto insert = [this](int row) { return [=, this] { list.InsertItem(row, "new"); }; };
    const auto fail = [&] {
        insert(3)();
        parent.on[LVN_DELETEITEM] = [](const auto&) -> LRESULT { throw Error("no"); };
        EXPECT_THROW(list.DeleteItem(3), Error);
        parent.on.clear();
    };
    for (const auto& [border, act, left] : Table<std::function<void()>, std::string>{
             {"some that are to go, and others", [&] { list.DeleteRows(0, 4); }, ""},
             {"the one that is told of", [&] { list.DeleteItem(4); }, "row 0,row 1"},
             {"one above", insert(0), "new,row 0,row 1"},
             {"one among the rest", insert(3), "row 0,row 1,new"},
             {"one that goes again, with one of the rest",
              [&] { insert(3)(), insert(3)(), list.DeleteRows(2, 4); }, "row 0,row 1,new"},
             {"one in a removal that fails", fail, "row 0,row 1,new"},
             {"one after the rest", insert(4), "row 0,row 1,new"},
             {"the list", [&] { list.DestroyWindow(); }, ""}}) {
        MakeList(6);
        parent.on[LVN_DELETEITEM] = [&, &act = act](const NMLISTVIEW& notice) -> LRESULT {
            if (notice.iItem == 4)
                parent.on.clear(), act();
            return 0;
        };
        list.DeleteRows(2, 6);
        EXPECT_EQ(Labels(), left) << border;
    }
}

TEST_F(ListRows, TheSelectionMarkIsSetByTheFirstSelectionAndFollowsItsRow) {
    MakeList(4, 0);
    const auto select = [this](int row) { return [=, this] { Select(row); }; };
    const auto remove = [this](int row) { return [=, this] { list.DeleteItem(row); }; };
    for (const auto& [border, act, mark] : Table<std::function<void()>, int>{
             {"the focus is no selection", [this] { list.SetItemState(0, LVIS_FOCUSED, LVIS_FOCUSED); }, -1},
             {"the first selection", select(2), 2},
             {"a further one", select(0), 2},
             {"a row above comes", [this] { list.InsertItem(0, "new"); }, 3},
             {"a row above goes", remove(0), 2},
             {"the row that took the number", remove(2), 2},
             {"the new last row", remove(2), 1},
             {"set", [this] { list.SetSelectionMark(0); }, 0},
             {"a click", [this] { Click(InRow(1)); }, 1},
             {"rows that go quietly", [this] { DeleteRowsQuietly(0, 1); }, 0},
             {"no row is left", [this] { list.DeleteAllItems(); }, -1},
             {"a new beginning", [this] { list.InsertItem(0, "row"), Choose(0); }, 0}}) {
        act();
        EXPECT_EQ(list.GetSelectionMark(), mark) << border;
    }
}

TEST_F(ListRows, ATextSourceMayEndRowsItselfOrTheListWhileItIsAsked) {
    const std::function<void()> ends[] = {
        [&] { list.DeleteAllItems(); }, [&] { list.SetTextSource(nullptr); }, [&] { list.DestroyWindow(); }};
    const std::function<void()> askers[] = {[&] { display.PaintWindow(list.m_hWnd); },
                                            [&] { list.SetColumnWidth(0, LVSCW_AUTOSIZE); },
                                            [&] { Key(0, "a"); }, [&] { list.EditLabel(2); }};
    for (const auto& end : ends)
        for (const auto& ask : askers) {
            MakeList(0);
            bool isAsked = false;
            list.SetTextSource([&](LPARAM data, int) {
                if (data == 2)
                    isAsked = true, end();
                return "a";
            });
            InsertRows(0, {0, 1, 2});
            list.SetItemState(1, LVIS_FOCUSED, LVIS_FOCUSED);
            ask();
            EXPECT_TRUE(isAsked);
        }
}

TEST_F(ListRows, AHandlerThatThrowsLeavesRowsAndFocus) {
    MakeList(9);
    Choose(8);
    parent.on[LVN_DELETEITEM] = [](const auto&) -> LRESULT { throw Error("no"); };
    EXPECT_THROW(list.DeleteItem(8), Error);
    EXPECT_EQ(list.GetItemCount(), 9);
    EXPECT_EQ(Focused(), 8) << "the next arrow key begins there";
    list.SetCellsMovedHook([] { throw Error("a later one"); });
    try {
        list.DeleteItem(8);
        FAIL();
    } catch (const Error& error) {
        EXPECT_STREQ(error.what(), "no");
    }
    list.SetCellsMovedHook(nullptr);
}

} // namespace
} // namespace korvel

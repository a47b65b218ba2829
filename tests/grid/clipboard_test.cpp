#include "korvel/values/language.h"
#include "support/grid_fixture.h"
#include "support/table.h"

namespace korvel {
namespace {

using enum GridCommand;

/// Writes down that its grid has copied.
class ToldParent : public CWnd {
public:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override {
        copies += HIWORD(wParam) == GridCopied;
        return CWnd::OnCommand(wParam, lParam);
    }
    int copies = 0;
};

class ClipboardTest : public GermanMachine, protected GridWindows {
protected:
    ClipboardTest() {
        SetLanguageForThisRun("English");
        parent.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 400, 400}, nullptr, 0);
        grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL, {0, 0, 300, 224}, &parent, 105);
        grid.SetGridOption(EGridOption::QuietCopy, true);
        point.With("x", Number(DT_LengthDouble, 1.5)).With("on", Flag(true));
        root.With("p\tq", Group(&point)).With("text", Words(DT_String, "a\tb\r\nc\n\rd"));
    }

    void Bind() { grid.Initialize(&root, "Name", "Value", 0); }
    void SelectCell(int row, int column) {
        Select(grid, row);
        while (grid.GetCurrentColumn() != column)
            Press(grid, grid.GetCurrentColumn() < column ? VK_RIGHT : VK_LEFT);
    }
    void Run(GridCommand command) { grid.SendMessageA(WM_COMMAND, static_cast<WPARAM>(command)); }
    std::string Copied() { return display.ClipboardText().value_or("nothing"); }

    ToldParent parent;
    RecordingObserver observer;
    HostGrid grid{&observer, nullptr};
};

TEST_F(ClipboardTest, EachCommandCopiesItsPart) {
    Bind();
    constexpr int NoRow = -1;
    for (const auto& [border, row, column, command, text] : Table<int, int, GridCommand, const char*>{
             {"a value on one line", 1, 1, CopyValue, "a b c  d"},
             {"a name", 0, 0, CopyValue, "p q"},
             {"no row", NoRow, 1, CopyValue, "before"},
             {"a row", 1, 0, CopyRow, "text\ta b c  d"},
             {"no row either", NoRow, 0, CopyRow, "before"},
             {"the rows of the list only", NoRow, 0, CopyColumn, "p q\ntext"},
             {"the column of values", NoRow, 1, CopyColumn, "\na b c  d"},
             {"a collapsed group", 0, 0, CopyTree, "p q\t\n  x\t1,50 m\n  on\t"},
             {"a member", 1, 0, CopyTree, "text\ta b c  d"},
             {"all roots", NoRow, 0, CopyTree, "p q\t\n  x\t1,50 m\n  on\t\ntext\ta b c  d"}}) {
        display.SetClipboardText("before");
        SelectCell(std::max(row, 0), column);
        if (row == NoRow)
            grid.SetItemState(-1, 0, LVIS_SELECTED);
        const int told = parent.copies;
        Run(command);
        EXPECT_EQ(Copied(), text) << border;
        EXPECT_EQ(parent.copies - told, text != std::string("before")) << border;
    }
}

TEST_F(ClipboardTest, AQuotationMarkAtTheBeginningKeepsCellsAndRowsApart) {
    root.With("\"A\" 7", Words(DT_String, "\"Nord\tend")).With("width", Words(DT_String, "2 \"wide\""));
    point.With(" \"c\"", Words(DT_String, "  \"\""));
    Bind();
    for (const auto& [border, row, column, command, text] : Table<int, int, GridCommand, const char*>{
             {"a row", 2, 0, CopyRow, "\"\"\"A\"\" 7\"\t\"\"\"Nord end\""},
             {"a column", 2, 1, CopyColumn, "\na b c  d\n\"\"\"Nord end\"\n2 \"wide\""},
             {"after blanks", 0, 0, CopyTree, "p q\t\n  x\t1,50 m\n  on\t\n\"   \"\"c\"\"\"\t\"  \"\"\"\"\""},
             {"alone", 2, 1, CopyValue, "\"Nord end"}}) {
        SelectCell(row, column);
        Run(command);
        EXPECT_EQ(Copied(), text) << border;
    }
}

TEST_F(ClipboardTest, ARowThatIsAnObjectCopiesItsColumns) {
    grid.SetLayoutMultiColumn({"Name", "on", "none", "x"});
    Bind();
    EXPECT_EQ(grid.CopyClipboardLine(0), "p q\t\t\t1,50 m");
    EXPECT_EQ(grid.GetClipboardString(0, 3), "1,50 m");
    for (const int column : {-1, 4, 99})
        EXPECT_EQ(grid.GetClipboardString(0, column), "") << column;
}

TEST_F(ClipboardTest, TextsOfRowsThatAreNoneAreEmpty) {
    grid.OnCopyClipboardRecursive();
    Bind();
    std::stringstream out;
    const CSuperGridCtrl::CTreeItem* const none = nullptr;
    grid.CopyClipboardRecursive(1, out, none);
    EXPECT_EQ(grid.CopyClipboardLine(none) + grid.CopyClipboardLine(2) + grid.GetClipboardString(-1, 0) +
                  out.str() + Copied(),
              "nothing");
    grid.CopyClipboardRecursive(-3, out, grid.rootItems().front());
    grid.CopyClipboardRecursive(2, out, grid.rootItems().front());
    EXPECT_EQ(out.str(), "\nx\t1,50 m\non\t\n    x\t1,50 m\n    on\t");
}

TEST_F(ClipboardTest, TheUserIsToldOfWhatWasDoneOnly) {
    using Outcome = ClipboardAnswer::Outcome;
    Bind();
    const auto run = [this](GridCommand command) { return [=, this] { Run(command); }; };
    const auto misbehave = [this](std::function<void()> act) {
        return [=, this] {
            point.onRead = [=](const std::string&) { act(); };
            Run(CopyTree);
        };
    };
    const auto addOnce = [this] {
        if (!grid.LookupTreeItem(&point, "new"))
            grid.OnOperationAdd(&point, "new", Flag(true));
    };
    const ClipboardAnswer isSet, notOpened{Outcome::NotOpened}, notSet{Outcome::NotSet, 1418};
    const char* copied = "Clipboard: Data was copied to the clipboard.";
    const char* failed = "Korvel: Unable to set Clipboard data, error: 1418";
    for (const auto& [border, isQuiet, answer, act, box, text] :
         Table<bool, ClipboardAnswer, std::function<void()>, const char*, const char*>{
             {"in a box", false, isSet, run(CopyRow), copied, "p q\t"},
             {"quietly", true, isSet, run(CopyRow), "", "p q\t"},
             {"not opened", false, notOpened, run(CopyRow), "", "nothing"},
             {"not set", true, notSet, run(CopyRow), failed, "nothing"},
             {"an empty value", false, isSet, [this] { SelectCell(0, 1), Run(CopyValue); }, "", "nothing"},
             {"an empty text", false, isSet, [this] { grid.CopyToClipboard(""); }, "", "nothing"},
             {"a text of the host", false, isSet, [this] { grid.CopyToClipboard("a\tb"); }, "", "a\tb"},
             {"it throws", false, isSet, misbehave([] { throw std::runtime_error("of the host"); }),
              "Korvel: of the host", "nothing"},
             {"rows go", false, isSet, misbehave([this] { grid.OnOperationRemove(&point, "on", {}); }), "",
              "nothing"},
             {"rows come", true, isSet, misbehave(addOnce), "", "p q\t\n  x\t1,50 m\n  on\t"},
             {"the binding ends", false, isSet, misbehave([this] { grid.Clear(); }), "", "nothing"},
             {"the window goes", false, isSet, misbehave([this] { grid.DestroyWindow(); }), "", "nothing"}}) {
        SCOPED_TRACE(border);
        HeadlessDisplay fresh;
        SetDisplay(&fresh);
        if (!answer.IsSet())
            fresh.AnswerNextClipboard(answer);
        if (*box)
            fresh.AnswerNext(IDOK);
        grid.SetGridOption(EGridOption::QuietCopy, isQuiet);
        grid.Clear();
        Bind();
        Select(grid, 0);
        act();
        point.onRead = nullptr;
        std::string boxes;
        for (const auto& shown : fresh.ShownBoxes())
            boxes += shown.caption + ": " + shown.text;
        EXPECT_EQ(boxes, box);
        EXPECT_EQ(fresh.ClipboardText().value_or("nothing"), text);
        SetDisplay(&display);
    }
}

TEST_F(ClipboardTest, WhatIsBeingEditedEndsBeforeTheCopyOrForbidsIt) {
    grid.editsCells = true;
    observer.answers = true;
    Bind();
    grid.ExpandAll();
    const auto edit = [this](const char* text) {
        Select(grid, 1);
        Click(grid, Value(1));
        SetWindowTextA(GetFocus(), text);
        grid.OnCopyClipboardRow();
    };
    edit("7");
    EXPECT_EQ(Copied(), "x\t7,00 m");
    display.AnswerNext(IDOK);
    edit("7+");
    EXPECT_EQ(Copied(), "x\t7,00 m");
    EXPECT_TRUE(grid.IsEditing());
}

TEST_F(ClipboardTest, AHugeTextIsCopiedWhole) {
    constexpr std::size_t Half = 50'000'000;
    root.SetMember("text", Words(DT_String, std::string(Half, 'a') + "\n" + std::string(Half, 'b')));
    Bind();
    Select(grid, 1);
    Run(CopyRow);
    const std::string copied = Copied();
    EXPECT_EQ(copied.size(), 5 + 2 * Half + 1);
    EXPECT_EQ(copied.substr(Half + 3, 5), "aa bb");
}

} // namespace
} // namespace korvel

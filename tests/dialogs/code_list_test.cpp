#include "korvel/dialogs/dialog_code_list.h"
#include "korvel/values/language.h"
#include "support/dialog_fixture.h"

namespace korvel {
namespace {

constexpr int Add = 18036;
constexpr int Remove = 18037;
constexpr int Edit = 18038;
constexpr int MoveUp = 15060;
constexpr int MoveDown = 15061;
constexpr int CodeField = 15064;
constexpr int ValueField = 15065;
constexpr int ValueLabel = 15067;

class CodeListDialog : public CDialogCodeList {
public:
    using CDialogCodeList::CDialogCodeList;
    using CDialogCodeList::OnMoveDownCode;
    using CDialogCodeList::OnMoveUpCode;

    std::function<void()> add; // instead of the library's way
    UINT failing = 0;          // the notice of the list whose handler throws, once
    int good = 0;              // so many of them are taken before

    CListCtrl& Rows() { return m_listCodes; }
    void SelectRow(int row) { m_listCodes.SetItemState(row, LVIS_SELECTED, LVIS_SELECTED); }
    void Click(int id) { korvel::SendMessageA(korvel::GetDlgItem(m_hWnd, id), BM_CLICK, 0, 0); }
    void OnAddCodes() override { add ? add() : CDialogCodeList::OnAddCodes(); }
    bool OnNotify(WPARAM id, LPARAM notice, LRESULT* result) override {
        const bool isTaken = CDialogCodeList::OnNotify(id, notice, result);
        if (reinterpret_cast<const NMHDR*>(notice)->code == failing && --good < 0) {
            failing = 0;
            throw std::runtime_error("full");
        }
        return isTaken;
    }
    bool IsOn(int id) const { return korvel::IsWindowEnabled(korvel::GetDlgItem(m_hWnd, id)); }
};

class CodeListTest : public DialogTest {
protected:
    CodeListTest() { SetLanguageForThisRun("English"); }

    using Act = std::function<void()>;

    /// Shows `dialog`; each act is done when the dialog, or one that it has shown, is idle.
    std::intptr_t Run(const std::vector<Act>& acts) {
        for (const Act& act : acts)
            display.Then(act);
        return dialog.DoModal();
    }
    Act Click(int id) {
        return [this, id] { dialog.Click(id); };
    }
    Act Select(int row) {
        return [this, row] { dialog.SelectRow(row); };
    }
    Act PressInList(UINT key) {
        return [this, key] {
            dialog.Rows().SetFocus();
            Press(key);
        };
    }
    /// In the dialog for one pair.
    Act Fill(const CString& code, const CString& value) {
        return [=] {
            const HWND shown = korvel::GetParent(GetFocus());
            SetDlgItemTextA(shown, CodeField, code);
            SetDlgItemTextA(shown, ValueField, value);
        };
    }
    const Act ok = [this] { Press(VK_RETURN, "\r"); };
    const Act cancel = [this] { Press(VK_ESCAPE); };

    CodeListDialog dialog{&frame};
};

TEST_F(CodeListTest, OkTakesWhatTheUserDid) {
    const CString odd = ";a: 1;;b:2;c:3;"; // written otherwise than it is read
    const CString same = "a: 1;b:2;c:3";
    const CString before = "before";
    const Act fail = [] { throw std::runtime_error("full"); };
    const auto clickThatFails = [this](int id) {
        return [this, id] { EXPECT_THROW(dialog.Click(id), std::runtime_error); };
    };
    const Act moveUp = [this] { dialog.OnMoveUpCode(); };
    const Act moveDown = [this] { dialog.OnMoveDownCode(); };
    const Act focusRemove = [this] { SetFocus(GetDlgItem(dialog.m_hWnd, Remove)); };
    const Act clickFocused = [] { korvel::SendMessageA(GetFocus(), BM_CLICK, 0, 0); };
    const Act expectFocus = [this] {
        EXPECT_EQ(GetFocus(), dialog.Rows().m_hWnd) << "a disabled button hears no key";
    };
    const Act expectFocusedRow = [this] {
        EXPECT_EQ(dialog.Rows().GetNextItem(-1, LVNI_FOCUSED), 1) << "keys go on from it";
    };
    const auto expect = [&](const char* border, SelectionMode::Enum mode, std::vector<Act> acts,
                            const CString& list, const CString& selected) {
        SCOPED_TRACE(border);
        dialog.SetCodeList(odd);
        dialog.SetSelectedCodes(before);
        dialog.SetSelectionMode(mode);
        acts.push_back(ok);
        EXPECT_EQ(Run(acts), IDOK);
        EXPECT_EQ(dialog.GetIsDirty(), list != odd);
        EXPECT_EQ(dialog.GetCodeList(), list);
        EXPECT_EQ(dialog.GetSelectedCodes(), selected);
    };
    for (const auto& [border, acts, list] : Table<std::vector<Act>, CString>{
             {"nothing", {}, odd},
             {"added by key", {PressInList(VK_INSERT), Fill("d;", ""), ok}, same + ";d;:"},
             {"added without a change", {Click(Add), ok}, same},
             {"adding cancelled", {Click(Add), Fill("d", "4"), cancel}, same},
             {"adding fails", {clickThatFails(Add), fail}, same},
             {"editing fails", {Select(1), clickThatFails(Edit), fail}, same},
             {"the first selected edited",
              {Select(2), Select(1), Click(Edit), Fill("x", "y:z"), ok},
              "a: 1;x:y:z;c:3"},
             {"two removed", {Select(0), Select(2), Click(Remove)}, "b:2"},
             {"removed by a button with the focus",
              {Select(1), focusRemove, clickFocused, expectFocus},
              "a: 1;c:3"},
             {"nothing to remove", {PressInList(VK_DELETE)}, odd},
             {"the first moved up", {Select(0), moveUp}, same},
             {"the last moved down", {Select(2), moveDown}, same},
             {"nothing moved", {moveUp, moveDown}, odd},
             {"the last moved up", {Select(2), Click(MoveUp), expectFocusedRow}, "a: 1;c:3;b:2"},
             {"the first moved down", {Select(0), Click(MoveDown)}, "b:2;a: 1;c:3"}})
        expect(border, SelectionMode::Multiple, acts, list, list == odd ? before : list);
    expect("a row picked", SelectionMode::Single, {Select(1), Select(2)}, same, "b:2");
    expect("nothing picked", SelectionMode::Single, {Click(Add), cancel}, same, before);
    expect("an unknown mode", static_cast<SelectionMode::Enum>(7), {Click(Add), cancel}, same, before);
}

TEST_F(CodeListTest, AHandlerThatThrowsLeavesEveryPairOnceAndWhatIsDoneIsKept) {
    for (const auto& [border, rows, notice, good, button, list] :
         Table<std::vector<int>, UINT, int, int, CString>{
             {"moving up, inserted", {1}, LVN_INSERTITEM, 0, MoveUp, "a:1;b:2;c:3"},
             {"moving up, removed", {1}, LVN_DELETEITEM, 0, MoveUp, "a:1;b:2;c:3"},
             {"moving up, selected", {1}, LVN_ITEMCHANGED, 1, MoveUp, "b:2;a:1;c:3"},
             {"removing the second of two", {0, 2}, LVN_DELETEITEM, 1, Remove, "a:1;b:2"}}) {
        SCOPED_TRACE(border);
        dialog.SetCodeList("a:1;b:2;c:3");
        const auto act = [&, chosen = rows, code = notice, first = good, id = button] {
            for (const int row : chosen)
                dialog.SelectRow(row);
            dialog.failing = code;
            dialog.good = first;
            EXPECT_THROW(dialog.Click(id), std::runtime_error);
        };
        EXPECT_EQ(Run({act, ok}), IDOK);
        EXPECT_EQ(dialog.GetCodeList(), list);
        EXPECT_TRUE(dialog.GetIsDirty());
    }
}

TEST_F(CodeListTest, ButtonsFollowTheRowThatChangedLast) {
    constexpr SelectionMode::Enum Multiple = SelectionMode::Multiple;
    for (const auto& [border, mode, list, act, on] : Table<SelectionMode::Enum, CString, Act, CString>{
             {"at the beginning", Multiple, "a:1;b:2;c:3", [] {}, "add"},
             {"the first", Multiple, "a:1;b:2;c:3", Select(0), "add edit remove down"},
             {"one between", Multiple, "a:1;b:2;c:3", Select(1), "add edit remove up down"},
             {"the last", Multiple, "a:1;b:2;c:3", Select(2), "add edit remove up"},
             {"the only one", Multiple, "a:1", Select(0), "add edit remove"},
             {"all, as the last was last", Multiple, "a:1;b:2;c:3", [this] { PressWith(VK_CONTROL, 'A'); },
              "add edit remove up"},
             {"another one is still selected", Multiple, "a:1;b:2;c:3",
              [this] {
                  dialog.SelectRow(0), dialog.SelectRow(1);
                  dialog.Rows().SetItemState(1, 0, LVIS_SELECTED);
              },
              "add"},
             {"picking", SelectionMode::Single, "a:1;b:2;c:3", Select(1), "add edit remove up down hidden"},
             {"an unknown mode", static_cast<SelectionMode::Enum>(7), "a:1", [] {}, "add up down"}}) {
        dialog.SetCodeList(list);
        dialog.SetSelectionMode(mode);
        CString found = "add";
        Run({[&, doIt = act] {
            doIt();
            for (const auto& [name, id] :
                 {std::pair{" edit", Edit}, {" remove", Remove}, {" up", MoveUp}, {" down", MoveDown}})
                found += dialog.IsOn(id) ? name : "";
            found += IsWindowVisible(GetDlgItem(dialog.m_hWnd, MoveUp)) ? "" : " hidden";
            cancel();
        }});
        EXPECT_EQ(found, on) << border;
    }
}

TEST_F(CodeListTest, SaysWhatItsValuesAre) {
    const auto expectPair = [this](CString caption, CString label, CString code, CString value) {
        return [=, this] {
            const HWND shown = korvel::GetParent(GetFocus());
            EXPECT_EQ(korvel::GetWindowTextA(shown), caption);
            EXPECT_EQ(GetDlgItemTextA(shown, ValueLabel), label);
            EXPECT_EQ(GetDlgItemTextA(shown, CodeField), code);
            EXPECT_EQ(GetDlgItemTextA(shown, ValueField), value);
            cancel();
        };
    };
    for (const auto& [border, type, header, label] : Table<CodeType::Enum, CString, CString>{
             {"EPSG", CodeType::Epsg, "EPSG code", "EPSG code:"},
             {"height", CodeType::Height, "Added height value", "Height value:"},
             {"unknown", static_cast<CodeType::Enum>(-1), "", ":"}}) {
        dialog.SetCaption("Codes");
        dialog.SetCodeList("a:1");
        dialog.SetCodeType(type);
        Run({[&, title = header] {
                 EXPECT_EQ(dialog.GetWindowTextA(), "Codes");
                 EXPECT_EQ(dialog.Rows().GetColumnTitle(0), "Krefail code");
                 EXPECT_EQ(dialog.Rows().GetColumnTitle(1), title);
                 EXPECT_EQ(dialog.Rows().GetItemText(0, 1), "1") << "a value is kept without a title, too";
                 dialog.SelectRow(0);
                 dialog.Click(Edit);
             },
             expectPair("Edit list entry", label, "a", "1"), Click(Add),
             expectPair("Add list entry", label, "", ""), cancel});
        ASSERT_EQ(dialog.m_hWnd, nullptr) << border;
    }
}

TEST_F(CodeListTest, AHostsActionFindsTheHostsOwnDialogs) {
    constexpr UINT HostsDialog = 300;
    Have({{HostsDialog, "Choose", Plain, {0, 0, 80, 40}, {}}});
    dialog.SetCodeList("a:1");
    dialog.add = [this] {
        CDialog own(HostsDialog, &dialog);
        EXPECT_EQ(own.DoModal(), IDCANCEL);
        dialog.Rows().DeleteAllItems();
    };
    EXPECT_EQ(Run({PressInList(VK_INSERT), cancel, ok}), IDOK);
    EXPECT_EQ(dialog.GetCodeList(), "a:1") << "only what the action called a change is taken";
}

TEST_F(CodeListTest, TakesAHundredThousandRows) {
    constexpr int Rows = 100000;
    CString list;
    for (int row = 0; row < Rows; ++row)
        list += std::to_string(row) + ":;;";
    dialog.SetCodeList(list);
    EXPECT_EQ(Run({[&] {
                       EXPECT_EQ(dialog.Rows().GetItemCount(), Rows);
                       dialog.Rows().SetFocus();
                       PressWith(VK_CONTROL, 'A');
                       dialog.OnMoveDownCode();
                       EXPECT_EQ(dialog.Rows().GetItemText(1, 0), "0");
                       PressWith(VK_CONTROL, 'A');
                       dialog.Rows().SetItemState(Rows - 1, 0, LVIS_SELECTED);
                       Press(VK_DELETE);
                   },
                   ok}),
              IDOK);
    EXPECT_EQ(dialog.GetCodeList(), std::to_string(Rows - 1) + ":");
}

} // namespace
} // namespace korvel

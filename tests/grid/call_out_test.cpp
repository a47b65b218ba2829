// Whatever a host does at whichever call it gets, and wherever memory ends, rows, look-up and observer agree
// afterwards.

#include "korvel/dialogs/dialog_ids.h"
#include "korvel/values/language.h"
#include "korvel/window/core/exception_handler.h"
#include "support/failing_memory.h"
#include "support/grid_fixture.h"
#include "support/misbehaving_host.h"

#include <new>

namespace korvel {
namespace {

using Scene = MisbehavingHost;

struct Act {
    const char* name;
    std::function<void(Scene&)> run;
    bool bindsFirst = true;
    bool hasColumns = false;
    const char* steps = nullptr; // that an undisturbed act in cells makes

    void Prepare(Scene& scene) const {
        if (steps)
            scene.ShowCells();
        if (hasColumns)
            scene.grid->SetLayoutMultiColumn({"Name", "x", "y", "new"});
        if (bindsFirst)
            scene.Bind();
    }
};

const std::vector<Act>& Acts() {
    static const std::vector<Act> acts = {
        {"initialize", [](Scene& s) { s.Bind(); }, false},
        {"initialize columns",
         [](Scene& s) {
             s.grid->SetLayoutMultiColumn({"Name", "x", "y"}), s.Bind();
         },
         false},
        {"clear", [](Scene& s) { s.grid->Clear(); }},
        {"destroy the window", [](Scene& s) { s.grid->DestroyWindow(); }},
        {"delete the grid", [](Scene& s) { s.grid.reset(); }},
        {"add", [](Scene& s) { s.grid->OnOperationAdd(&s.point, "new", Number(DT_Double, 1)); }},
        {"add a cell", [](Scene& s) { s.grid->OnOperationAdd(&s.point, "new", Number(DT_Double, 1)); }, true,
         true},
        {"add a group", [](Scene& s) { s.grid->OnOperationAdd(&s.root, "r", Group(&s.added)); }},
        {"insert a group", [](Scene& s) { s.grid->OnOperationInsert(&s.point, 0, "r", Group(&s.added)); }},
        {"remove", [](Scene& s) { s.RemovePoint(); }},
        {"remove the selected",
         [](Scene& s) {
             s.grid->SetItemState(s.grid->RowOfNode(s.grid->LookupTreeItem(&s.point)), LVIS_SELECTED,
                                  LVIS_SELECTED);
             s.RemovePoint();
         }},
        {"rename",
         [](Scene& s) {
             s.point.RenameMember("x", "east");
             s.grid->OnOperationRename(&s.point, "x", "east");
         }},
        {"change", [](Scene& s) { s.grid->OnChange(&s.point, "x", Number(DT_Double, 7)); }},
        {"change a flag", [](Scene& s) { s.grid->OnChange(&s.root, "on", Flag(false)); }},
        {"change the type",
         [](Scene& s) { s.grid->OnOperationChangeType(&s.point, "list", DT_ListString, s.list); }},
        {"change the presentation",
         [](Scene& s) { s.grid->OnOperationChangeTupelPresentation(&s.shaped, "other"); }},
        {"change the layout", [](Scene& s) { s.grid->SetLayoutSingleAttrColumn(); }},
        {"change a format", [](Scene&) { SetFormatDouble(GermanFormat(3)); }},
    };
    return acts;
}

// What the user does to members.
const std::vector<Act>& UserActs() {
    const auto ofX = [](auto act) {
        return [=](Scene& s) {
            s.SelectRowOf(&s.point, "x");
            act(s);
        };
    };
    const auto ofPoint = [](auto act) {
        return [=](Scene& s) {
            s.SelectRowOf(&s.root, "p");
            input::Key(s.grid->m_hWnd, WM_KEYDOWN, VK_RIGHT, "");
            act(s);
        };
    };
    const auto rename = [](Scene& s) { s.TypeLabel("east"); };
    const auto renameByIdent = [](Scene& s) {
        s.point.countsIdent = true;
        s.TypeLabel("east");
        s.point.countsIdent = false;
    };
    const auto renameInVain = [](Scene& s) { s.TypeLabel("list"); };
    const auto retype = [](Scene& s) { s.grid->OnChange2IntType(); };
    const auto retypeInVain = [](Scene& s) { s.grid->OnChange2StringType(); };
    const auto protect = [](Scene& s) { s.grid->OnChangeEditableAttribut_V1(); };
    const auto remove = [](Scene& s) { s.grid->OnDelAttribut_V1(); };
    const auto pressDelete = [](Scene& s) { input::Key(s.grid->m_hWnd, WM_KEYDOWN, VK_DELETE, ""); };
    const auto open = [](Scene& s) {
        dynamic_cast<HeadlessDisplay&>(Display()).AnswerNext(IDOK); // no path is named
        s.grid->OnOpenFolder();
    };
    const auto copyTree = [](Scene& s) { s.grid->OnCopyClipboardRecursive(); };
    const auto copyColumn = [](Scene& s) { s.grid->OnCopyClipboardColumn(); };
    const auto choose = [](Scene& s) {
        for (HostObject* object : {&s.root, &s.point}) {
            object->memberFlags |= MF_Commands;
            object->memberExtraCommands = object->extraCommands = {{"of the host", 1}};
            object->SetEditFlags(EF_Commands);
        }
        auto& display = dynamic_cast<HeadlessDisplay&>(Display());
        display.AnswerNextMenu([](const auto& menu) {
            return HeadlessDisplay::PressMenuKeys(menu, menu[0].text == "Delete" ? "eo" : "o");
        });
        const CRect cell = s.grid->GetSubItemRect(s.grid->GetNextItem(-1, LVNI_SELECTED), 0);
        input::Mouse(s.grid->m_hWnd, WM_RBUTTONDOWN, MK_RBUTTON, MiddleOf(cell));
        input::DispatchMessages();
    };
    static const std::vector<Act> acts = {
        {"copy a tree", ofPoint(copyTree)},
        {"copy a column", ofX(copyColumn)},
        {"copy a tree of columns", ofPoint(copyTree), true, true},
        {"choose a command", ofX(choose)},
        {"choose a command of a group", ofPoint(choose)},
        {"choose a command in columns", ofPoint(choose), true, true},
        {"rename", ofX(rename)},
        {"rename in vain", ofX(renameInVain)},
        {"rename a group", ofPoint(rename)},
        {"rename in columns", ofPoint(renameByIdent), true, true},
        {"retype", ofX(retype)},
        {"retype in vain", ofX(retypeInVain)},
        {"retype in columns", ofPoint(retype), true, true},
        {"protect", ofX(protect)},
        {"protect in columns", ofPoint(protect), true, true},
        {"delete", ofX(remove)},
        {"delete a group", ofPoint(pressDelete)},
        {"delete in columns", ofPoint(pressDelete), true, true},
        {"open", ofX(open)},
        {"open in columns", ofPoint(open), true, true},
    };
    return acts;
}

// What the user does to values in cells.
const std::vector<Act>& CellActs() {
    const auto press = [](UINT key, const CString& characters = "") {
        input::Key(GetFocus(), WM_KEYDOWN, key, characters);
    };
    const auto type = [=](const CString& text) {
        return [=](Scene& s) {
            if (s.ClickCell("length"))
                SetWindowTextA(GetFocus(), text), press(VK_RETURN, "\r");
        };
    };
    const auto toggle = [](Scene& s) { s.ClickCell("on"); };
    const auto color = [](Scene& s) {
        dynamic_cast<HeadlessDisplay&>(Display()).AnswerNextColor(0x00FF00);
        s.ClickCell("color");
    };
    const auto choose = [=](Scene& s) {
        if (s.ClickCell("list"))
            press(VK_DOWN), press(VK_RETURN, "\r");
    };
    const auto date = [=](Scene& s) {
        if (s.ClickCell("date"))
            press(VK_UP), press(VK_RETURN, "\r");
    };
    const auto path = [=](Scene& s) {
        if (s.ClickCell("path"))
            SetWindowTextA(GetFocus(), "c.xml"), press(VK_RETURN, "\r");
    };
    const auto atRight = [](const char* name) { return [=](Scene& s) { s.ClickCell(name, true); }; };
    constexpr const char* Edited = "[Member edited]";
    constexpr const char* Refused = "[Member edited]!";
    static const std::vector<Act> acts = {{"type", type("7"), true, false, Edited},
                                          {"type in vain", type("7+"), true, false, Refused},
                                          {"toggle", toggle, true, false, Edited},
                                          {"choose a color", color, true, false, Edited},
                                          {"choose from a list", choose, true, false, Edited},
                                          {"pick a date", date, true, false, Edited},
                                          {"type a path", path, true, false, Edited},
                                          {"browse", atRight("path"), true, false, Edited},
                                          {"roll the dice", atRight("dice"), true, false, Edited},
                                          {"press a button", atRight("button"), true, false, ""}};
    return acts;
}

// A dialog asks for what is added.
void AddByDialog(Scene& scene) {
    scene.SelectRowOf(&scene.point, "x");
    dynamic_cast<HeadlessDisplay&>(Display()).Then([] {
        const HWND dialog = korvel::GetParent(GetFocus());
        SetWindowTextA(GetDlgItem(dialog, internal::AttributeNameId), "new");
        SendMessageA(dialog, WM_COMMAND, IDOK, 0);
    });
    scene.grid->OnAddAttribut_V1();
}

std::vector<Act> ActsWithoutDialog() {
    std::vector<Act> all = Acts();
    all.insert(all.end(), UserActs().begin(), UserActs().end());
    all.insert(all.end(), CellActs().begin(), CellActs().end());
    return all;
}

std::vector<Act> AllActs() {
    std::vector<Act> all = ActsWithoutDialog();
    all.push_back({"add by a dialog", AddByDialog});
    return all;
}

class CallsOfTheHost : public GermanMachine, protected GridWindows {
protected:
    CallsOfTheHost() {
        SetLanguageForThisRun("English");
        SetExceptionHandler([](const CString&) {}); // of a grid that is deleted
    }
    ~CallsOfTheHost() override { SetExceptionHandler(nullptr); }

    // At the first call out of an act, then at the second, until the act has no more.
    static void MisbehaveEverywhere(const std::function<void(Scene&)>& misbehave) {
        for (const Act& act : AllActs()) {
            // An act that a misbehaviour ends makes fewer calls than a whole one.
            int count = MisbehaveOnce(act, 0, misbehave);
            for (int at = 1; at <= count && !HasFailure(); ++at) {
                SCOPED_TRACE(std::string(act.name) + ", call " + std::to_string(at));
                count = std::max(count, MisbehaveOnce(act, at, misbehave));
            }
        }
    }
    // The same for a grid that is there still.
    static void MisbehaveInTheGrid(const std::function<void(Scene&)>& misbehave) {
        MisbehaveEverywhere([&](Scene& scene) {
            if (!scene.grid)
                return;
            const bool wasBound = scene.grid->GetRootDisp();
            misbehave(scene);
            scene.calls.isOver = wasBound && !scene.grid->GetRootDisp();
        });
    }
    // False when `passing` allocations are all that the act makes.
    static bool RunOutOfMemory(const Act& act, int passing) {
        Scene scene;
        act.Prepare(scene);
        bool hasFailed = false;
        try {
            const FailingMemory memory(passing, hasFailed);
            act.run(scene);
        } catch (const std::bad_alloc&) {
        }
        ExpectAgreementToTheEnd(scene);
        return hasFailed;
    }

private:
    static int MisbehaveOnce(const Act& act, int at, const std::function<void(Scene&)>& misbehave) {
        Scene scene;
        act.Prepare(scene);
        scene.calls.count = 0;
        scene.calls.misbehavesAt = at;
        scene.calls.misbehave = [&] { misbehave(scene); };
        try {
            act.run(scene);
        } catch (const std::exception&) { // what misbehaved
        }
        if (at == 0 && act.steps)
            EXPECT_EQ(scene.parent.log, act.steps) << act.name;
        const int count = scene.calls.count;
        scene.calls.misbehavesAt = 0;
        scene.calls.isOver = false;
        scene.gone = nullptr;
        if (scene.grid) {
            scene.grid->CtrlEnd(), scene.grid->CtrlEnd(); // the second way out of a refused text
            EXPECT_FALSE(scene.grid->GetEditControl());
            EXPECT_FALSE(scene.grid->IsEditing());
            EXPECT_TRUE(scene.grid->EndEdit()) << "no commit is under way";
        }
        ExpectAgreementToTheEnd(scene);
        return count;
    }
    static void ExpectAgreementToTheEnd(Scene& scene) {
        if (scene.grid) {
            scene.ExpectAgreement();
            scene.grid->Clear();
            EXPECT_EQ(scene.observer.sinks.size(), 0u);
            scene.Bind();
            EXPECT_EQ(scene.grid->GetRootDisp(), &scene.root) << "it can be bound again";
            scene.ExpectAgreement();
        }
        scene.grid.reset();
        EXPECT_EQ(scene.observer.sinks.size(), 0u);
    }
};

TEST_F(CallsOfTheHost, AnExceptionLeavesABindingWholeOrUndone) {
    MisbehaveEverywhere([](Scene& scene) {
        scene.NoteFailure();
        throw std::runtime_error("of the host");
    });
    MisbehaveEverywhere([](Scene&) { throw std::bad_alloc(); }); // not taken for a missing member
}

TEST_F(CallsOfTheHost, WantOfMemoryLeavesABindingWholeOrUndone) {
    for (const Act& act : ActsWithoutDialog())
        for (int passing = 0; !HasFailure(); ++passing) {
            SCOPED_TRACE(std::string(act.name) + ", after " + std::to_string(passing) + " allocations");
            if (!RunOutOfMemory(act, passing))
                break;
        }
}

TEST_F(CallsOfTheHost, TheBindingMayEndOrBeginAgain) {
    MisbehaveInTheGrid([](Scene& scene) { scene.grid->Clear(); });
    MisbehaveInTheGrid([](Scene& scene) { scene.Bind(); });
    MisbehaveInTheGrid([](Scene& scene) {
        scene.grid->Clear();
        scene.Bind();
    });
}

TEST_F(CallsOfTheHost, AnObjectMayRefuse) {
    MisbehaveEverywhere([](Scene& scene) { scene.isRefusing = true; });
}

TEST_F(CallsOfTheHost, TheWindowMayBeDestroyed) {
    MisbehaveInTheGrid([](Scene& scene) { scene.grid->DestroyWindow(); });
}

TEST_F(CallsOfTheHost, LayoutAndObjectsMayChange) {
    MisbehaveInTheGrid([](Scene& scene) { scene.grid->SetLayoutMultiColumn({"Name", "x"}); });
    MisbehaveInTheGrid([](Scene& scene) {
        const bool wasShown = scene.grid->LookupTreeItem(&scene.point);
        scene.RemovePoint();
        scene.gone = wasShown && !scene.grid->LookupTreeItem(&scene.point) ? &scene.point : nullptr;
    });
    for (HostObject Scene::*owner : {&Scene::root, &Scene::point}) // also while it leaves
        MisbehaveInTheGrid(
            [=](Scene& scene) { scene.grid->OnOperationAdd(&(scene.*owner), "late", Group(&scene.late)); });
}

} // namespace
} // namespace korvel

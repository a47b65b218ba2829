// Whatever a host does at whichever call it gets, rows, look-up and observer agree afterwards.

#include "support/grid_fixture.h"

#include <new>
#include <optional>

namespace korvel {
namespace {

// Counts the calls of the host, and misbehaves at one of them.
struct CallOuts {
    void Count() {
        if (++count == misbehavesAt)
            misbehave();
    }
    void CountObject() {
        EXPECT_FALSE(isOver) << "an object is called after its binding has ended";
        Count();
    }
    int count = 0;
    int misbehavesAt = 0;
    std::function<void()> misbehave;
    bool isOver = false;
};

class CountingObject final : public HostObject {
public:
    CountingObject(CallOuts& calls, std::string ident) : HostObject(std::move(ident)), m_calls(calls) {}
    void GetMemberNames(std::list<std::string>& names) override {
        m_calls.CountObject();
        HostObject::GetMemberNames(names);
    }
    std::uint32_t GetOptions() const override { return m_calls.CountObject(), HostObject::GetOptions(); }
    bool GetMemberType(const std::string& name, EDataTyps& type) override {
        return m_calls.CountObject(), HostObject::GetMemberType(name, type);
    }
    bool IsMemberEditable(const std::string& name) override {
        return m_calls.CountObject(), HostObject::IsMemberEditable(name);
    }
    bool GetMember(const std::string& name, CVariantValue& value) override {
        return m_calls.CountObject(), HostObject::GetMember(name, value);
    }
    bool SetMember(const std::string& name, const CVariantValue& value) override {
        return m_calls.CountObject(), HostObject::SetMember(name, value);
    }

private:
    CallOuts& m_calls;
};

class CountingEnumeration final : public HostEnumeration {
public:
    explicit CountingEnumeration(CallOuts& calls) : m_calls(calls) { entries = {Words(DT_String, "one")}; }
    const EDataTyps& GetDataType() const override { return m_calls.Count(), HostEnumeration::GetDataType(); }
    const std::uint32_t& GetEnumFlags() const override {
        return m_calls.Count(), HostEnumeration::GetEnumFlags();
    }
    std::string GetPresentationText(const char* column) override {
        return m_calls.Count(), HostEnumeration::GetPresentationText(column);
    }
    unsigned char GetPresentationKind() override {
        return m_calls.Count(), HostEnumeration::GetPresentationKind();
    }

private:
    CallOuts& m_calls;
};

// Keeps a sink before it misbehaves: one that was given by a call that threw must be taken back as well.
class CountingObserver final : public RecordingObserver {
public:
    explicit CountingObserver(CallOuts& calls) : m_calls(calls) {}
    void AddSink(IMemberDispatch* disp, IObserverGridSink* sink) override {
        RecordingObserver::AddSink(disp, sink);
        m_calls.Count();
    }
    void RemoveSink(IMemberDispatch* disp, IObserverGridSink* sink) override {
        RecordingObserver::RemoveSink(disp, sink);
        m_calls.Count();
    }

private:
    CallOuts& m_calls;
};

class CountingGrid final : public CEditableGrid {
public:
    CountingGrid(CallOuts& calls, IObserverGrid* observer)
        : CEditableGrid(observer, nullptr), m_calls(calls) {}
    void ConvertToOutput(IMemberDispatch* disp, const std::string& name, const CVariantValue& value,
                         std::string& text, CItemInfo::CONTROLTYPE& control) override {
        m_calls.Count();
        CEditableGrid::ConvertToOutput(disp, name, value, text, control);
    }

protected:
    void CtrlClear() override { m_calls.Count(); }

private:
    CallOuts& m_calls;
};

class CountingParent final : public CWnd {
public:
    explicit CountingParent(CallOuts& calls) : m_calls(calls) {}
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_GET_IMAGEINDEX || message == WM_NOTIFY)
            m_calls.Count();
        return CWnd::WindowProc(message, wParam, lParam);
    }

private:
    CallOuts& m_calls;
};

// A grid with two nested objects, one of them with a presentation, and a further one to be added.
struct Scene {
    Scene() {
        shaped.m_pEnumValue = &enumeration;
        point.With("x", Number(DT_Double, 1)).With("list", enumeration.ListValue(DT_ListString));
        shaped.With("y", Number(DT_Double, 2));
        inner.With("z", Number(DT_Double, 3));
        added.With("inner", Group(&inner)).With("last", Flag(true));
        root.SetOptions(0);
        root.With("length", Number(DT_Double, 4)).With("on", Flag(true));
        root.With("p", Group(&point)).With("q", Group(&shaped));
        parent.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 400, 400}, nullptr, 0);
        grid.emplace(calls, &observer);
        grid->Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL, {0, 0, 300, 224}, &parent, 105);
        grid->ModifyImageStyle(IS_AskParent, 0);
    }
    void Bind() { grid->Initialize(&root, "Name", "Value", 0); }

    // Rows and look-up agree, and the observer has the sinks of what is shown and no others.
    void ExpectAgreement() {
        std::size_t groups = 0;
        for (CSuperGridCtrl::CTreeItem* node : grid->rootItems())
            ExpectFiled(node, groups);
        for (const auto& [disp, sink] : observer.sinks) {
            const bool isRoot = disp == grid->GetRootDisp();
            EXPECT_TRUE(isRoot || grid->LookupTreeItem(disp)) << "no row of " << disp->GetIdent();
        }
        EXPECT_LE(observer.sinks.size(), groups + 1);
        if (!grid->GetRootDisp()) {
            EXPECT_EQ(grid->rootItems().size(), 0);
            EXPECT_EQ(grid->GetColumnCount(), 0);
            EXPECT_EQ(observer.sinks.size(), 0u);
        }
    }

    CallOuts calls;
    CountingEnumeration enumeration{calls};
    CountingObject inner{calls, "inner"};
    CountingObject added{calls, "added"};
    CountingObject shaped{calls, "shaped"};
    CountingObject point{calls, "point"};
    CountingObject root{calls, "root"};
    CountingObserver observer{calls};
    CountingParent parent{calls};
    std::optional<CountingGrid> grid;

private:
    void ExpectFiled(CSuperGridCtrl::CTreeItem* node, std::size_t& groups) {
        const std::string& name = node->info->text;
        IMemberDispatch* owner = node->parent() ? node->parent()->info->disp : grid->GetRootDisp();
        EXPECT_EQ(grid->LookupTreeItem(owner, name), node) << name;
        if (node->info->disp) {
            ++groups;
            EXPECT_TRUE(node->children().empty() || grid->LookupTreeItem(node->info->disp) == node) << name;
        }
        for (CSuperGridCtrl::CTreeItem* child : node->children())
            ExpectFiled(child, groups);
    }
};

struct Act {
    const char* name;
    std::function<void(Scene&)> run;
    bool bindsFirst = true;
};

const std::vector<Act>& Acts() {
    static const std::vector<Act> acts = {
        {"initialize", [](Scene& scene) { scene.Bind(); }, false},
        {"initialize columns",
         [](Scene& scene) {
             scene.grid->SetLayoutMultiColumn({"Name", "x", "y"});
             scene.Bind();
         },
         false},
        {"clear", [](Scene& scene) { scene.grid->Clear(); }},
        {"destroy the window", [](Scene& scene) { scene.grid->DestroyWindow(); }},
        {"delete the grid", [](Scene& scene) { scene.grid.reset(); }},
        {"add", [](Scene& scene) { scene.grid->OnOperationAdd(&scene.point, "new", Number(DT_Double, 1)); }},
        {"add a group",
         [](Scene& scene) { scene.grid->OnOperationAdd(&scene.root, "r", Group(&scene.added)); }},
        {"insert a group",
         [](Scene& scene) { scene.grid->OnOperationInsert(&scene.point, 0, "r", Group(&scene.added)); }},
        {"remove the selected",
         [](Scene& scene) {
             const int row = scene.grid->RowOfNode(scene.grid->LookupTreeItem(&scene.point));
             scene.grid->SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
             scene.grid->OnOperationRemove(&scene.root, "p", Group(&scene.point));
         }},
        {"remove",
         [](Scene& scene) { scene.grid->OnOperationRemove(&scene.root, "p", Group(&scene.point)); }},
        {"rename",
         [](Scene& scene) {
             scene.point.RenameMember("x", "east");
             scene.grid->OnOperationRename(&scene.point, "x", "east");
         }},
        {"change", [](Scene& scene) { scene.grid->OnChange(&scene.point, "x", Number(DT_Double, 7)); }},
        {"change a flag", [](Scene& scene) { scene.grid->OnChange(&scene.root, "on", Flag(false)); }},
        {"change the type",
         [](Scene& scene) {
             scene.grid->OnOperationChangeType(&scene.point, "list", DT_ListString,
                                               scene.enumeration.ListValue(DT_ListString));
         }},
        {"change the presentation",
         [](Scene& scene) { scene.grid->OnOperationChangeTupelPresentation(&scene.shaped, "other"); }},
        {"change the layout", [](Scene& scene) { scene.grid->SetLayoutSingleAttrColumn(); }},
        {"change a format", [](Scene&) { SetFormatDouble(GermanFormat(3)); }},
    };
    return acts;
}

class CallsOfTheHost : public GermanMachine, protected GridWindows {
protected:
    // At the first call out of an act, then at the second, until the act has no more.
    void MisbehaveEverywhere(const std::function<void(Scene&)>& misbehave) {
        for (const Act& act : Acts()) {
            // An act that a misbehaviour ends makes fewer calls than a whole one.
            int count = MisbehaveOnce(act, 0, misbehave);
            for (int at = 1; at <= count; ++at) {
                SCOPED_TRACE(std::string(act.name) + ", call " + std::to_string(at));
                count = std::max(count, MisbehaveOnce(act, at, misbehave));
                if (HasFailure())
                    return;
            }
        }
    }

private:
    static int MisbehaveOnce(const Act& act, int at, const std::function<void(Scene&)>& misbehave) {
        Scene scene;
        if (act.bindsFirst)
            scene.Bind();
        scene.calls.count = 0;
        scene.calls.misbehavesAt = at;
        scene.calls.misbehave = [&] { misbehave(scene); };
        try {
            act.run(scene);
        } catch (const std::exception&) { // what misbehaved
        }
        const int count = scene.calls.count;
        scene.calls.misbehavesAt = 0;
        scene.calls.isOver = false;
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
        return count;
    }
};

TEST_F(CallsOfTheHost, AnExceptionLeavesABindingWholeOrUndone) {
    MisbehaveEverywhere([](Scene&) { throw std::runtime_error("of the host"); });
}

TEST_F(CallsOfTheHost, WantOfMemoryLeavesABindingWholeOrUndone) {
    MisbehaveEverywhere([](Scene&) { throw std::bad_alloc(); });
}

TEST_F(CallsOfTheHost, TheBindingMayEnd) {
    MisbehaveEverywhere([](Scene& scene) {
        if (!scene.grid)
            return;
        const bool wasBound = scene.grid->GetRootDisp();
        scene.grid->Clear();
        scene.calls.isOver = wasBound && !scene.grid->GetRootDisp();
    });
}

TEST_F(CallsOfTheHost, TheWindowMayBeDestroyed) {
    MisbehaveEverywhere([](Scene& scene) {
        if (!scene.grid)
            return;
        const bool wasBound = scene.grid->GetRootDisp();
        scene.grid->DestroyWindow();
        scene.calls.isOver = wasBound && !scene.grid->GetRootDisp();
    });
}

TEST_F(CallsOfTheHost, TheLayoutMayChange) {
    MisbehaveEverywhere([](Scene& scene) {
        if (scene.grid)
            scene.grid->SetLayoutMultiColumn({"Name", "x"});
    });
}

TEST_F(CallsOfTheHost, TheObjectMayLeaveOrComeBack) {
    MisbehaveEverywhere([](Scene& scene) {
        if (scene.grid)
            scene.grid->OnOperationRemove(&scene.root, "p", Group(&scene.point));
    });
    MisbehaveEverywhere([](Scene& scene) {
        if (!scene.grid)
            return;
        scene.grid->Clear();
        scene.Bind();
    });
}

} // namespace
} // namespace korvel

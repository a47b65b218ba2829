// wxPropertyGrid with the objects of the comparison.

#include "tree_scenario.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/frame.h>
#include <wx/propgrid/propgrid.h>

namespace {

class PropertyGridTree : public bench::Tree {
public:
    PropertyGridTree()
        : m_frame(new wxFrame(nullptr, wxID_ANY, "peer", wxDefaultPosition, wxSize(600, 800))),
          m_grid(new wxPropertyGrid(m_frame)) {
        m_frame->Show();
        Wait();
    }
    ~PropertyGridTree() override {
        m_frame->Destroy();
        Wait();
    }

    void Fill(bench::LiveRoot& root) override {
        m_grid->Freeze();
        for (int group = 0; group < root.GroupCount(); ++group) {
            bench::LiveGroup& object = root.Group(group);
            auto* category = new wxPropertyCategory(object.GetIdent(), object.GetIdent());
            m_grid->Append(category);
            m_groups.push_back(category);
            auto& members = m_members.emplace_back();
            std::list<std::string> names;
            object.GetMemberNames(names);
            for (const std::string& name : names) {
                korvel::CVariantValue value;
                object.GetMember(name, value);
                // A category's properties share one name space, so the group is part of the name.
                members.push_back(m_grid->AppendIn(
                    category, new wxStringProperty(name, object.GetIdent() + name, value.ToText())));
            }
            m_grid->Collapse(category);
        }
        m_grid->Thaw();
    }
    void ExpandAll() override { m_grid->ExpandAll(true); }
    void CollapseAll() override { m_grid->CollapseAll(); }
    void OpenGroup(int group) override { m_grid->Expand(m_groups[static_cast<std::size_t>(group)]); }
    void CloseGroup(int group) override { m_grid->Collapse(m_groups[static_cast<std::size_t>(group)]); }
    void Update(bench::LiveRoot& root, int group, int member) override {
        korvel::CVariantValue value;
        root.Group(group).GetMember(bench::LiveGroup::NameOf(member), value);
        m_grid->SetPropertyValueString(
            m_members[static_cast<std::size_t>(group)][static_cast<std::size_t>(member)], value.ToText());
    }
    void Paint() override {
        m_grid->Refresh();
        m_grid->Update();
        Wait();
    }
    void Clear() override {
        m_grid->Clear();
        m_groups.clear();
        m_members.clear();
    }

private:
    static void Wait() {
        while (wxTheApp->Pending())
            wxTheApp->Dispatch();
        wxTheApp->ProcessIdle();
    }

    wxFrame* m_frame;
    wxPropertyGrid* m_grid;
    std::vector<wxPropertyCategory*> m_groups;
    std::vector<std::vector<wxPGProperty*>> m_members;
};

} // namespace

class BenchmarkApp : public wxApp {
public:
    bool OnInit() override { return true; }
    int OnRun() override {
        wxEventLoop loop;
        const wxEventLoopActivator active(&loop);
        for (int i = 1; i < argc; ++i) {
            bench::MeasureTree(
                "wxPropertyGrid", std::atol(argv[i].utf8_str()),
                [] { return std::make_unique<PropertyGridTree>(); });
        }
        return 0;
    }
};

wxIMPLEMENT_APP(BenchmarkApp);

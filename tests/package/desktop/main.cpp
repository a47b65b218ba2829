// A host on a desktop: a window of its own with the grid in its layout, two groups one within the other, and
// a list that drops down.

#include "../expect.h"

#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>
#include <cstdint>
#include <korvel/editors/combo_list.h>
#include <korvel/grid/editable_grid.h>
#include <korvel/qt/embed.h>
#include <korvel/qt/qt_display.h>
#include <korvel/values/language.h>
#include <korvel/values/member_dispatch_imp.h>
#include <string>
#include <vector>

using namespace korvel;

namespace {

struct Object;

CVariantValue TextValue(const std::string& text) {
    CVariantValue value;
    value.Type = DT_String;
    value.Text = text;
    return value;
}

// The pane that the widget shows: its grid fills it.
class Pane : public CWnd {
public:
    Pane() {
        CreateEx(0, "KorvelFrame", "", 0, {0, 0, 300, 200}, nullptr, 0);
        grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL, {0, 0, 300, 200}, this, 105);
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
        if (message == WM_SIZE)
            grid.MoveWindow(GetClientRect());
        return result;
    }

    CEditableGrid grid{nullptr, nullptr};
};

// What lies on the ground; a value selects an entry by its name.
class Surfaces : public IEnumValue {
public:
    bool IsAutoDestroy() const override { return false; }
    void Destroy() override {}
    const EDataTyps& GetDataType() const override { return m_type; }
    const std::uint32_t& GetEnumFlags() const override { return m_flags; }
    long AddValue(const std::string&, const std::string&) override { return -1; }
    void RemoveValue(long) override {}
    bool GetName(long id, CVariantValue& name) override {
        name = TextValue(m_names.at(static_cast<std::size_t>(id)));
        return true;
    }
    bool SetName(long, const CVariantValue&) override { return false; }
    EnumPosition GetFirstPosition() override { return m_names.data(); }
    long GetNext(EnumPosition& position) override {
        auto* name = static_cast<std::string*>(position);
        position = name + 1 == m_names.data() + m_names.size() ? nullptr : name + 1;
        return static_cast<long>(name - m_names.data());
    }
    const CVariantValue* GetTemplate() const override { return nullptr; }
    bool IsValue(long id, const CVariantValue& value) override {
        return value.Text == m_names.at(static_cast<std::size_t>(id));
    }
    void Select(long id, CVariantValue& value) override {
        value.Text = m_names.at(static_cast<std::size_t>(id));
    }
    void Deselect(long, CVariantValue& value) override { value.Text.clear(); }
    const char* GetSeparator(bool) const override { return "/"; }

private:
    std::vector<std::string> m_names = {"gravel", "sand", "turf"};
    EDataTyps m_type = DT_String;
    std::uint32_t m_flags = 0;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    qt::QtDisplay display;
    SetDisplay(&display);
    Expect(SetLanguageForThisRun("English"));

    Surfaces surfaces;
    TMemberDispatchImp<Object> inner("inner");
    TMemberDispatchImp<Object> outer("outer");
    TMemberDispatchImp<Object> root("root");
    CVariantValue group;
    group.Type = DT_Group;
    group.Value.Dispatch = &inner;
    outer.AddMember("inner", false, group);
    group.Value.Dispatch = &outer;
    root.AddMember("outer", false, group);
    CVariantValue surface = TextValue("sand");
    surface.Type = DT_ListString;
    surface.EnumValue = &surfaces;
    inner.AddMember("surface", true, surface);

    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(new QLabel("Objects"));
    Pane pane;
    QWidget* widget = qt::Embed(pane.m_hWnd);
    layout->addWidget(widget, 1);
    window.resize(420, 320);
    window.show();
    QApplication::processEvents();
    pane.grid.Initialize(&root, "Name", "Value", 0);
    pane.grid.ExpandAll();
    Expect(pane.grid.GetItemCount() == 3);
    Expect(pane.grid.GetItemText(2, 1) == "sand");
    Expect(widget->width() > 300);
    Expect(pane.grid.GetWindowRect().Width() == widget->width());
    Expect(pane.grid.GetWindowRect().Height() == widget->height());
    Expect(!window.grab().isNull());

    CComboList list(eDropDown);
    Expect(list.CreateDropDown(&pane, 106));
    list.Initialize(&inner, "surface");
    SetWindowPos(list.m_hWnd, nullptr, {0, 0, 200, 100}, SWP_NOZORDER | SWP_NOACTIVATE);
    list.ShowWindow(SW_SHOWNA);
    QApplication::processEvents();
    Expect(list.GetItemCount() == 3);
    Expect(display.WidgetOf(list.m_hWnd) && display.WidgetOf(list.m_hWnd)->isVisible());
    list.SendMessageA(WM_KEYDOWN, VK_DOWN);
    Expect(list.GetValue().Text == "turf");
    list.UpdateDisp(nullptr);
    list.UnIntialize();
    CVariantValue chosen;
    Expect(inner.GetMember("surface", chosen) && chosen.Text == "turf");
    return 0;
}

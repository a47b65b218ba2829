// A host on a desktop: a window of its own with the grid in its layout, two groups one within the other, and
// a list that drops down.

#include "../../support/test_enumeration.h"
#include "../expect.h"

#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>
#include <korvel/editors/combo_list.h>
#include <korvel/grid/editable_grid.h>
#include <korvel/qt/embed.h>
#include <korvel/qt/qt_display.h>
#include <korvel/values/language.h>
#include <korvel/values/member_dispatch_imp.h>

using namespace korvel;

namespace {

struct Object;

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

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    qt::QtDisplay display;
    SetDisplay(&display);
    Expect(SetLanguageForThisRun("English"));

    TestEnumeration surfaces({"gravel", "sand", "turf"});
    TMemberDispatchImp<Object> inner("inner");
    TMemberDispatchImp<Object> outer("outer");
    TMemberDispatchImp<Object> root("root");
    outer.AddMember("inner", false, GroupValue(inner));
    root.AddMember("outer", false, GroupValue(outer));
    inner.AddMember("surface", true, surfaces.ValueOf(TestEnumeration::Key(2)));

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
    Expect(list.GetValue().ToText() == "turf");
    list.UpdateDisp(nullptr);
    list.UnIntialize();
    CVariantValue chosen;
    Expect(inner.GetMember("surface", chosen) && chosen.ToText() == "turf");
    return 0;
}

#pragma once

#include "korvel/values/language.h"
#include "korvel/window/display/window_view.h"
#include "support/grid_fixture.h"
#include "support/history_log.h"

namespace korvel {

/// The parent of a grid that is edited: writes down undoable steps, and what the grid says by WM_COMMAND
/// ("<7>") and WM_NOTIFY ("<22 text>").
class EditParent : public HistoryParent {
protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override {
        if (LOWORD(wParam) == GridId)
            log += "<" + std::to_string(HIWORD(wParam)) + ">";
        return HistoryParent::OnCommand(wParam, lParam);
    }
    bool OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        if (const auto& notice = *reinterpret_cast<const GridDropDownNotice*>(lParam);
            notice.hdr.code == GridDropDownCode)
            log += "<22 " + std::string(notice.text) + ">";
        return HistoryParent::OnNotify(wParam, lParam, result);
    }

public:
    static constexpr unsigned GridId = 77;
};

/// Forwards what it hears to the sinks, as hosts do, and writes it into the log of the parent.
class ForwardingObserver : public RecordingObserver {
public:
    explicit ForwardingObserver(std::string& lines) : m_log(lines) {}

    void OnChange(IMemberDispatch* disp, void*, const std::string& name,
                  const CVariantValue& value) override {
        m_log += " changed " + name + "=" + Shown(value) + " ";
        if (onChange)
            onChange();
        if (sinks.contains(disp))
            sinks[disp]->OnChange(name, value);
    }
    static std::string Shown(const CVariantValue& value) {
        switch (value.Type) {
        case DT_Bool:
            return value.Value.Bool ? "true" : "false";
        case DT_ColorRGB:
        case DT_ColorARGB: {
            char text[16];
            std::snprintf(text, sizeof text, "%08x", value.Value.UInt);
            return text;
        }
        case DT_FileName:
            return value.Text;
        default:
            return value.ToText(TextForm::Plain);
        }
    }
    std::function<void()> onChange;

private:
    std::string& m_log;
};

/// What a grid lets derived ones see.
struct OpenedGrid : CEditableGrid {
    using CEditableGrid::CalculateDroppedRect;
    using CEditableGrid::CEditableGrid;
    using CEditableGrid::m_ActiveControl;
    using CEditableGrid::m_ComboButton;
    using CEditableGrid::m_ComboEdit;
    using CEditableGrid::m_ComboList;
    using CEditableGrid::m_DateTime;
    using CEditableGrid::m_Edit;
    using CEditableGrid::m_HoverTimer;
    using CEditableGrid::m_pErrorReporter;
    using CEditableGrid::m_Spin;
};

/// A grid of which cells are edited, in a parent with another field. The root object has "v" 12.5 and "s"
/// "text", and after Bind others to scroll away to.
class EditTest : public GermanMachine {
protected:
    EditTest() {
        SetLanguageForThisRun("English");
        SetDisplay(&display);
        parent.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 400, 400}, nullptr, 0);
        other.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, {0, 300, 100, 320}, &parent, 5);
        grid.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL, {0, 0, 300, 224},
                    &parent, EditParent::GridId);
        grid.SetAllowFormats(false); // no menu for a right press
        root.onWrite = [this](const std::string& name, const CVariantValue& value) {
            parent.log += " set " + name + "=" + ForwardingObserver::Shown(value) + " ";
            if (onSet)
                onSet();
        };
        root.With("v", Number(DT_Double, 12.5)).With("s", Words(DT_String, "text"));
    }
    ~EditTest() override {
        grid.DestroyWindow();
        SetDisplay(nullptr);
    }

    void Bind() {
        for (int row = 0; row < 30; ++row)
            root.With("more " + std::to_string(row), Number(DT_Double, row));
        grid.Initialize(&root, "Name", "Value", 0);
        parent.Take();
    }
    CRect Cell(const std::string& name) const {
        return grid.GetSubItemRect(grid.RowOfNode(grid.LookupTreeItem(const_cast<HostObject*>(&root), name)),
                                   1);
    }
    void ClickAt(CPoint point) {
        input::Mouse(grid.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, point);
        input::Mouse(grid.m_hWnd, WM_LBUTTONUP, 0, point);
    }
    void Click(const std::string& name) { ClickAt({Cell(name).left + 2, MiddleOf(Cell(name)).y}); }
    void ClickRight(const std::string& name) { ClickAt({Cell(name).right - 5, MiddleOf(Cell(name)).y}); }
    void ClickLabel(const std::string& name) { ClickAt({60, MiddleOf(Cell(name)).y}); }
    /// A press in a window.
    static std::function<void()> PressIn(const CWnd& window, int x, int y) {
        return [&window, x, y] { input::Mouse(window.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, {x, y}); };
    }
    /// Into the field of a cell.
    void Type(const std::string& text) {
        SetWindowTextA(GetFocus(), "");
        for (const char character : text)
            input::Key(GetFocus(), WM_KEYDOWN, static_cast<unsigned char>(character), CString(1, character));
    }
    static bool Press(UINT key, const CString& characters = "", UINT message = WM_KEYDOWN) {
        return input::Key(GetFocus(), message, key, characters);
    }
    static void Return() { Press(VK_RETURN, "\r"); }
    bool IsFieldOpen() const { return grid.m_Edit.IsWindowVisible(); }
    /// The boxes since the last call; each has been answered with OK.
    std::size_t TakeBoxes() {
        return display.ShownBoxes().size() - std::exchange(m_seenBoxes, display.ShownBoxes().size());
    }
    /// Nothing is open, and the grid can be edited on.
    void ExpectUsable() {
        EXPECT_FALSE(grid.IsEditing());
        EXPECT_FALSE(IsFieldOpen());
        EXPECT_EQ(grid.m_ActiveControl, nullptr);
        EXPECT_EQ(grid.GetDroppedState(), 0);
        EXPECT_FALSE(grid.m_ComboEdit.IsWindowVisible());
        EXPECT_FALSE(grid.m_ComboButton.IsWindowVisible());
        EXPECT_TRUE(grid.EndEdit()) << "no commit is under way";
    }

    HeadlessDisplay display;
    EditParent parent;
    CEdit other;
    HostObject root{"root"};
    ForwardingObserver observer{parent.log};
    OpenedGrid grid{&observer, nullptr};
    std::function<void()> onSet;

private:
    std::size_t m_seenBoxes = 0;
};

} // namespace korvel

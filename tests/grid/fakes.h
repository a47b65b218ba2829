#pragma once

#include "grid/editable_grid.h"
#include "values/enum_value.h"
#include "values/group_presentation.h"
#include "values/member_dispatch_imp.h"
#include "window/headless_display.h"
#include "window/input.h"

#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvel {

inline CVariantValue Number(EDataTyps type, double number) {
    CVariantValue value;
    value.Type = type;
    value.Value.Double = number;
    return value;
}

inline CVariantValue Whole(EDataTyps type, std::int32_t number) {
    CVariantValue value;
    value.Type = type;
    value.Value.Int = number;
    return value;
}

inline CVariantValue Word(EDataTyps type, std::uint32_t word) {
    CVariantValue value;
    value.Type = type;
    value.Value.UInt = word;
    return value;
}

inline CVariantValue Flag(bool on) {
    CVariantValue value;
    value.Type = DT_Bool;
    value.Value.Bool = on;
    return value;
}

inline CVariantValue Words(EDataTyps type, std::string text) {
    CVariantValue value;
    value.Type = type;
    value.Text = std::move(text);
    return value;
}

inline CVariantValue Group(IMemberDispatch* object) {
    CVariantValue value;
    value.Type = DT_Group;
    value.Value.Dispatch = object;
    return value;
}

/// An object of the host. Counts the writes that reach it, and misbehaves when told.
class HostObject : public TMemberDispatchImp<HostObject> {
    using Base = TMemberDispatchImp<HostObject>;

public:
    explicit HostObject(std::string ident = "object") : Base(std::move(ident)) { m_Options = DO_KeepOrder; }

    HostObject& With(const std::string& name, const CVariantValue& value) {
        AddMember(name, true, value);
        return *this;
    }

    void GetMemberNames(std::list<std::string>& names) override {
        if (throwsOn == "*")
            throw std::runtime_error("no names");
        Base::GetMemberNames(names);
    }
    bool GetMember(const std::string& name, CVariantValue& value) override {
        if (name == throwsOn)
            throw std::runtime_error("no value");
        if (onRead)
            onRead(name);
        return Base::GetMember(name, value);
    }
    bool SetMember(const std::string& name, const CVariantValue& value) override {
        ++writes;
        return Base::SetMember(name, value);
    }

    int writes = 0;
    std::string throwsOn; // a member's name; "*": the names
    std::function<void(const std::string&)> onRead;
};

/// The host's observer: writes down what it hears, objects by their names, and keeps the sinks.
class RecordingObserver final : public IObserverGrid {
public:
    void AddSink(IMemberDispatch* disp, IObserverGridSink* sink) override {
        log.push_back("+" + NameOf(disp) + (sink ? "" : " without sink"));
        sinks[disp] = sink;
    }
    void RemoveSink(IMemberDispatch* disp, IObserverGridSink*) override {
        log.push_back("-" + NameOf(disp));
        sinks.erase(disp);
    }
    void OnChange(IMemberDispatch*, void*, const std::string&, const CVariantValue&) override {}
    void OnRemove(IMemberDispatch*, void*, const std::string&) override {}
    void OnRename(IMemberDispatch*, void*, const std::string&, const std::string&) override {}
    void OnAdd(IMemberDispatch*, void*, const std::string&, const CVariantValue&) override {}
    void OnChangeEditFlag(IMemberDispatch*, void*, const std::string&, const bool&) override {}
    void OnChangeType(IMemberDispatch*, void*, const std::string&, EDataTyps, const CVariantValue&) override {
    }

    std::vector<std::string> Take() { return std::exchange(log, {}); }

    std::vector<std::string> log;
    std::map<IMemberDispatch*, IObserverGridSink*> sinks;

private:
    static std::string NameOf(IMemberDispatch* disp) { return disp ? disp->GetIdent() : "null"; }
};

/// An enumeration with entries "entry 0" and so on, of which the value's Text names the selected one. It may
/// be the presentation of a group at the same time.
class HostEnumeration : public IEnumValue, public IGroupPresentation {
public:
    bool IsAutoDestroy() const override { return false; }
    void Destroy() override {}
    const EDataTyps& GetDataType() const override { return type; }
    const std::uint32_t& GetEnumFlags() const override { return flags; }
    long AddValue(const std::string&, const std::string&) override { return -1; }
    void RemoveValue(long) override {}
    bool GetName(long id, CVariantValue& name) override {
        name = entries[static_cast<std::size_t>(id)];
        return true;
    }
    bool SetName(long, const CVariantValue&) override { return false; }
    EnumPosition GetFirstPosition() override { return entries.empty() ? nullptr : entries.data(); }
    long GetNext(EnumPosition& position) override {
        const auto* entry = static_cast<const CVariantValue*>(position);
        const long id = entry - entries.data();
        position = id + 1 < static_cast<long>(entries.size()) ? entries.data() + id + 1 : nullptr;
        return id;
    }
    const CVariantValue* GetTemplate() const override { return nullptr; }
    bool IsValue(long id, const CVariantValue&) override { return id == selected; }
    void Select(long, CVariantValue&) override {}
    void Deselect(long, CVariantValue&) override {}
    const char* GetSeparator(bool) const override { return "/"; }

    std::string GetPresentationText(const char* column) override {
        return column ? std::string("in ") + column : "as text";
    }
    unsigned char GetPresentationKind() override { return kind; }
    void OnPresentationClick() override {}

    CVariantValue ListValue(EDataTyps listType) {
        CVariantValue value;
        value.Type = listType;
        value.EnumValue = this;
        return value;
    }

    EDataTyps type = DT_String;
    std::uint32_t flags = 0;
    unsigned char kind = 1;
    std::vector<CVariantValue> entries;
    long selected = 0;
};

/// A frame with room for a grid of 300 by 224 pixels: the header takes 24, a row 20, so that ten rows are on
/// screen.
class GridTest : public testing::Test {
protected:
    GridTest() {
        SetDisplay(&display);
        frame.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 400, 400}, nullptr, 0);
    }
    ~GridTest() override { SetDisplay(nullptr); }

    void Make(CSuperGridCtrl& grid, UINT style = 0) {
        grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL | LVS_OWNERDRAWFIXED | style,
                    {0, 0, 300, 224}, &frame, 105);
    }
    /// A bare grid with the columns "Name" and "Value", 150 pixels each.
    void MakeBare(CSuperGridCtrl& grid) {
        Make(grid);
        grid.InsertColumn(0, "Name", 150);
        grid.InsertColumn(1, "Value", 150);
    }

    static void Press(CSuperGridCtrl& grid, UINT key) { input::Key(grid.m_hWnd, WM_KEYDOWN, key, ""); }
    static void Click(CSuperGridCtrl& grid, CPoint point, UINT message = WM_LBUTTONDOWN) {
        input::Mouse(grid.m_hWnd, message, MK_LBUTTON, point);
        input::Mouse(grid.m_hWnd, WM_LBUTTONUP, 0, point);
    }
    static void Select(CSuperGridCtrl& grid, int row) {
        grid.SetFocus();
        grid.SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    }
    static int SelectedRow(const CSuperGridCtrl& grid) { return grid.GetNextItem(-1, LVNI_SELECTED); }

    static CItemInfo* Info(std::string text, std::vector<std::string> cells = {}) {
        auto* info = new CItemInfo;
        info->text = std::move(text);
        for (auto& cell : cells)
            info->SetSubItem(info->GetSubItemCount(), std::move(cell));
        return info;
    }

    /// The rows as text: blanks for the depth, then the cells.
    static std::vector<std::string> Rows(const CSuperGridCtrl& grid) {
        std::vector<std::string> rows;
        for (int row = 0; row < grid.GetItemCount(); ++row) {
            std::string line(static_cast<std::size_t>(grid.GetItemIndent(row) - 1), ' ');
            for (int column = 0; column < grid.GetColumnCount(); ++column)
                line += (column ? "|" : "") + grid.GetItemText(row, column);
            rows.push_back(line);
        }
        return rows;
    }

    HeadlessDisplay display;
    CWnd frame;
};

using Lines = std::vector<std::string>;

} // namespace korvel

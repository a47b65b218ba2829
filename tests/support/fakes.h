#pragma once

#include "korvel/grid/editable_grid.h"
#include "korvel/values/group_presentation.h"
#include "korvel/values/member_dispatch_imp.h"
#include "korvel/window/core/registered_messages.h"
#include "support/make_value.h"
#include "support/quiet_observer.h"
#include "support/test_enumeration.h"

#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvel {

inline CVariantValue Number(EDataTyps type, double number) {
    return MakeValue(type, number);
}
inline CVariantValue Whole(EDataTyps type, std::int32_t number) {
    return MakeValue(type, number);
}
inline CVariantValue Word(EDataTyps type, std::uint32_t word) {
    return MakeValue(type, word);
}
inline CVariantValue Flag(bool on) {
    return MakeValue(DT_Bool, on);
}
inline CVariantValue Words(EDataTyps type, const std::string& text) {
    return MakeValue(type, text);
}
inline CVariantValue Group(IMemberDispatch* object) {
    return MakeValue(DT_Group, object);
}

/// Says when the host is called, and writes it down.
struct OfTheHost {
    std::function<void()> onCall;
    std::function<bool()> refuses; // asked in each call
    std::string* calls = nullptr;  // "operation member " of each call that concerns a member
    std::function<void(const std::string& operation)> onOperation; // of those calls

protected:
    void Call() const {
        if (onCall)
            onCall();
    }
    /// False: the call is to be refused.
    bool Call(const std::string& operation, const std::string& member) const {
        if (calls)
            *calls += operation + " " + member + " ";
        Call();
        if (onOperation)
            onOperation(operation);
        return !refuses || !refuses();
    }
};

/// An object of the host. Counts the writes that reach it, and misbehaves when told.
class HostObject : public TMemberDispatchImp<HostObject>, public OfTheHost {
    using Base = TMemberDispatchImp<HostObject>;

public:
    explicit HostObject(std::string ident = "object") : Base(std::move(ident)) { m_Options = DO_KeepOrder; }

    HostObject& With(const std::string& name, const CVariantValue& value) {
        AddMember(name, true, value);
        return *this;
    }

    /// A member as it is, told to nobody.
    CVariantValue Get(const std::string& name) {
        CVariantValue value;
        Base::GetMember(name, value);
        return value;
    }
    /// Removes all members.
    void LetGo() {
        std::list<std::string> names;
        Base::GetMemberNames(names);
        for (const std::string& name : names)
            Base::RemoveMember(name);
    }

    void GetMemberNames(std::list<std::string>& names) override {
        Call();
        if (throwsOn == "*")
            throw std::runtime_error("no names");
        Base::GetMemberNames(names);
    }
    std::uint32_t GetOptions() const override { return Call(), Base::GetOptions(); }
    std::uint32_t GetEditFlags() const override { // which the group that owns this one asks, too
        if (onOperation)
            onOperation("may");
        return Base::GetEditFlags();
    }
    bool GetMemberType(const std::string& name, EDataTyps& type) override {
        return Call("type", name) && Base::GetMemberType(name, type);
    }
    bool IsMemberEditable(const std::string& name) override {
        return Call("editable?", name) && Base::IsMemberEditable(name);
    }
    bool SetMemberEditable(const std::string& name, const bool& editable) override {
        return Call(editable ? "unprotect" : "protect", name) && Base::SetMemberEditable(name, editable);
    }
    bool GetMember(const std::string& name, CVariantValue& value) override {
        const bool isAllowed = Call("get", name);
        if (name == throwsOn)
            throw std::runtime_error("no value");
        if (onRead)
            onRead(name);
        return isAllowed && Base::GetMember(name, value);
    }
    bool SetMember(const std::string& name, const CVariantValue& value) override {
        const bool isAllowed = Call("set", name);
        ++writes;
        if (onWrite)
            onWrite(name, value);
        return isAllowed && Base::SetMember(name, value);
    }
    std::uint32_t GetMemberFlags(const std::string& name) override {
        return Call("flags", name) ? memberFlags : 0;
    }
    std::string GetMemberLabel(const std::string& name) const override {
        return Call("label", name), name + labelEnd;
    }
    bool AddMember(const std::string& name, bool editable, const CVariantValue& value) override {
        return Call("add", name) && Base::AddMember(name, editable, value);
    }
    bool RemoveMember(const std::string& name) override {
        return Call("remove", name) && Base::RemoveMember(name);
    }
    bool RenameMember(const std::string& name, const std::string& newName) override {
        return Call("rename", name + ">" + newName) && Base::RenameMember(name, newName);
    }
    bool ChangeMemberType(const std::string& name, const EDataTyps& type) override {
        return Call("retype", name) && Base::ChangeMemberType(name, type);
    }
    const std::string& GetIdent() const override {
        if (countsIdent)
            Call();
        return Base::GetIdent();
    }
    bool OnMemberCommand(const std::string& name, std::uint32_t id) override {
        return Call("command", id == 0 ? name : name + " " + std::to_string(id));
    }
    bool OnCommand(std::uint32_t id) override { return Call("run", std::to_string(id)); }
    void GetMemberCommands(const std::string& name, std::list<SCommand>& list) override {
        Call("commands of", name);
        list.insert(list.end(), memberCommands.begin(), memberCommands.end());
    }
    void GetMemberExtraCommands(const std::string& name, std::list<SCommand>& list) override {
        Call("extras of", name);
        list.insert(list.end(), memberExtraCommands.begin(), memberExtraCommands.end());
    }
    void GetCommands(std::list<SCommand>& list) override {
        Call("commands", "");
        list.insert(list.end(), commands.begin(), commands.end());
    }
    void GetExtraCommands(std::list<SCommand>& list) override {
        Call("extras", "");
        list.insert(list.end(), extraCommands.begin(), extraCommands.end());
    }
    bool OnAddMember() override { return Call("adding?", ""), doesItself; }
    bool OnRenameMember(const char* name, const char* newName) override {
        return Call("renaming?", std::string(name) + ">" + newName), doesItself;
    }
    bool OnRemoveMember(const char* name) override { return Call("removing?", name), doesItself; }

    std::uint32_t memberFlags = 0;
    std::list<SCommand> memberCommands, memberExtraCommands, commands, extraCommands;
    std::string labelEnd;     // after each name in a label
    bool countsIdent = false; // as a call
    bool doesItself = false;
    int writes = 0;
    std::string throwsOn; // a member's name; "*": the names
    std::function<void(const std::string&)> onRead;
    std::function<void(const std::string&, const CVariantValue&)> onWrite; // before the value is kept
};

/// The host's observer: writes down what it hears, objects by their names, and keeps the sinks.
class RecordingObserver : public QuietObserver, public OfTheHost {
public:
    void AddSink(IMemberDispatch* disp, IObserverGridSink* sink) override {
        log.push_back("+" + NameOf(disp) + (sink ? "" : " without sink"));
        sinks[disp] = sink;
        Call();
    }
    void RemoveSink(IMemberDispatch* disp, IObserverGridSink*) override {
        log.push_back("-" + NameOf(disp));
        sinks.erase(disp);
        ++m_removals;
        Call();
        if (throwsOnRemove)
            throw std::runtime_error(log.back());
    }

    void OnChange(IMemberDispatch* disp, void*, const std::string& name,
                  const CVariantValue& value) override {
        Hear(
            disp, "changed", name, [&](IObserverGridSink& sink) { sink.OnChange(name, value); });
    }
    void OnRemove(IMemberDispatch* disp, void*, const std::string& name) override {
        Hear(
            disp, "removed", name, [&](IObserverGridSink& sink) { sink.OnOperationRemove(name, {}); });
    }
    void OnRename(IMemberDispatch* disp, void*, const std::string& name,
                  const std::string& newName) override {
        Hear(
            disp, "renamed", name + ">" + newName,
            [&](IObserverGridSink& sink) { sink.OnOperationRename(name, newName); });
    }
    void OnAdd(IMemberDispatch* disp, void*, const std::string& name, const CVariantValue& value) override {
        Hear(
            disp, "added", name, [&](IObserverGridSink& sink) { sink.OnOperationAdd(name, value); });
    }
    void OnChangeEditFlag(IMemberDispatch* disp, void*, const std::string& name,
                          const bool& editable) override {
        Hear(
            disp, editable ? "unprotected" : "protected", name,
            [&](IObserverGridSink& sink) { sink.OnChangeEditFlag(name, editable); });
    }
    void OnChangeType(IMemberDispatch* disp, void*, const std::string& name, EDataTyps type,
                      const CVariantValue& value) override {
        Hear(
            disp, "retyped", name + " from " + std::to_string(type) + " to " + std::to_string(value.Type),
            [&](IObserverGridSink& sink) { sink.OnOperationChangeType(name, type, value); });
    }

    std::vector<std::string> Take() { return std::exchange(log, {}); }

    std::vector<std::string> log;
    std::map<IMemberDispatch*, IObserverGridSink*> sinks;
    bool answers = false;        // tells the object's sink what it heard
    bool throwsOnRemove = false; // the line of the log

private:
    void Hear(IMemberDispatch* disp, const std::string& operation, const std::string& member,
              const std::function<void(IObserverGridSink&)>& answer) {
        const int before = m_removals;
        Call(operation, member);
        if (const auto sink = sinks.find(disp); answers && before == m_removals && sink != sinks.end())
            answer(*sink->second); // what is shown anew knows it already
    }
    static std::string NameOf(IMemberDispatch* disp) { return disp ? disp->GetIdent() : "null"; }

    int m_removals = 0;
};

/// An enumeration of which a value shows the first entry. It may be the presentation of a group, too.
class HostEnumeration : public TestEnumeration, public GroupPresentation {
public:
    std::string GetPresentationText(const char* column) override {
        onCall ? onCall("presentation", 0) : void();
        return column ? std::string("in ") + column : "as text";
    }
    unsigned char GetPresentationKind() override {
        onCall ? onCall("presentation", 0) : void();
        return kind;
    }
    void OnPresentationClick() override {}

    /// A value of this list type, with one entry.
    CVariantValue ListOf(EDataTyps listType, CVariantValue entry) {
        entries = {{1, std::move(entry)}};
        return MakeList(listType, Key(1), this);
    }

    unsigned char kind = 1;
};

using Lines = std::vector<std::string>;

/// A bare grid of the host that copies its infos, writes down its hooks, and refuses the one that it is told
/// to.
class HookedGrid : public CSuperGridCtrl {
public:
    BOOL OnNodeExpanding(CTreeItem* node, int row) override { return Hook("expanding", node, row); }
    BOOL OnNodeExpanded(CTreeItem* node, int row) override { return Hook("expanded", node, row); }
    BOOL OnNodeCollapsing(CTreeItem* node) override { return Hook("collapsing", node, node->row()); }
    BOOL OnNodeCollapsed(CTreeItem* node) override { return Hook("collapsed", node, node->row()); }
    BOOL OnRowDeleting(CTreeItem* node, int row) override { return Hook("deleting", node, row); }
    BOOL OnExpandAllKey(CTreeItem* node, int row) override { return Hook("expand all", node, row); }
    BOOL OnCollapseKey(CTreeItem* node, int row) override { return Hook("collapse key", node, row); }
    BOOL OnExpandKey(CTreeItem* node, int row) override { return Hook("expand key", node, row); }
    BOOL OnRowClick(LVHITTESTINFO& hit) override { return Hook("click", NodeAtRow(hit.iItem), hit.iItem); }
    void OnControlLButtonDown(UINT, CPoint, LVHITTESTINFO& hit) override {
        Hook("cell " + std::to_string(hit.iSubItem), NodeAtRow(hit.iItem), hit.iItem);
    }

    CItemInfo* CopyItemInfo(const CItemInfo* source) override { return new CItemInfo(*source); }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (onMessage)
            onMessage(message);
        return CSuperGridCtrl::WindowProc(message, wParam, lParam);
    }
    using CSuperGridCtrl::DeleteAllNodes;
    using CSuperGridCtrl::TakeNode;

    std::function<void(UINT message)> onMessage;
    std::function<void(const NMLISTVIEW&)> onNotice; // LVN_DELETEITEM and LVN_ITEMCHANGED of its own list

    Lines Take() { return std::exchange(m_log, {}); }
    std::string refused;

protected:
    bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        const auto* notice = reinterpret_cast<const NMLISTVIEW*>(lParam);
        if (message == WM_NOTIFY && onNotice &&
            (notice->hdr.code == LVN_DELETEITEM || notice->hdr.code == LVN_ITEMCHANGED))
            onNotice(*notice);
        return CSuperGridCtrl::OnChildNotify(message, wParam, lParam, result);
    }

private:
    BOOL Hook(const std::string& name, const CTreeItem* node, int row) {
        m_log.push_back(name + " " + node->info->text + " " + std::to_string(row));
        return name != refused;
    }
    Lines m_log;
};

/// An attribute grid of the host that writes down the edits that clicks ask for, and draws flags of one name
/// checked.
class HostGrid : public CEditableGrid, public OfTheHost {
public:
    using CEditableGrid::CEditableGrid;
    using CEditableGrid::m_pErrorReporter;
    using CEditableGrid::m_pObserver;
    void ConvertToOutput(IMemberDispatch* disp, const std::string& name, const CVariantValue& value,
                         std::string& text, CItemInfo::CONTROLTYPE& control) override {
        Call();
        CEditableGrid::ConvertToOutput(disp, name, value, text, control);
    }
    bool OnGetCheckState(IMemberDispatch*, const std::string& name, const CVariantValue&) override {
        return name == "always";
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_STYLECHANGED)
            Call();
        return CEditableGrid::WindowProc(message, wParam, lParam);
    }
    bool OpenFile(CString) override { return Call(), true; }
    using CEditableGrid::m_DateTime;
    std::string edits;
    bool editsCells = false; // and does not only write down that it should

protected:
    void CtrlClear() override {
        Call();
        CEditableGrid::CtrlClear();
    }
    void OnEdit(CItemInfo* info, int row, int column, CPoint point, IMemberDispatch* disp,
                const CString& name) override {
        edits +=
            std::to_string(row) + ":" + std::to_string(column) + " " + disp->GetIdent() + "." + name + " ";
        if (editsCells)
            CEditableGrid::OnEdit(info, row, column, point, disp, name);
    }
};

/// Chooses the image of a row, and writes down what it was asked.
class ImageParent : public CWnd {
public:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != WM_GET_IMAGEINDEX)
            return CWnd::WindowProc(message, wParam, lParam);
        auto& question = *reinterpret_cast<ImageIndex*>(lParam);
        asked.push_back(*question.name + std::to_string(question.index) + question.disp->GetIdent());
        question.index += 40;
        return 0;
    }
    Lines asked;
};

} // namespace korvel

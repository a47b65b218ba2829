#pragma once

#include "korvel/grid/attribute_columns.h"
#include "korvel/grid/attribute_rows.h"
#include "korvel/grid/clipboard_copies.h"
#include "korvel/grid/column_state.h"
#include "korvel/grid/editable_grid.h"
#include "korvel/grid/edited_members.h"
#include "korvel/grid/write_frame.h"

#include <atomic>

namespace korvel {

/// The rows of the grid's objects with the grid as their tree, and what acts in them.
class CEditableGrid::Binding final : private internal::AttributeTree, public internal::EditedMembers {
public:
    Binding(CEditableGrid& grid, IObserverGrid* observer);

    /// Whether the box of a flag is drawn checked.
    bool IsChecked(IMemberDispatch* disp, const std::string& name);

    CTreeItem* FindRow(IMemberDispatch* disp, const std::string& name) const override {
        return rows.Find(disp, name);
    }
    int ColumnOf(const std::string& name) const override { return rows.layout.ColumnOf(name); }
    IMemberDispatch* ObjectOf(const CTreeItem& row) const override { return rows.ObjectOf(&row); }
    std::string MemberOf(const CTreeItem& row, int column) const override {
        return m_grid.MemberOfCell(row, column);
    }
    bool RowsAreObjects() const override { return rows.layout.RowsAreObjects(); }
    GridOptions Options() const override { return m_grid.m_options; }
    void ShowValue(IMemberDispatch* disp, const std::string& name, const CVariantValue& value) override {
        m_grid.OnChange(disp, name, value);
    }
    void ShowAngles() override { rows.RewriteMembers(internal::FormatService::Angle); }
    void OpenFile(const std::string& path) override;

private:
    CTreeItem* LinkRow(CTreeItem* parent, std::unique_ptr<CItemInfo> info, int position) override;
    void ShowRow(CTreeItem& row) override { m_grid.ShowNode(&row); }
    void RemoveRow(CTreeItem& row) override { m_grid.TakeNode(&row); }
    void RewriteRow(const CTreeItem& row) override { m_grid.RefreshRowTexts(&row); }
    void ChangeMany(const std::function<void()>& change) override;
    void OnFilled() override { columns.SetWidths(); }
    void OnEnding() override { m_grid.CtrlClear(); }
    void OnEnded() override;
    void ConvertToOutput(IMemberDispatch* disp, const std::string& name, const CVariantValue& value,
                         std::string& text, CItemInfo::CONTROLTYPE& control) override {
        m_grid.ConvertToOutput(disp, name, value, text, control);
    }
    int ChooseImage(int image, const std::string& name, IMemberDispatch* disp) override;
    std::unique_ptr<IObserverGridSink> MakeSink(IMemberDispatch* disp) override;

    CEditableGrid& m_grid;

public:
    std::atomic<HWND> window = nullptr; // where the sinks send, from any thread
    internal::AttributeRows rows;       // asks for a sink when it is made
    internal::AttributeColumns columns;
    internal::WriteFrame frame;
    internal::ClipboardCopies copies;
    internal::ColumnState columnState;
};

} // namespace korvel

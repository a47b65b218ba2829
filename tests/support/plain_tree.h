#pragma once

#include "korvel/editors/cell_conversion.h"
#include "korvel/grid/attribute_rows.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace korvel::internal {

/// A tree of attribute rows that nobody sees.
class PlainTree final : public AttributeTree {
public:
    explicit PlainTree(IObserverGrid* observer) : rows(*this, observer, m_kind) {}
    ~PlainTree() { rows.Unbind(); }

    /// Blanks for the depth, the text, the value.
    std::vector<std::string> GetLines() const {
        std::vector<std::string> lines;
        Append(m_forest->children(), "", lines);
        return lines;
    }

    CTreeItem* LinkRow(CTreeItem* parent, std::unique_ptr<CItemInfo> info, int position) override {
        auto* row = new CTreeItem(info.release());
        (parent ? parent : m_forest.get())->InsertChild(position, row);
        return row;
    }
    void ShowRow(CTreeItem&) override {
        if (onShow)
            onShow();
    }
    void RemoveRow(CTreeItem& row) override {
        CTreeItem* parent = row.parent();
        (parent ? parent : m_forest.get())->RemoveChild(&row);
        rows.OnRowUnlinked(row, parent);
        delete row.info;
        delete &row;
    }
    void RewriteRow(const CTreeItem&) override {}
    void ChangeMany(const std::function<void()>& change) override { change(); }
    void OnFilled() override {}
    void OnEnding() override {}
    void OnEnded() override {
        m_forest = CTreeItem::MakeForest();
        columns = 0;
    }
    void ConvertToOutput(IMemberDispatch*, const std::string&, const CVariantValue& value, std::string& text,
                         CItemInfo::CONTROLTYPE& control) override {
        ConvertCell(value, TextForm::UserFacing, text, control);
    }
    int ChooseImage(int image, const std::string&, IMemberDispatch*) override { return image; }
    std::unique_ptr<IObserverGridSink> MakeSink(IMemberDispatch*) override { return nullptr; }

private:
    static void Append(const ChildList& family, const std::string& indent, std::vector<std::string>& lines) {
        for (const CTreeItem* row : family) {
            lines.push_back(indent + row->info->text + "|" + row->info->GetSubItem(0));
            Append(row->children(), indent + " ", lines);
        }
    }

    const EGridLayout m_kind = eSingleAttrColumn;
    std::unique_ptr<CTreeItem> m_forest = CTreeItem::MakeForest();

public:
    std::function<void()> onShow; // hears of each row
    int columns = 0;              // that a binding has
    AttributeRows rows;
};

} // namespace korvel::internal

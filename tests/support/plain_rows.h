#pragma once

#include "korvel/grid/row_list.h"

#include <functional>
#include <utility>
#include <vector>

namespace korvel {

/// The rows of a tree in a plain vector, which follows rows while they leave as a real list does.
class PlainRows final : public internal::RowList {
public:
    /// Hears of each row that leaves, and may change the tree or throw.
    std::function<void(int row)> onLeaving;
    /// Hears that an info is copied.
    std::function<void()> onCopying;
    int insertions = 0;
    int unlinked = 0;

    int Count() const override { return static_cast<int>(m_rows.size()); }
    CTreeItem* At(int row) const override {
        return row < 0 || row >= Count() ? nullptr : m_rows[static_cast<std::size_t>(row)].node;
    }
    void Rewrite(int row, CTreeItem* node) override { m_rows[static_cast<std::size_t>(row)].node = node; }
    void Insert(int row, const internal::NodeRuns& runs) override {
        ++insertions;
        for (const internal::NodeRun& run : runs)
            for (CTreeItem* node : run.nodes)
                m_rows.insert(m_rows.begin() + row++, {node, m_nextId++});
    }
    void Mark(int, int) override {}
    void Remove(int first, int last) override {
        std::vector<int> leaving;
        for (int row = first; row < last; ++row)
            leaving.push_back(m_rows[static_cast<std::size_t>(row)].id);
        for (; !leaving.empty(); leaving.pop_back()) {
            if (const int row = RowOf(leaving.back()); row >= 0 && onLeaving)
                onLeaving(row);
            if (const int row = RowOf(leaving.back()); row >= 0)
                RemoveQuietly(row, row + 1);
        }
    }
    void RemoveQuietly(int first, int last) override {
        m_rows.erase(m_rows.begin() + first, m_rows.begin() + last);
    }
    void RemoveAll() override { RemoveQuietly(0, Count()); }
    void Redraw(int) override {}
    void ChangeMany(const std::function<void()>& change) override { change(); }
    CItemInfo* CopyInfo(const CItemInfo* source) override {
        auto* copy = new CItemInfo(*source);
        if (onCopying)
            onCopying();
        return copy;
    }
    void OnUnlinked(CTreeItem&, const CTreeItem*) override { ++unlinked; }

private:
    struct Row {
        CTreeItem* node;
        int id;
    };
    int RowOf(int id) const {
        int row = Count() - 1; // rows leave from the last one up
        while (row >= 0 && m_rows[static_cast<std::size_t>(row)].id != id)
            --row;
        return row;
    }

    std::vector<Row> m_rows;
    int m_nextId = 0;
};

} // namespace korvel

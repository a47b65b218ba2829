// The attribute grid, QTreeWidget and QTreeView over a model of its own, with the objects of the comparison.

#include "korvel/grid/editable_grid.h"
#include "korvel/qt/embed.h"
#include "korvel/qt/qt_display.h"
#include "korvel/window/core/display.h"
#include "tree_scenario.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QHeaderView>
#include <QTreeView>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <array>
#include <memory>

namespace {

QString TextOf(bench::LiveGroup& object, const std::string& name) {
    korvel::CVariantValue value;
    object.GetMember(name, value);
    return QString::fromLatin1(value.ToText().c_str());
}

// Paints the whole widget and waits for it.
void PaintNow(QWidget& widget) {
    bench::Keep(widget.grab());
}

// The widget must go before the two windows.
std::unique_ptr<QWidget> Show(korvel::CWnd& frame, korvel::CListCtrl& grid) {
    frame.CreateEx(0, "KorvelFrame", "ours", korvel::WS_OVERLAPPEDWINDOW, {0, 0, 600, 800}, nullptr, 0);
    grid.Create(korvel::WS_CHILD | korvel::WS_VISIBLE | korvel::LVS_REPORT | korvel::LVS_SINGLESEL,
                {0, 0, 600, 800}, &frame, 105);
    std::unique_ptr<QWidget> widget(korvel::qt::Embed(frame.m_hWnd));
    widget->resize(600, 800);
    widget->show();
    QApplication::processEvents();
    return widget;
}

class GridTree : public bench::Tree {
public:
    GridTree() : m_grid(nullptr, nullptr), m_widget(Show(m_frame, m_grid)) {}

    void Fill(bench::LiveRoot& root) override { m_grid.Initialize(&root, "Name", "Value", 0); }
    void ExpandAll() override { m_grid.ExpandAll(); }
    void CollapseAll() override { m_grid.CollapseAll(); }
    void OpenGroup(int group) override {
        auto* node = Node(group);
        m_grid.ExpandNode(node, m_grid.RowOfNode(node));
    }
    void CloseGroup(int group) override { m_grid.CollapseNode(Node(group)); }
    void Update(bench::LiveRoot& root, int group, int member) override {
        const std::string name = bench::LiveGroup::NameOf(member);
        korvel::CVariantValue value;
        root.Group(group).GetMember(name, value);
        m_grid.OnChange(&root.Group(group), name, value);
    }
    void Paint() override { PaintNow(*m_widget); }
    void Clear() override { m_grid.Clear(); }

private:
    korvel::CSuperGridCtrl::CTreeItem* Node(int group) { return m_grid.rootItems()[group]; }

    korvel::CWnd m_frame;
    korvel::CEditableGrid m_grid;
    std::unique_ptr<QWidget> m_widget;
};

class TreeWidgetTree : public bench::Tree {
public:
    TreeWidgetTree() {
        m_tree.setUniformRowHeights(true);
        m_tree.setColumnCount(2);
        m_tree.resize(600, 800);
        m_tree.show();
        QApplication::processEvents();
    }
    void Fill(bench::LiveRoot& root) override {
        m_tree.setUpdatesEnabled(false);
        QList<QTreeWidgetItem*> groups;
        for (int group = 0; group < root.GroupCount(); ++group) {
            bench::LiveGroup& object = root.Group(group);
            auto* item = new QTreeWidgetItem({QString::fromStdString(object.GetIdent())});
            std::list<std::string> names;
            object.GetMemberNames(names);
            QList<QTreeWidgetItem*> members;
            for (const std::string& name : names) {
                auto* member = new QTreeWidgetItem;
                member->setText(0, QString::fromLatin1(name.c_str()));
                member->setText(1, TextOf(object, name));
                members.push_back(member);
            }
            item->addChildren(members);
            groups.push_back(item);
        }
        m_tree.addTopLevelItems(groups);
        m_tree.setUpdatesEnabled(true);
    }
    void ExpandAll() override { m_tree.expandAll(); }
    void CollapseAll() override { m_tree.collapseAll(); }
    void OpenGroup(int group) override { m_tree.expandItem(m_tree.topLevelItem(group)); }
    void CloseGroup(int group) override { m_tree.collapseItem(m_tree.topLevelItem(group)); }
    void Update(bench::LiveRoot& root, int group, int member) override {
        m_tree.topLevelItem(group)->child(member)->setText(
            1, TextOf(root.Group(group), bench::LiveGroup::NameOf(member)));
    }
    void Paint() override { PaintNow(m_tree); }
    void Clear() override { m_tree.clear(); }

private:
    QTreeWidget m_tree;
};

// Keeps the texts of two levels in plain vectors: the leanest model that shows the same.
class FlatModel : public QAbstractItemModel {
public:
    struct Group {
        QString name;
        std::vector<QString> names;
        std::vector<QString> values;
    };

    void Take(std::vector<Group> groups) {
        beginResetModel();
        m_groups = std::move(groups);
        endResetModel();
    }
    void SetValue(int group, int member, const QString& text) {
        m_groups[static_cast<std::size_t>(group)].values[static_cast<std::size_t>(member)] = text;
        const QModelIndex cell = createIndex(member, 1, IdOfMembers(group));
        emit dataChanged(cell, cell);
    }

    // The internal id is 0 for a group; the members' ids keep Qt's hash of an index, row * 16 + column + id,
    // free of collisions, on which the expanded ones would otherwise pile up.
    QModelIndex index(int row, int column, const QModelIndex& parent) const override {
        return createIndex(row, column, parent.isValid() ? IdOfMembers(parent.row()) : 0);
    }
    QModelIndex parent(const QModelIndex& child) const override {
        return child.internalId() == 0 ? QModelIndex() : createIndex(GroupOf(child), 0);
    }
    int rowCount(const QModelIndex& parent) const override {
        if (!parent.isValid())
            return static_cast<int>(m_groups.size());
        return parent.internalId() != 0 || parent.column() != 0
                   ? 0
                   : static_cast<int>(Of(parent.row()).names.size());
    }
    int columnCount(const QModelIndex&) const override { return 2; }
    // Spares the view the question for the children of each member.
    Qt::ItemFlags flags(const QModelIndex& index) const override {
        const Qt::ItemFlags usual = QAbstractItemModel::flags(index);
        return index.internalId() == 0 ? usual : usual | Qt::ItemNeverHasChildren;
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole)
            return {};
        if (index.internalId() == 0)
            return index.column() == 0 ? QVariant(Of(index.row()).name) : QVariant();
        const Group& group = Of(GroupOf(index));
        const auto row = static_cast<std::size_t>(index.row());
        return index.column() == 0 ? group.names[row] : group.values[row];
    }

private:
    quintptr IdOfMembers(int group) const {
        return 16 * (static_cast<quintptr>(group) * m_groups.front().names.size() + 1);
    }
    int GroupOf(const QModelIndex& member) const {
        return static_cast<int>((member.internalId() / 16 - 1) / m_groups.front().names.size());
    }
    const Group& Of(int row) const { return m_groups[static_cast<std::size_t>(row)]; }
    std::vector<Group> m_groups;
};

class TreeViewTree : public bench::Tree {
public:
    TreeViewTree() {
        m_view.setUniformRowHeights(true);
        m_view.setModel(&m_model);
        m_view.resize(600, 800);
        m_view.show();
        QApplication::processEvents();
    }
    void Fill(bench::LiveRoot& root) override {
        std::vector<FlatModel::Group> groups;
        for (int group = 0; group < root.GroupCount(); ++group) {
            bench::LiveGroup& object = root.Group(group);
            FlatModel::Group row{QString::fromStdString(object.GetIdent()), {}, {}};
            std::list<std::string> names;
            object.GetMemberNames(names);
            for (const std::string& name : names) {
                row.names.push_back(QString::fromLatin1(name.c_str()));
                row.values.push_back(TextOf(object, name));
            }
            groups.push_back(std::move(row));
        }
        m_model.Take(std::move(groups));
    }
    void ExpandAll() override { m_view.expandAll(); }
    void CollapseAll() override { m_view.collapseAll(); }
    void OpenGroup(int group) override { m_view.expand(m_model.index(group, 0, {})); }
    void CloseGroup(int group) override { m_view.collapse(m_model.index(group, 0, {})); }
    void Update(bench::LiveRoot& root, int group, int member) override {
        m_model.SetValue(group, member, TextOf(root.Group(group), bench::LiveGroup::NameOf(member)));
    }
    void Paint() override { PaintNow(m_view); }
    void Clear() override { m_model.Take({}); }

private:
    FlatModel m_model;
    QTreeView m_view;
};

// A tree grid whose only root is open: each of its children has a row.
class OpenFamily : public korvel::CSuperGridCtrl {
public:
    enum class Place { Front, End };

    OpenFamily() : m_widget(Show(m_frame, *this)) {
        InsertColumn(0, "Name", 300);
        m_root = AddRootNode(new korvel::CItemInfo, nullptr);
        Insert(Place::End);
        ExpandNode(m_root, 0);
    }
    ~OpenFamily() override {
        m_widget.reset();
        DestroyWindow();
    }
    void Insert(Place place) {
        constexpr int First = 0;
        AddChildNode(m_root, new korvel::CItemInfo, 1, place == Place::Front ? &First : nullptr);
    }
    void Remove(Place place) {
        const korvel::ChildList& family = m_root->children();
        TakeNode(place == Place::Front ? family.front() : family.back());
    }

private:
    korvel::CWnd m_frame;
    std::unique_ptr<QWidget> m_widget;
    CTreeItem* m_root = nullptr;
};

// What rows cost at the front of a large family stands beside what they cost at its end.
void MeasureFamily() {
    constexpr long Rows = 100000;
    using Place = OpenFamily::Place;
    using Figures = std::array<std::array<double, bench::Runs>, 2>; // by place
    Figures inserted{};
    Figures removed{};
    for (std::size_t run = 0; run < bench::Runs; ++run)
        for (const Place place : {Place::Front, Place::End}) {
            OpenFamily family;
            const auto nanoseconds = [&](void (OpenFamily::*change)(Place)) {
                return 1e9 / Rows * bench::CpuSecondsOf([&] {
                           for (long row = 0; row < Rows; ++row)
                               (family.*change)(place);
                       });
            };
            const auto index = static_cast<std::size_t>(place);
            inserted[index][run] = nanoseconds(&OpenFamily::Insert);
            removed[index][run] = nanoseconds(&OpenFamily::Remove);
        }
    const auto write = [](const char* operation, const Figures& figures) {
        bench::Write(operation, Rows, "ours", "ns", bench::Median(figures[0]));
        bench::Write(operation, Rows, "at the end", "ns", bench::Median(figures[1]));
    };
    write("insert at front", inserted);
    write("remove from front", removed);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    korvel::qt::QtDisplay display;
    korvel::SetDisplay(&display);
    for (int i = 1; i < argc; ++i) {
        const long n = std::atol(argv[i]);
        bench::MeasureTree(
            "ours", n, [] { return std::make_unique<GridTree>(); });
        bench::MeasureTree(
            "QTreeWidget", n, [] { return std::make_unique<TreeWidgetTree>(); });
        bench::MeasureTree("QTreeView", n, [] { return std::make_unique<TreeViewTree>(); });
    }
    MeasureFamily();
    korvel::SetDisplay(nullptr);
}

// The drop-down tree list beside QTreeWidget: 100 entries in each group, check boxes on groups and entries.

#include "korvel/editors/combo_choice.h"
#include "korvel/editors/combo_list.h"
#include "korvel/window/display/headless_display.h"
#include "measure.h"

#include <QApplication>
#include <QTreeWidget>
#include <cstdlib>
#include <string>

namespace {

using namespace korvel;

constexpr long EntriesInGroup = 100;

std::string GroupName(long group) {
    return "group " + std::to_string(group);
}

// The enumeration of a host that keeps its names in an array; selecting costs it nothing, so that what is
// measured is the list.
class ManyEntries : public IEnumValue {
public:
    explicit ManyEntries(long count) {
        for (long id = 0; id < count; ++id) {
            CVariantValue name;
            name.Type = DT_String;
            name.Text = GroupName(id / EntriesInGroup) + "/entry " + std::to_string(id);
            m_names.push_back(name);
        }
    }
    const std::string& NameOf(long id) const { return m_names[static_cast<std::size_t>(id)].Text; }

    bool IsAutoDestroy() const override { return false; }
    void Destroy() override {}
    const EDataTyps& GetDataType() const override { return m_type; }
    const std::uint32_t& GetEnumFlags() const override { return m_flags; }
    long AddValue(const std::string&, const std::string&) override { return -1; }
    void RemoveValue(long) override {}
    bool GetName(long id, CVariantValue& name) override {
        name = m_names[static_cast<std::size_t>(id)];
        return true;
    }
    bool SetName(long, const CVariantValue&) override { return false; }
    EnumPosition GetFirstPosition() override { return m_names.data(); }
    long GetNext(EnumPosition& position) override {
        auto* name = static_cast<CVariantValue*>(position);
        position = name == &m_names.back() ? nullptr : name + 1;
        return name - m_names.data();
    }
    const CVariantValue* GetTemplate() const override { return nullptr; }
    bool IsValue(long, const CVariantValue&) override { return false; }
    void Select(long, CVariantValue&) override {}
    void Deselect(long, CVariantValue&) override {}
    const char* GetSeparator(bool) const override { return "/"; }

private:
    const EDataTyps m_type = DT_String;
    const std::uint32_t m_flags = ENF_Tree | ENF_CheckBoxes;
    std::vector<CVariantValue> m_names;
};

void MeasureList(ManyEntries& entries, long count) {
    HeadlessDisplay display;
    SetDisplay(&display);
    CWnd frame;
    frame.CreateEx(0, "KorvelFrame", "", WS_OVERLAPPEDWINDOW, {0, 0, 300, 300}, nullptr, 0);
    struct OpenList : CComboList {
        using CComboList::CComboList;
        using CComboList::GetModel;
    } list(eDropDown);
    list.CreateDropDown(&frame, 106);
    CVariantValue value;
    value.Type = DT_ListString;
    value.EnumValue = &entries;
    bench::Write("combo fill", count, "ours", "ms", bench::MedianOf([&] {
                     list.UnIntialize();
                     return 1e3 * bench::CpuSecondsOf([&] { list.Initialize("value", value); });
                 }));
    auto& root = const_cast<ComboTreeItem&>(list.GetRootItem());
    bench::Write("combo check all", count, "ours", "ms", bench::MedianOf([&] {
                     const bool check = root.GetChecked() == 0;
                     return 1e3 * bench::CpuSecondsOf(
                                      [&] { internal::ComboChoice(list.GetModel()).SetCheck(root, check); });
                 }));
}

void FillTree(QTreeWidget& tree, const ManyEntries& entries, long count) {
    QList<QTreeWidgetItem*> groups;
    for (long group = 0; group * EntriesInGroup < count; ++group) {
        auto* item = new QTreeWidgetItem({QString::fromStdString(GroupName(group))});
        item->setFlags(item->flags() | Qt::ItemIsAutoTristate | Qt::ItemIsUserCheckable);
        QList<QTreeWidgetItem*> children;
        const long end = std::min(count, (group + 1) * EntriesInGroup);
        for (long id = group * EntriesInGroup; id < end; ++id) {
            const std::string& name = entries.NameOf(id);
            auto* child = new QTreeWidgetItem;
            child->setText(0, QString::fromStdString(name.substr(name.find('/') + 1)));
            child->setCheckState(0, Qt::Unchecked);
            children.push_back(child);
        }
        item->addChildren(children);
        groups.push_back(item);
    }
    tree.addTopLevelItems(groups);
}

void MeasureTreeWidget(const ManyEntries& entries, long count) {
    QTreeWidget tree;
    tree.setUniformRowHeights(true);
    tree.resize(300, 300);
    bench::Write("combo fill", count, "QTreeWidget", "ms", bench::MedianOf([&] {
                     tree.clear();
                     tree.setUpdatesEnabled(false);
                     const double spent = bench::CpuSecondsOf([&] { FillTree(tree, entries, count); });
                     tree.setUpdatesEnabled(true);
                     return 1e3 * spent;
                 }));
    Qt::CheckState state = Qt::Unchecked;
    bench::Write("combo check all", count, "QTreeWidget", "ms", bench::MedianOf([&] {
                     state = state == Qt::Checked ? Qt::Unchecked : Qt::Checked;
                     return 1e3 * bench::CpuSecondsOf([&] {
                                for (int group = 0; group < tree.topLevelItemCount(); ++group)
                                    tree.topLevelItem(group)->setCheckState(0, state);
                            });
                 }));
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const long count = argc > 1 ? std::atol(argv[1]) : 100'000;
    ManyEntries entries(count);
    MeasureList(entries, count);
    MeasureTreeWidget(entries, count);
    return 0;
}

#pragma once

#include "live_objects.h"
#include "measure.h"

#include <array>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace bench {

/// What a tree must be able to do to be measured. Each call returns when it is done.
class Tree {
public:
    virtual ~Tree() = default;
    virtual void Fill(LiveRoot& root) = 0;
    virtual void ExpandAll() = 0;
    virtual void CollapseAll() = 0;
    virtual void OpenGroup(int group) = 0;
    virtual void CloseGroup(int group) = 0;
    /// The object has changed already: the tree shows the new text.
    virtual void Update(LiveRoot& root, int group, int member) = 0;
    virtual void Paint() = 0;
    virtual void Clear() = 0;
};

constexpr int Groups = 100;
constexpr int Updates = 10000;

inline void UpdateMembers(Tree& tree, LiveRoot& root, const std::vector<int>& order) {
    for (const int index : order) {
        const int group = index % Groups;
        const int member = index / Groups;
        korvel::CVariantValue value;
        value.Type = korvel::DT_Double;
        value.Value.Double = index * 0.5;
        root.Group(group).SetMember(LiveGroup::NameOf(member), value);
        tree.Update(root, group, member);
    }
}

/// Measures one tree with `n` members and writes a line an operation.
inline void MeasureTree(const char* subject, long n, const std::function<std::unique_ptr<Tree>()>& make) {
    LiveRoot root(Groups, static_cast<int>(n));
    const int updates = static_cast<int>(std::min<long>(n, Updates));
    std::vector<int> inOrder(static_cast<std::size_t>(updates));
    for (int i = 0; i < updates; ++i)
        inOrder[static_cast<std::size_t>(i)] = i / (updates / Groups) + i % (updates / Groups) * Groups;
    std::vector<int> random(static_cast<std::size_t>(updates));
    std::mt19937 engine(7);
    for (int& index : random)
        index = static_cast<int>(engine() % static_cast<unsigned>(n));

    // All runs in one process, for every tree and every n alike: what the first one pays for memory that the
    // process did not have before falls out of the median.
    std::map<std::string, std::array<double, Runs>> figures;
    for (std::size_t run = 0; run < Runs; ++run) {
        const auto tree = make();
        const auto measure = [&](const char* operation, double times, const std::function<void()>& work) {
            figures[operation][run] = CpuSecondsOf(work) * 1e6 / times;
        };
        const double before = HeapBytes();
        measure("fill", 1, [&] { tree->Fill(root); });
        figures["memory"][run] = (HeapBytes() - before) / static_cast<double>(n);
        measure("expand all", 1, [&] { tree->ExpandAll(); });
        tree->Paint();
        measure(
            "paint", 1, [&] { tree->Paint(); });
        measure(
            "update in order", updates, [&] { UpdateMembers(*tree, root, inOrder); });
        measure(
            "update random", updates, [&] { UpdateMembers(*tree, root, random); });
        measure(
            "collapse all", 1, [&] { tree->CollapseAll(); });
        measure(
            "open group", 1, [&] { tree->OpenGroup(Groups / 2); });
        measure(
            "close group", 1, [&] { tree->CloseGroup(Groups / 2); });
        measure("clear", 1, [&] { tree->Clear(); });
    }
    for (const auto& [operation, runs] : figures)
        Write(operation.c_str(), n, subject, operation == "memory" ? "bytes a member" : "us", Median(runs));
}

} // namespace bench

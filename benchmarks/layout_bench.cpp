// What a resize costs apart from the windows: 10,000 items that stand for no window, in rows and columns.

#include "korvel/layout/pane_manager.h"
#include "measure.h"

#include <atomic>
#include <cstdlib>
#include <memory>
#include <new>

namespace {

std::atomic<long> allocations = 0;

} // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size ? size : 1))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace {

using namespace korvel;

constexpr int ItemsInRow = 100;
constexpr UINT GrowBoth = ItemGrowX | ItemGrowY;

class Guest final : public IItem {
public:
    Guest(UINT layoutFlags, const RECT& design) : m_rect(design) { flags = layoutFlags; }

    void MoveTo(const RECT& rect) override { m_placed = rect; }
    void CaptureRect() override {}
    const RECT* GetRect() override { return &m_rect; }
    void SetRect(const RECT& rect) override { m_rect = rect; }
    IItem* FindItem(int) override { return nullptr; }
    void Shift(int, int) override {}
    void ShiftKeep(int, int) override {}

private:
    RECT m_rect;
    RECT m_placed;
};

std::unique_ptr<CPaneManager> MakeTree(int count) {
    auto root = std::make_unique<CPaneManager>(0, GrowBoth);
    for (int made = 0; made < count; made += ItemsInRow) {
        auto* row = new CPaneManager(1, GrowBoth);
        for (int column = 0; column < ItemsInRow && made + column < count; ++column)
            row->Add(new Guest(column % 2 ? GrowBoth : ItemAlignTop,
                               {column * 20, made, column * 20 + 18, made + 18}));
        root->Add(row);
    }
    root->CaptureRect();
    return root;
}

// The goals that a resize must reach; they take the place of a peer.
constexpr double MostMilliseconds = 1;
constexpr double MostAllocations = 0;

} // namespace

int main(int argc, char** argv) {
    const int count = argc > 1 ? std::atoi(argv[1]) : 10'000;
    const auto root = MakeTree(count);
    int width = 1000;
    const auto resize = [&] { root->MoveTo({0, 0, ++width, 5000}); };
    bench::Write("layout resize", count, "ours", "ms",
                 bench::MedianOf([&] { return 1e3 * bench::CpuSecondsOf(resize); }));
    bench::Write("layout resize", count, "goal", "ms", MostMilliseconds);

    const long before = allocations;
    resize();
    bench::Write("layout resize allocations", count, "ours", "times",
                 static_cast<double>(allocations - before));
    bench::Write("layout resize allocations", count, "goal", "times", MostAllocations);
    return 0;
}

// The rows of an object without a window around them.

#include "support/changing_objects.h"
#include "support/german_machine.h"

namespace korvel::internal {
namespace {

class AttributeRowsTest : public GermanMachine {
protected:
    RecordingObserver observer;
    PlainTree tree{&observer};
};

TEST_F(AttributeRowsTest, RowsFollowWhatObjectsSayOfThemselves) {
    ChangingObjects objects(tree);
    tree.rows.Bind(&objects.GetRoot(), [] {});
    std::size_t most = 0;
    for (int step = 0; step < 2000; ++step) {
        objects.Change();
        const Lines lines = tree.GetLines();
        ASSERT_EQ(lines, ChangingObjects::LinesOf(objects.GetRoot())) << step;
        most = std::max(most, lines.size());
    }
    EXPECT_GT(most, 20u);
    SetFormatInt(GermanFormat(1));
    EXPECT_EQ(tree.GetLines(), ChangingObjects::LinesOf(objects.GetRoot()));
    tree.rows.Unbind();
    EXPECT_EQ(tree.GetLines(), Lines());
    EXPECT_EQ(observer.sinks.size(), 0u);
}

} // namespace
} // namespace korvel::internal

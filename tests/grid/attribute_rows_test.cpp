// The rows of an object without a window around them.

#include "support/changing_objects.h"
#include "support/german_machine.h"
#include "support/table.h"

#include <functional>
#include <stdexcept>
#include <utility>

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

TEST_F(AttributeRowsTest, WhatThrowsLeavesNoRowAndNoBindingHalfMade) {
    HostObject point{"point"};
    HostObject root{"root"};
    point.With("x", Flag(true));
    root.With("name", Words(DT_String, "A 3"));
    bool isArmed = false;
    const auto fail = [&] {
        if (std::exchange(isArmed, false))
            throw std::runtime_error("of the host");
    };
    tree.onShow = observer.onCall = fail;
    const Lines before = {"name|A 3"};
    const auto unbind = [&] {
        isArmed = false; // the observer hears of it
        tree.rows.Unbind();
        isArmed = true;
    };
    const auto rebind = [&](bool ends) {
        unbind();
        tree.rows.Bind(
            &root,
            [&, ends] {
                if (ends)
                    tree.rows.Unbind();
                tree.columns = 2;
                fail();
            });
    };
    const auto addGroup = [&] { tree.onShow = nullptr, tree.rows.Add(&root, "p", Group(&point)); };
    const auto rebindUnseen = [&] {
        unbind();
        tree.onShow = nullptr;
        tree.rows.Bind(
            &root, [&] { tree.columns = 2; });
    };
    for (const auto& [border, act, rows, isBound] : Table<std::function<void()>, Lines, bool>{
             {"a row that is shown", [&] { tree.rows.Add(&root, "late", Flag(true)); }, before, true},
             {"a group of which the observer hears", addGroup, before, true},
             {"columns", [&] { rebind(false); }, {}, false},
             {"columns of a binding that has ended", [&] { rebind(true); }, {}, false},
             {"the root of which the observer hears", rebindUnseen, {}, false}}) {
        SCOPED_TRACE(border);
        tree.onShow = fail;
        tree.rows.Bind(&root, [&] { tree.columns = 2; });
        isArmed = true;
        EXPECT_THROW(act(), std::runtime_error);
        EXPECT_FALSE(isArmed);
        EXPECT_EQ(tree.GetLines(), rows);
        EXPECT_EQ(tree.rows.IsBound(), isBound);
        EXPECT_EQ(tree.columns, isBound ? 2 : 0);
        EXPECT_EQ(observer.sinks.size(), isBound ? 1u : 0u);
        EXPECT_EQ(tree.rows.Find(&root, "name") != nullptr, isBound);
        EXPECT_EQ(tree.rows.Find(&root, "late"), nullptr);
        EXPECT_EQ(tree.rows.Find(&point), nullptr);
        tree.rows.Unbind();
    }
}

} // namespace
} // namespace korvel::internal

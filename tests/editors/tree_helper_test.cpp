#include "korvel/editors/path_name.h"
#include "korvel/editors/tree_helper.h"
#include "support/test_enumeration.h"

#include <gtest/gtest.h>

namespace korvel {
namespace {

// The tree as text: a group is followed by its children in brackets.
std::string Shape(const CTreeHelper::NodeMap& level) {
    std::string shape;
    for (const auto& [name, node] : level)
        shape +=
            (shape.empty() ? "" : " ") + name + (node->m_bIsGroup ? "[" + Shape(node->m_Children) + "]" : "");
    return shape;
}

TEST(PathName, SplitsAtSeparators) {
    const std::pair<const char*, std::list<std::string>> rows[] = {
        {"", {}},
        {"///", {}},
        {"/a/", {"a"}},
        {"a//b", {"a", "b"}},
        {"a\\/b", {"a\\/b"}},
        {"\\/", {"\\/"}},
        {"a\\\\/b", {"a\\\\/b"}},
        {"a b/c", {"a b", "c"}},
    };
    for (const auto& [path, segments] : rows)
        EXPECT_EQ(internal::SplitPathName(path, '/'), segments) << path;
}

TEST(TreeHelper, InsertsByPath) {
    const std::tuple<const char*, bool, std::vector<const char*>, const char*> rows[] = {
        {"one name without separators", false, {"a/b"}, "a/b"},
        {"a shared group", true, {"a/b", "a/c"}, "a[b c]"},
        {"byte order", true, {"b", "a", "B"}, "B a b"},
        {"no segment, no node", true, {"//"}, ""},
        {"a leaf becomes a group", true, {"a", "a/b"}, "a[b]"},
        {"a group stays a group", true, {"a/b", "a"}, "a[b]"},
    };
    for (const auto& [name, useSeparator, texts, shape] : rows) {
        CTreeHelper tree(useSeparator, '/');
        for (const char* text : texts)
            tree.Insert(TextValue(text));
        EXPECT_EQ(Shape(tree.GetRoot()), shape) << name;
    }
}

TEST(TreeHelper, KeepsTheValuesOfLeavesThatBecomeGroupsAndTheLastOfAPath) {
    CTreeHelper tree(true, '/');
    for (const char* text : {"a", "a/b", "/a/b"})
        tree.Insert(TextValue(text));
    EXPECT_EQ(tree.GetRoot().at("a")->m_Value, TextValue("a"));
    EXPECT_EQ(tree.GetRoot().at("a")->m_Children.at("b")->m_Value, TextValue("/a/b"));
}

TEST(TreeHelper, AddsFreeNames) {
    CTreeHelper tree(true, '/');
    for (const char* text : {"g/new", "g/new1", "new", "leaf"})
        tree.Insert(TextValue(text));
    const std::pair<const char*, const char*> rows[] = {
        {"", "new1"}, {"g", "g/new2"}, {"/g/", "g/new2"}, {"other/way", "other/way/new"}};
    for (const auto& [path, text] : rows) {
        const CVariantValue value = tree.Add(DT_ListString, "new", path);
        EXPECT_EQ(value.Text, text);
        EXPECT_EQ(value.Type, DT_ListString);
    }
    EXPECT_THROW(tree.Add(DT_String, "new", "leaf/below"), std::string);
    EXPECT_EQ(Shape(tree.GetRoot()), "g[new new1] leaf new");
}

TEST(TreeHelper, CopiesShareNodesButNotTheRoot) {
    CTreeHelper tree(true, '/'), copy(false, ';');
    tree.Insert(TextValue("a/b"));
    copy = tree;
    copy.Insert(TextValue("a/c"));
    copy.Insert(TextValue("d"));
    EXPECT_EQ(Shape(tree.GetRoot()), "a[b c]");
}

TEST(TreeHelper, BearsPathsOfManySegments) {
    std::string path;
    for (int i = 0; i < 500'000; ++i)
        path += "a/";
    CTreeHelper tree(true, '/');
    tree.Insert(TextValue(path + "leaf"));
    EXPECT_EQ(tree.Add(DT_String, "b", path).Text, path + "b");
}

} // namespace
} // namespace korvel

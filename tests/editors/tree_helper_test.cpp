#include "editors/path_name.h"
#include "editors/tree_helper.h"

#include <gtest/gtest.h>

namespace korvel {
namespace {

CVariantValue Text(const std::string& text) {
    CVariantValue value;
    value.Type = DT_String;
    value.Text = text;
    return value;
}

/// The tree as text: a group is followed by its children in brackets.
std::string Shape(const CTreeHelper::SNodeMap& level) {
    std::string shape;
    for (const auto& [name, node] : level) {
        shape +=
            (shape.empty() ? "" : " ") + name + (node->m_bIsGroup ? "[" + Shape(node->m_Children) + "]" : "");
    }
    return shape;
}

TEST(PathName, SplitsAtSeparators) {
    struct Row {
        const char* path;
        std::list<std::string> segments;
    };
    const Row rows[] = {
        {"", {}},
        {"///", {}},
        {"a", {"a"}},
        {"/a/", {"a"}},
        {"a//b", {"a", "b"}},
        {"a\\/b", {"a\\/b"}},
        {"\\/", {"\\/"}},
        {"a\\\\/b", {"a\\\\/b"}},
        {"a b/c", {"a b", "c"}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(SplitPathName(row.path, '/'), row.segments) << row.path;
    }
}

TEST(TreeHelper, InsertsByPath) {
    struct Row {
        const char* name;
        bool useSeparator;
        std::vector<const char*> texts;
        const char* shape;
    };
    const Row rows[] = {
        {"one name without separators", false, {"a/b"}, "a/b"},
        {"an empty name is a name without separators", false, {""}, ""},
        {"a shared group", true, {"a/b", "a/c"}, "a[b c]"},
        {"byte order", true, {"b", "a", "B"}, "B a b"},
        {"no segment, no node", true, {"//"}, ""},
        {"a leaf becomes a group", true, {"a", "a/b"}, "a[b]"},
        {"a group stays a group", true, {"a/b", "a"}, "a[b]"},
    };
    for (const Row& row : rows) {
        CTreeHelper tree(row.useSeparator, '/');
        for (const char* text : row.texts) {
            tree.Insert(Text(text));
        }
        EXPECT_EQ(Shape(tree.GetRoot()), row.shape) << row.name;
    }
}

TEST(TreeHelper, KeepsTheValuesOfLeavesThatBecomeGroupsAndTheLastOfAPath) {
    CTreeHelper tree(true, '/');
    tree.Insert(Text("a"));
    tree.Insert(Text("a/b"));
    EXPECT_EQ(tree.GetRoot().at("a")->m_Value, Text("a"));
    tree.Insert(Text("/a/b"));
    EXPECT_EQ(tree.GetRoot().at("a")->m_Children.at("b")->m_Value, Text("/a/b"));
}

TEST(TreeHelper, AddsFreeNames) {
    CTreeHelper tree(true, '/');
    for (const char* text : {"g/new", "g/new1", "new", "leaf"}) {
        tree.Insert(Text(text));
    }
    struct Row {
        const char* path;
        const char* text;
    };
    for (const Row& row :
         {Row{"", "new1"}, Row{"g", "g/new2"}, Row{"/g/", "g/new2"}, Row{"other/way", "other/way/new"}}) {
        const CVariantValue value = tree.Add(DT_ListString, "new", row.path);
        EXPECT_EQ(value.Text, row.text);
        EXPECT_EQ(value.Type, DT_ListString);
    }
    EXPECT_THROW(tree.Add(DT_String, "new", "leaf/below"), std::string);
    EXPECT_EQ(Shape(tree.GetRoot()), "g[new new1] leaf new");
}

TEST(TreeHelper, CopiesShareNodes) {
    CTreeHelper tree(true, '/');
    tree.Insert(Text("a/b"));
    CTreeHelper copy(false, ';');
    copy = tree;
    copy.Insert(Text("a/c"));
    EXPECT_EQ(Shape(tree.GetRoot()), "a[b c]");
    copy.Insert(Text("d"));
    EXPECT_EQ(Shape(tree.GetRoot()), "a[b c]") << "the roots are maps of their own";
}

TEST(TreeHelper, BearsPathsOfManySegments) {
    std::string path;
    for (int i = 0; i < 500000; ++i) {
        path += "a/";
    }
    CTreeHelper tree(true, '/');
    tree.Insert(Text(path + "leaf"));
    EXPECT_EQ(tree.Add(DT_String, "b", path).Text, path + "b");
}

} // namespace
} // namespace korvel

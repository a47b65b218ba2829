#include "korvel/editors/tree_helper.h"
#include "support/test_enumeration.h"

#include <gtest/gtest.h>

namespace korvel {
namespace {

// The tree as text: a name, the value where it is another text, and the children of a group in brackets.
std::string Shape(const CTreeHelper::NodeMap& level) {
    std::string shape;
    for (const auto& [name, node] : level) {
        const std::string& value = node->m_Value.Text;
        shape += (shape.empty() ? "" : " ") + name + (value.empty() || value == name ? "" : "=" + value);
        shape += node->m_bIsGroup ? "[" + Shape(node->m_Children) + "]" : "";
    }
    return shape;
}

TEST(TreeHelper, InsertsByPath) {
    const std::tuple<const char*, bool, std::vector<const char*>, const char*> rows[] = {
        {"one name without separators", false, {"a/b"}, "a/b"},
        {"a shared group", true, {"a/b", "a/c"}, "a[b=a/b c=a/c]"},
        {"no segment, no node", true, {"", "//"}, ""},
        {"separators after a backslash", true, {"a\\/b", "\\/", "c\\\\/d"}, "\\/ a\\/b c\\\\/d"},
        {"at the ends, and repeated", true, {"/a b//c/"}, "a b[c=/a b//c/]"},
        {"a leaf becomes a group", true, {"/a", "a/b"}, "a=/a[b=a/b]"},
        {"the last value of a path", true, {"a/b", "/a/b"}, "a[b=/a/b]"},
    };
    for (const auto& [name, useSeparator, texts, shape] : rows) {
        CTreeHelper tree(useSeparator, '/');
        for (const char* text : texts)
            tree.Insert(TextValue(text));
        EXPECT_EQ(Shape(tree.GetRoot()), shape) << name;
    }
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
    EXPECT_EQ(Shape(tree.GetRoot()), "g[new=g/new new1=g/new1] leaf new");
}

TEST(TreeHelper, CopiesShareNodesButNotTheRoot) {
    CTreeHelper tree(true, '/'), copy(false, ';');
    tree.Insert(TextValue("a/b"));
    copy = tree;
    copy.Insert(TextValue("a/c"));
    copy.Insert(TextValue("d"));
    EXPECT_EQ(Shape(tree.GetRoot()), "a[b=a/b c=a/c]");
}

TEST(TreeHelper, TakesPathsOfManySegments) {
    std::string path;
    for (int i = 0; i < 500'000; ++i)
        path += "a/";
    CTreeHelper tree(true, '/');
    tree.Insert(TextValue(path + "leaf"));
    EXPECT_EQ(tree.Add(DT_String, "b", path).Text, path + "b");
}

} // namespace
} // namespace korvel

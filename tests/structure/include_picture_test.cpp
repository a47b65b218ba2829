// Checks every include of src/korvel/ against the picture of docs/architecture.md, and that no sources
// include each other in a large knot.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

const Names Folders = {"platform", "documents", "output",  "values",  "parser", "window",
                       "layout",   "events",    "editors", "dialogs", "grid",   "resources"};
const Names WindowFloors = {"base", "core", "display", "app", "controls", "list", "menu", "dialog"};
const std::string Root = "korvel/"; // what each include begins with
const std::string FreeHeader = "values/data_types.h";

// A header with the source of its name, as the path of both without the ending.
using Module = std::string;
using Includes = std::map<Module, std::set<Module>>;
constexpr std::size_t LargestKnot = 3;

// The include directives of a source: what stands inside the quotes or brackets, with the opening one.
Names IncludesOf(std::istream& source) {
    static const std::regex include(R"re(^\s*#\s*include\s*(["<][^">]+))re");
    Names found;
    std::smatch match;
    for (std::string line; std::getline(source, line);)
        if (std::regex_search(line, match, include))
            found.push_back(match[1]);
    return found;
}

std::string Part(const fs::path& path, int number) {
    const auto length = std::distance(path.begin(), path.end());
    return number < length ? std::next(path.begin(), number)->string() : "";
}

bool IsNotAbove(const Names& order, const std::string& lower, const std::string& upper) {
    const auto upperPlace = std::find(order.begin(), order.end(), upper);
    return upperPlace != order.end() && std::find(order.begin(), upperPlace + 1, lower) <= upperPlace;
}

// Whether the file at `path` may include `header`; both below src/korvel/.
bool MayInclude(const fs::path& path, const fs::path& header) {
    const std::string from = Part(path, 0);
    const std::string to = Part(header, 0);
    if (header == FreeHeader)
        return true;
    if (from == "window" && to == "window")
        return IsNotAbove(WindowFloors, Part(header, 1), Part(path, 1));
    if (from == "qt")
        return to == "qt" || to == "window" || to == "platform";
    return IsNotAbove(Folders, to, from);
}

bool IsFault(const fs::path& path, const std::string& include) {
    static const std::regex toolkit("(Q[A-Za-z]|Qt).*");
    const std::string header = include.substr(1);
    if (path == FreeHeader || (Part(path, 0) != "qt" && std::regex_match(header, toolkit)))
        return true;
    if (include.front() == '<')
        return header.starts_with(Root); // the library's own are quoted, and then judged
    return !header.starts_with(Root) || header.find("..") != std::string::npos ||
           !MayInclude(path, header.substr(Root.size()));
}

Module ModuleOf(const fs::path& path) {
    return fs::path(path).replace_extension().string();
}

void AddIncludes(const fs::path& path, std::istream& source, Includes& modules) {
    std::set<Module>& included = modules[ModuleOf(path)];
    for (const std::string& include : IncludesOf(source))
        if (include.starts_with('"' + Root))
            included.insert(ModuleOf(include.substr(1 + Root.size())));
}

std::set<Module> ReachedFrom(const Module& start, const Includes& modules) {
    std::set<Module> reached;
    std::vector<Module> open = {start};
    while (!open.empty()) {
        const auto found = modules.find(open.back());
        open.pop_back();
        if (found != modules.end())
            for (const Module& next : found->second)
                if (reached.insert(next).second)
                    open.push_back(next);
    }
    return reached;
}

// The groups of modules that all include each other over any number of steps, where they are too large.
std::set<std::set<Module>> LargeKnots(const Includes& modules) {
    std::map<Module, std::set<Module>> reached;
    for (const auto& [module, included] : modules)
        reached[module] = ReachedFrom(module, modules);
    std::set<std::set<Module>> knots;
    for (const auto& [module, around] : reached) {
        std::set<Module> knot = {module};
        for (const Module& other : around)
            if (reached[other].contains(module))
                knot.insert(other);
        if (knot.size() > LargestKnot)
            knots.insert(knot);
    }
    return knots;
}

std::string Listed(const std::set<Module>& knot) {
    std::string text;
    for (const Module& module : knot)
        text += "\n  " + module;
    return text;
}

const fs::path& SourceRoot() {
    static const fs::path root = fs::path(KORVEL_SOURCE_DIR) / "src" / "korvel";
    return root;
}

template <class Visit>
void ForEachSource(Visit visit) {
    int files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(SourceRoot())) {
        const std::string extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp")
            continue;
        ++files;
        std::ifstream source(entry.path());
        visit(fs::relative(entry.path(), SourceRoot()), source);
    }
    EXPECT_GT(files, 50) << "the sources were not found below " << SourceRoot();
}

TEST(IncludePicture, HoldsForEverySource) {
    ForEachSource([](const fs::path& path, std::istream& source) {
        for (const std::string& include : IncludesOf(source))
            if (IsFault(path, include))
                ADD_FAILURE() << path << " includes " << include;
    });
}

TEST(IncludePicture, HasNoLargeKnot) {
    Includes modules;
    ForEachSource([&](const fs::path& path, std::istream& source) { AddIncludes(path, source, modules); });
    for (const std::set<Module>& knot : LargeKnots(modules))
        ADD_FAILURE() << "these include each other:" << Listed(knot);
}

// Knots through a source are seen only if a header is implemented by the source of its name.
TEST(IncludePicture, HasASourceForEachHeaderWithFreeFunctions) {
    // The functions of the window model, by which hosts know the whole floor.
    const fs::path face = "window/core/window.h";
    static const std::regex declaration(
        R"re(^(?!using|inline|template|namespace|class|struct|friend|constexpr|typedef|return)[A-Za-z_].* [*&]?\w+\([^{]*$)re");
    int found = 0;
    ForEachSource([&](const fs::path& path, std::istream& source) {
        bool declares = false;
        for (std::string line; path.extension() == ".h" && std::getline(source, line);)
            declares = declares || std::regex_search(line, declaration);
        found += declares;
        if (declares && path != face && !fs::exists((SourceRoot() / path).replace_extension(".cpp")))
            ADD_FAILURE() << path << " is implemented by a source of another name";
    });
    EXPECT_GT(found, 50);
}

TEST(IncludePicture, KnowsTheFoldersThatThereAre) {
    std::set<std::string> expected(Folders.begin(), Folders.end());
    expected.insert("qt");
    std::set<std::string> found;
    std::set<std::string> floors;
    ForEachSource([&](const fs::path& path, std::istream&) {
        found.insert(Part(path, 0));
        if (Part(path, 0) == "window")
            floors.insert(Part(path, 1));
    });
    EXPECT_EQ(found, expected);
    EXPECT_EQ(floors, std::set<std::string>(WindowFloors.begin(), WindowFloors.end()));
}

TEST(IncludePicture, FindsABreach) {
    const std::tuple<const char*, const char*, bool> rows[] = {
        {"grid/a.cpp", "\"korvel/window/core/cwnd.h\"", true},
        {"values/a.cpp", "\"korvel/window/core/cwnd.h\"", false},
        {"output/a.h", "\"korvel/values/data_types.h\"", true},
        {"output/a.h", "\"korvel/values/variant_value.h\"", false},
        {"values/data_types.h", "<cstdint>", false},
        {"qt/a.cpp", "\"korvel/window/core/display.h\"", true},
        {"qt/a.cpp", "\"korvel/grid/editable_grid.h\"", false},
        {"grid/a.cpp", "\"korvel/qt/qt_display.h\"", false},
        {"grid/a.cpp", "<QWidget>", false},
        {"window/core/a.cpp", "<QtWidgets/QWidget>", false},
        {"qt/a.cpp", "<QWidget>", true},
        {"grid/a.cpp", "\"cwnd.h\"", false},
        {"grid/a.cpp", "\"grid/tree_item.h\"", false},
        {"grid/a.cpp", "\"korvel/extras/a.h\"", false},
        {"window/list/a.cpp", "\"korvel/window/controls/edit_text.h\"", true},
        {"window/core/a.cpp", "\"korvel/window/core/cwnd.h\"", true},
        {"window/core/a.cpp", "\"korvel/window/list/list_ctrl.h\"", false},
        {"window/core/a.cpp", "\"korvel/window/extras/a.h\"", false},
        {"window/core/a.cpp", "\"korvel/window/core/../list/list_ctrl.h\"", false},
        {"window/list/a.cpp", "<korvel/window/core/cwnd.h>", false},
        {"window/base/a.h", "\"korvel/platform/export.h\"", true},
    };
    for (const auto& [path, include, allowed] : rows) {
        std::istringstream source(std::string("  # include ") + include);
        const Names includes = IncludesOf(source);
        ASSERT_EQ(includes.size(), 1u);
        EXPECT_EQ(!IsFault(path, includes[0]), allowed) << path << " includes " << include;
    }
}

TEST(IncludePicture, FindsAKnot) {
    // Header and source count as one; the knot closes through the source of d.
    const std::tuple<const char*, const char*> chain[] = {
        {"x/a.h", "x/b"}, {"x/b.cpp", "x/c"}, {"x/c.h", "y/d"}, {"z/user.cpp", "x/a"}};
    Includes modules;
    const auto add = [&](const std::string& path, const std::string& included) {
        std::istringstream source("#include \"korvel/" + included + ".h\"\n#include <vector>\n");
        AddIncludes(path, source, modules);
    };
    for (const auto& [path, included] : chain)
        add(path, included);
    add("y/d.h", "y/base");
    EXPECT_TRUE(LargeKnots(modules).empty());
    add("y/d.cpp", "x/b");
    EXPECT_TRUE(LargeKnots(modules).empty()) << "three are allowed";
    add("y/d.cpp", "x/a");
    EXPECT_EQ(LargeKnots(modules), (std::set<std::set<Module>>{{"x/a", "x/b", "x/c", "y/d"}}));
}

} // namespace

// Holds every include of src/korvel/ against the picture of docs/architecture.md.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const std::vector<std::string> Order = {"platform", "documents", "output", "values",
                                        "parser",   "window",    "layout", "events",
                                        "editors",  "dialogs",   "grid",   "properties"};
const std::string Root = "korvel/"; // what each include begins with
const std::string FreeHeader = "values/data_types.h";

bool MayInclude(const std::string& from, const std::string& header) {
    if (!header.starts_with(Root))
        return false;
    const std::string inside = header.substr(Root.size());
    const std::string to = inside.substr(0, inside.find('/'));
    if (to != inside && (from == to || inside == FreeHeader))
        return true;
    if (from == "qt")
        return to == "window" || to == "platform";
    const auto fromPlace = std::find(Order.begin(), Order.end(), from);
    return fromPlace != Order.end() && std::find(Order.begin(), fromPlace, to) != fromPlace;
}

// What is wrong with the includes of one source text that stands in `folder`.
std::vector<std::string> Faults(const std::string& folder, const std::string& file, std::istream& source) {
    static const std::regex include(R"re(^\s*#\s*include\s*(["<])([^">]+))re");
    static const std::regex toolkit("(Q[A-Za-z]|Qt).*");
    const std::string where = folder + "/" + file;
    std::vector<std::string> faults;
    std::smatch match;
    for (std::string line; std::getline(source, line);) {
        if (!std::regex_search(line, match, include))
            continue;
        const std::string header = match[2];
        const bool isAstray = match[1] == "\"" && !MayInclude(folder, header);
        if (isAstray || where == FreeHeader || (folder != "qt" && std::regex_match(header, toolkit)))
            faults.push_back(where + ": " + line);
    }
    return faults;
}

TEST(IncludePicture, HoldsForEverySource) {
    const fs::path root = fs::path(KORVEL_SOURCE_DIR) / "src" / "korvel";
    int files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const std::string extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp")
            continue;
        ++files;
        std::ifstream source(entry.path());
        const std::string folder = fs::relative(entry.path(), root).begin()->string();
        for (const std::string& fault : Faults(folder, entry.path().filename().string(), source))
            ADD_FAILURE() << fault;
    }
    EXPECT_GT(files, 50) << "the sources were not found below " << root;
}

TEST(IncludePicture, TellsABreach) {
    const std::tuple<const char*, const char*, const char*, bool> rows[] = {
        {"grid", "a.cpp", "\"korvel/window/core/cwnd.h\"", true},
        {"values", "a.cpp", "\"korvel/window/core/cwnd.h\"", false},
        {"output", "a.h", "\"korvel/values/data_types.h\"", true},
        {"output", "a.h", "\"korvel/values/variant_value.h\"", false},
        {"values", "data_types.h", "<cstdint>", false},
        {"qt", "a.cpp", "\"korvel/window/core/display.h\"", true},
        {"qt", "a.cpp", "\"korvel/grid/editable_grid.h\"", false},
        {"grid", "a.cpp", "\"korvel/qt/qt_display.h\"", false},
        {"grid", "a.cpp", "<QWidget>", false},
        {"window", "a.cpp", "<QtWidgets/QWidget>", false},
        {"qt", "a.cpp", "<QWidget>", true},
        {"grid", "a.cpp", "\"cwnd.h\"", false},
        {"grid", "a.cpp", "\"grid/tree_item.h\"", false},
        {"grid", "a.cpp", "\"korvel/extras/a.h\"", false},
    };
    for (const auto& [folder, file, header, allowed] : rows) {
        std::istringstream source(std::string("#include ") + header);
        EXPECT_EQ(Faults(folder, file, source).empty(), allowed) << folder << " includes " << header;
    }
}

} // namespace

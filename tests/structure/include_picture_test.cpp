// Holds every include of src/ against the picture of docs/architecture.md.

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

const std::vector<std::string> kOrder = {"platform", "documents", "output", "values",
                                         "parser",   "window",    "layout", "events",
                                         "editors",  "dialogs",   "grid",   "properties"};
const std::string kFreeHeader = "values/data_types.h";

bool MayInclude(const std::string& from, const std::string& header) {
    const std::string to = header.substr(0, header.find('/'));
    if (from == to || header == kFreeHeader) {
        return true;
    }
    if (from == "qt") {
        return to == "window" || to == "platform";
    }
    const auto fromPlace = std::find(kOrder.begin(), kOrder.end(), from);
    const auto toPlace = std::find(kOrder.begin(), kOrder.end(), to);
    return fromPlace != kOrder.end() && toPlace < fromPlace;
}

/// What is wrong with the includes of one source text that stands in `folder`.
std::vector<std::string> Faults(const std::string& folder, const std::string& file, std::istream& source) {
    static const std::regex own(R"re(^\s*#\s*include\s*"([^"]+)")re");
    static const std::regex toolkit(R"re(^\s*#\s*include\s*[<"](Q[A-Za-z]|Qt)[^>"]*[>"])re");
    static const std::regex any(R"re(^\s*#\s*include\b)re");
    std::vector<std::string> faults;
    std::smatch match;
    for (std::string line; std::getline(source, line);) {
        if (std::regex_search(line, match, own)) {
            const std::string header = match[1];
            if (header.find('/') == std::string::npos || !MayInclude(folder, header)) {
                faults.push_back(folder + "/" + file + " includes " + header);
            }
            if (folder + "/" + file == kFreeHeader) {
                faults.push_back(kFreeHeader + " includes something");
            }
        } else if (std::regex_search(line, any)) {
            if (folder != "qt" && std::regex_search(line, toolkit)) {
                faults.push_back(folder + "/" + file + " includes the toolkit: " + line);
            }
            if (folder + "/" + file == kFreeHeader) {
                faults.push_back(kFreeHeader + " includes something");
            }
        }
    }
    return faults;
}

TEST(IncludePicture, HoldsForEverySource) {
    const fs::path root = fs::path(KORVEL_SOURCE_DIR) / "src";
    int files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const std::string extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp") {
            continue;
        }
        ++files;
        const fs::path relative = fs::relative(entry.path(), root);
        std::ifstream source(entry.path());
        for (const std::string& fault :
             Faults(relative.begin()->string(), relative.filename().string(), source)) {
            ADD_FAILURE() << fault;
        }
    }
    EXPECT_GT(files, 50) << "the sources were not found below " << root;
}

TEST(IncludePicture, TellsABreach) {
    struct Row {
        const char* name;
        const char* folder;
        const char* file;
        const char* text;
        bool allowed;
    };
    const Row rows[] = {
        {"upwards", "grid", "a.cpp", "#include \"window/cwnd.h\"", true},
        {"downwards", "values", "a.cpp", "#include \"window/cwnd.h\"", false},
        {"free header", "output", "a.h", "#include \"values/data_types.h\"", true},
        {"header beside the free one", "output", "a.h", "#include \"values/variant_value.h\"", false},
        {"free header itself", "values", "data_types.h", "#include <cstdint>", false},
        {"display to windows", "qt", "a.cpp", "#include \"window/display.h\"", true},
        {"display to the grid", "qt", "a.cpp", "#include \"grid/editable_grid.h\"", false},
        {"to the display", "grid", "a.cpp", "#include \"qt/qt_display.h\"", false},
        {"toolkit outside the display", "grid", "a.cpp", "#include <QWidget>", false},
        {"toolkit in a folder of its own", "window", "a.cpp", "#include <QtWidgets/QWidget>", false},
        {"toolkit inside the display", "qt", "a.cpp", "#include <QWidget>", true},
        {"without a folder", "grid", "a.cpp", "#include \"cwnd.h\"", false},
        {"unknown folder", "grid", "a.cpp", "#include \"extras/a.h\"", false},
    };
    for (const Row& row : rows) {
        std::istringstream source(row.text);
        EXPECT_EQ(Faults(row.folder, row.file, source).empty(), row.allowed) << row.name;
    }
}

} // namespace

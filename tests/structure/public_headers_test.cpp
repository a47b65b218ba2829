// Holds the headers that are installed against what a host can do with them: include them without any other
// header of the sources, and link whatever they declare.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

std::string ReadAll(const fs::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::set<std::string> PublicHeaders() {
    std::istringstream list(ReadAll(KORVEL_PUBLIC_HEADERS));
    return {std::istream_iterator<std::string>(list), {}};
}

// The includes that a host would not find, or that would ask it for more than the library itself: Qt is for
// the headers of qt/ only, and the pointers of layout items are Boost's; other libraries are for none.
std::vector<std::string> StrayIncludes(const std::string& header, const std::string& text,
                                       const std::set<std::string>& publicHeaders) {
    static const std::regex include(R"re(#[ \t]*include[ \t]*["<]([^">]+))re");
    static const std::regex standard("[a-z_0-9]+");
    static const std::regex toolkit("Q[A-Za-z]+");
    static const std::string itemPointer = "boost/smart_ptr/shared_ptr.hpp";
    std::vector<std::string> strays;
    for (std::sregex_iterator match(text.begin(), text.end(), include), end; match != end; ++match) {
        const std::string included = (*match)[1];
        if (!publicHeaders.contains(included) && !std::regex_match(included, standard) &&
            !(header.starts_with("korvel/qt/") && std::regex_match(included, toolkit)) &&
            !(header.starts_with("korvel/layout/") && included == itemPointer))
            strays.push_back(included);
    }
    return strays;
}

// The text without comments, literals, preprocessor lines and what stands between angle brackets: what is
// left has brackets and semicolons of declarations only.
std::string Declarations(std::string text) {
    static const std::regex noise(
        R"re(//[^\n]*|/\*[\s\S]*?\*/|"(\\.|[^"\\\n])*"|'(\\.|[^'\\\n])+'|#[^\n]*)re");
    static const std::regex innermost("(operator *(<=>|<<|>>|->|<=|>=|<|>))|<[^<>;{}]*>|->");
    text = std::regex_replace(text, noise, " ");
    for (std::string former; former != text;) {
        former = text;
        text = std::regex_replace(text, innermost, " ");
    }
    return text;
}

// Finds what is declared but neither defined in the header nor exported.
class LinkScan {
public:
    explicit LinkScan(const std::string& text) : m_text(Declarations(text)) {
        ScanScope(m_text.size(), "", true);
    }
    std::vector<std::string> Unexported() const { return m_unexported; }

private:
    // Walks the declarations up to `end`. `isExported`: of the class around them.
    void ScanScope(std::size_t end, const std::string& className, bool isExported) {
        static const std::regex namespaceHead(R"re(\s*(inline\s+)?(namespace\b[\s\S]*|extern\s*))re");
        static const std::regex classHead(R"re(\s*(?:class|struct|union)\s+(KORVEL_API\s+)?(\w+)[^()]*)re");
        static const std::regex access(R"re(\s*(public|protected|private)\s*:(?!:))re");
        std::smatch match;
        while (m_at < end) {
            const std::size_t start = m_at;
            m_at = std::min(m_text.find_first_of(";{", start), end);
            std::string head = m_text.substr(start, m_at - start);
            while (std::regex_search(head, match, access, std::regex_constants::match_continuous))
                head = match.suffix();
            if (m_at == end)
                return;
            if (m_text[m_at++] == ';') {
                Judge(head, className, isExported);
                continue;
            }
            const std::size_t close = Closing(m_at);
            if (className.empty() && std::regex_match(head, namespaceHead))
                ScanScope(close, className, isExported);
            else if (std::regex_match(head, match, classHead))
                ScanScope(close, match[2], match[1].matched || (!className.empty() && isExported));
            m_at = close + 1;
        }
    }

    // Where the bracket before `at` closes.
    std::size_t Closing(std::size_t at) const {
        for (int depth = 1; at < m_text.size(); ++at) {
            depth += m_text[at] == '{' ? 1 : m_text[at] == '}' ? -1 : 0;
            if (depth == 0)
                break;
        }
        return at;
    }

    void Judge(const std::string& declaration, const std::string& className, bool isExported) {
        static const std::regex function(
            R"re(([~\w]+|operator[^(]*)\s*\([^*][\s\S]*|([~\w]+|operator[^(]*)\s*\(\))re");
        static const std::regex harmless(
            R"re(\s*(using|typedef|friend|static_assert|template|enum|inline|constexpr)\b[\s\S]*|[\s\S]*=\s*(0|default|delete)\s*)re");
        std::smatch match;
        const std::string beforeBracket = declaration.substr(0, declaration.find('('));
        const bool isField = beforeBracket.find('=') != std::string::npos &&
                             beforeBracket.find("operator") == std::string::npos;
        if (isField || std::regex_match(declaration, harmless) ||
            !std::regex_search(declaration, match, function))
            return;
        const bool linked =
            className.empty() ? declaration.find("KORVEL_API") != std::string::npos : isExported;
        const std::string name =
            (className.empty() ? "" : className + "::") + match[1].str() + match[2].str();
        if (!linked && !IsDefinedBelow(name))
            m_unexported.push_back(name);
    }

    bool IsDefinedBelow(const std::string& name) const {
        return name.find("::") != std::string::npos && m_text.find(name + "(") != std::string::npos;
    }

    std::string m_text;
    std::size_t m_at = 0;
    std::vector<std::string> m_unexported;
};

TEST(PublicHeaders, IncludeOnlyWhatAHostHas) {
    const std::set<std::string> headers = PublicHeaders();
    EXPECT_GT(headers.size(), 20u);
    for (const std::string& header : headers)
        for (const std::string& stray :
             StrayIncludes(header, ReadAll(fs::path(KORVEL_SOURCE_DIR) / "src" / header), headers))
            ADD_FAILURE() << header << " includes " << stray;
}

TEST(PublicHeaders, DeclareOnlyWhatAHostCanLink) {
    for (const std::string& header : PublicHeaders())
        for (const std::string& name :
             LinkScan(ReadAll(fs::path(KORVEL_SOURCE_DIR) / "src" / header)).Unexported())
            ADD_FAILURE() << header << ": " << name << " is not exported";
}

// The hosts of tests/package are linked against the installed library: a class that none of them uses could
// lose its export unseen.
TEST(PublicHeaders, ExportClassesThatThePackageTestsUse) {
    std::string hosts;
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(KORVEL_SOURCE_DIR) / "tests/package"))
        if (entry.path().extension() == ".cpp")
            hosts += ReadAll(entry.path());
    static const std::regex exported(R"re((?:class|struct)\s+KORVEL_API\s+(\w+))re");
    for (const std::string& header : PublicHeaders()) {
        const std::string text = ReadAll(fs::path(KORVEL_SOURCE_DIR) / "src" / header);
        for (std::sregex_iterator match(text.begin(), text.end(), exported), end; match != end; ++match)
            EXPECT_TRUE(std::regex_search(hosts, std::regex("\\b" + (*match)[1].str() + "\\b")))
                << header << ": no host in tests/package uses " << (*match)[1];
    }
}

TEST(PublicHeaders, AStrayIncludeIsFound) {
    const std::tuple<const char*, const char*, bool> rows[] = {
        {"korvel/grid/a.h", "\"korvel/window/public.h\"", true},
        {"korvel/grid/a.h", "\"korvel/grid/inside.h\"", false},
        {"korvel/grid/a.h", "\"inside.h\"", false},
        {"korvel/grid/a.h", "<string_view>", true},
        {"korvel/grid/a.h", "<boost/shared_ptr.hpp>", false},
        {"korvel/grid/a.h", "<pugixml.hpp>", false},
        {"korvel/grid/a.h", "<QWidget>", false},
        {"korvel/qt/a.h", "<QWidget>", true},
        {"korvel/qt/a.h", "<sqlite3.h>", false},
    };
    for (const auto& [header, included, allowed] : rows)
        EXPECT_EQ(
            StrayIncludes(header, std::string("#include ") + included, {"korvel/window/public.h"}).empty(),
            allowed)
            << header << " includes " << included;
}

TEST(PublicHeaders, AMissingExportIsFound) {
    const std::tuple<const char*, std::vector<std::string>> rows[] = {
        {"namespace a { KORVEL_API void F(int x = G(1)); }", {}},
        {"namespace a { void F(); }", {"F"}},
        {"namespace a { std::map<int, void (*)()> F(const A& a); }", {"F"}},
        {"namespace a { inline void F() { if (x) { G(); } } template <class T> void H(T t); }", {}},
        {"namespace a::b { class A { public: A(); int f() const { return g(); } }; }", {"A::A"}},
        {"class KORVEL_API A { public: A(); ~A(); struct B { B(); }; };", {}},
        {"class A { class KORVEL_API B { B(); }; void f() const noexcept; };", {"A::f"}},
        {"struct I { virtual ~I() = default; virtual void f(int) = 0; I(const I&) = delete; };", {}},
        {"struct S { std::function<void(int)> call; int n = F(2); void (*pointer)(int); int size{F(1)}; };",
         {}},
        {"struct S { int f(); }; inline int S::f() { return 1; }", {}},
        {"struct S { bool operator==(const S& other) const; };", {"S::operator=="}},
        {"template <class T> class A { void f(); };", {}},
        {"// class A { void f(); };\n/* void F(); */\n#define F(x) G(x);\nusing P = void (*)(int);", {}},
        {"class A; enum E { First = 1 << 2 }; extern const char* const name;", {}},
    };
    for (const auto& [text, unexported] : rows)
        EXPECT_EQ(LinkScan(text).Unexported(), unexported) << text;
}

} // namespace

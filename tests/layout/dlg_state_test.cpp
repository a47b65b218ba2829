#include "korvel/layout/dlg_state.h"
#include "korvel/platform/settings_store.h"
#include "korvel/window/app/app.h"
#include "korvel/window/core/registered_messages.h"
#include "support/recorded_window.h"
#include "support/scratch.h"

#include <filesystem>
#include <limits>
#include <sqlite3.h>
#include <stdexcept>

namespace korvel {
namespace {

using platform::SettingsRoot;
using platform::SettingsStatus;
using platform::SettingType;
using platform::SettingValue;

constexpr UINT TemplateId = 15002;
constexpr char NamedKey[] = R"(SOFTWARE\Halmond\Korvel\DlgStates\Line Planner\15002)";
constexpr char NamelessKey[] = R"(SOFTWARE\Halmond\Korvel\DlgStates\15002)";
constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();

std::string Bytes(std::initializer_list<int> numbers) {
    std::string bytes;
    for (const int number : numbers)
        for (int shift = 0; shift < 32; shift += 8)
            bytes += static_cast<char>(static_cast<unsigned>(number) >> shift & 0xFF);
    return bytes;
}

class RememberedWindow : public CWnd, public TDlgState<RememberedWindow> {
public:
    std::string root;
    bool hasId = true;
    bool throwsWhenMoved = false;

    UINT GetTemplateID() const { return hasId ? TemplateId : throw std::runtime_error("no template"); }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_SIZE && throwsWhenMoved)
            throw std::runtime_error("a handler of the new size");
        return CWnd::WindowProc(message, wParam, lParam);
    }
    std::string GetRootKey(const std::string& base) override {
        return root.empty() ? TDlgState::GetRootKey(base) : root;
    }
};

// Writes down the keys that it hears of.
class StateChild : public CWnd {
public:
    explicit StateChild(Log& log) : m_log(log) {}
    void CreateIn(CWnd& parent) { CreateEx(0, "KorvelFrame", "", WS_CHILD, {0, 0, 9, 9}, &parent, 1); }
    bool throws = false;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_DLG_STATE_REGISTRY)
            m_log.push_back(std::string(wParam ? "saved " : "loaded ") +
                            std::string(reinterpret_cast<const char*>(lParam)));
        if (message == WM_DLG_STATE_REGISTRY && throws)
            throw std::runtime_error("a child fails");
        return CWnd::WindowProc(message, wParam, lParam);
    }

private:
    Log& m_log;
};

class DlgState : public WindowTest {
protected:
    DlgState() {
        app.m_pszAppName = "Line Planner";
        SetHostApp(&app);
        owner.CreateEx(0, "KorvelFrame", "", 0, {2000, 100, 2500, 400}, nullptr, 0);
        window.CreateEx(0, "KorvelFrame", "", WS_POPUP, Place, &owner, 0);
        child.CreateIn(window);
        inner.CreateIn(child);
    }
    ~DlgState() override { SetHostApp(nullptr); }

    static void Keep(const SettingValue& value) {
        platform::CreateKey(SettingsRoot::User, NamedKey);
        platform::WriteSetting(SettingsRoot::User, NamedKey, "State", value);
    }
    static std::string Kept(const std::string& key) {
        SettingValue value;
        const SettingsStatus status = platform::ReadSetting(SettingsRoot::User, key, "State", value);
        return status == SettingsStatus::Done && value.type == SettingType::Binary ? value.bytes : "nothing";
    }

    static constexpr CRect Place{20, 30, 220, 130};
    platform::ScratchStore store;
    CWinApp app;
    CWnd owner;
    RememberedWindow window;
    StateChild child{log};
    StateChild inner{log}; // hears nothing: it is no direct child
};

TEST_F(DlgState, TheFirstRunMakesTheKeyAndTellsTheChildren) {
    window.Load(true);
    EXPECT_EQ(platform::CheckKey(SettingsRoot::User, NamedKey, platform::SettingsAccess::Read),
              SettingsStatus::Done);
    EXPECT_EQ(window.GetWindowRect(), Place);
    EXPECT_THAT(Heard(), ElementsAre("loaded " + std::string(NamedKey) + "\\"));
}

TEST_F(DlgState, ARecordIsAppliedAsFarAsItIsOne) {
    const std::string record = Bytes({40, 50, 340, 250});
    const CRect remembered{40, 50, 340, 250};
    const Table<SettingValue, CRect> rows = {
        {"sixteen bytes", SettingValue::Binary(record), remembered},
        {"more are accepted", SettingValue::Binary(record + "surplus"), remembered},
        {"one too few", SettingValue::Binary(record.substr(0, 15)), Place},
        {"none", SettingValue::Binary(""), Place},
        {"a text", SettingValue::Text(record), Place},
        {"a number", SettingValue::Number(40), Place},
        {"partly on a screen", SettingValue::Binary(Bytes({-299, 50, 1, 250})), {-299, 50, 1, 250}},
        {"right of all screens: on the owner's",
         SettingValue::Binary(Bytes({9000, 50, 9300, 250})),
         {2900, 50, 3200, 250}},
        {"left of and above them",
         SettingValue::Binary(Bytes({-900, -800, -600, -600})),
         {1920, 0, 2220, 200}},
        {"larger than a screen",
         SettingValue::Binary(Bytes({9000, 9000, 19000, 19000})),
         {1920, 0, 11920, 10000}},
        {"reversed: no size", SettingValue::Binary(Bytes({340, 250, 40, 50})), {1920, 250, 1920, 250}},
        {"as far as numbers go: no window is larger",
         SettingValue::Binary(Bytes({Lowest, Lowest, Highest, Highest})),
         {-(1 << 24), -(1 << 24), 0, 0}},
    };
    display.SetScreens({{0, 0, 1920, 1080}, {1920, 0, 3200, 1024}});
    for (const auto& [name, value, expected] : rows) {
        SCOPED_TRACE(name);
        window.MoveWindow(Place);
        Keep(value);
        window.Load(false);
        EXPECT_EQ(window.GetWindowRect(), Place);
        window.Load(true);
        EXPECT_EQ(window.GetWindowRect(), expected);
        EXPECT_EQ(Heard().size(), 2u) << "the children are told in any case";
    }
}

TEST_F(DlgState, SavesSixteenBytesUnderTheKey) {
    window.MoveWindow({-7, 50, 340, 70000});
    window.Save();
    EXPECT_EQ(Kept(NamedKey), Bytes({-7, 50, 340, 70000}));
    EXPECT_THAT(Heard(), ElementsAre("saved " + std::string(NamedKey) + "\\"));

    // Kept: a child passes through its own client coordinates.
    RememberedWindow page;
    page.CreateEx(0, "KorvelFrame", "", WS_CHILD | WS_BORDER, {15, 25, 115, 75}, &window, 7);
    page.Save();
    EXPECT_EQ(Kept(NamedKey), Bytes({-1, -1, 99, 49}));
    page.Load(true);
    EXPECT_EQ(page.GetWindowRect().TopLeft(), (CPoint{-8, 49}));
}

TEST_F(DlgState, TheKeyIsOfTheRootTheApplicationAndTheTemplate) {
    const Table<const char*, std::string, std::string, bool> rows = {
        {"the library's root", "Line Planner", "", NamedKey, true},
        {"an application without a name loads only", nullptr, "", NamelessKey, false},
        {"nor does one with an empty one save", "", "", NamelessKey, false},
        {"a root of the page's own", "App", R"(SOFTWARE\Host\)", R"(SOFTWARE\Host\App\15002)", true},
    };
    for (const auto& [name, appName, root, key, saves] : rows) {
        SCOPED_TRACE(name);
        app.m_pszAppName = appName;
        window.root = root;
        window.Load(true);
        EXPECT_THAT(Heard(), ElementsAre("loaded " + key + "\\"));
        window.Save();
        EXPECT_THAT(Heard(), saves ? Log{"saved " + key + "\\"} : Log{});
        EXPECT_EQ(Kept(key), saves ? Bytes({20, 30, 220, 130}) : "nothing");
    }
    SetHostApp(nullptr);
    window.root.clear();
    window.Load(true);
    EXPECT_THAT(Heard(), ElementsAre("loaded " + std::string(NamelessKey) + "\\")) << "no application at all";
}

TEST_F(DlgState, ARootGetsASeparatorWhereItHasNone) {
    const Table<std::string, std::string> rows = {
        {"none", "A\\B", "A\\B\\"},
        {"a backslash", "A\\", "A\\"},
        {"a slash", "A/", "A/"},
        {"nothing: the library's", "", R"(SOFTWARE\Halmond\Korvel\DlgStates\)"},
    };
    for (const auto& [name, base, expected] : rows)
        EXPECT_EQ(window.GetRootKey(base), expected) << name;
}

TEST_F(DlgState, ReadsWhileAnotherProgramWrites) {
    Keep(SettingValue::Binary(Bytes({40, 50, 340, 250})));
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(store.File().c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    window.Load(true);
    sqlite3_close(other);
    EXPECT_EQ(window.GetWindowRect(), (CRect{40, 50, 340, 250}));
}

TEST_F(DlgState, AWindowThatIsGoneLeavesTheRecord) {
    window.Save();
    const std::string record = Kept(NamedKey);
    window.DestroyWindow();
    window.Save();
    EXPECT_EQ(Kept(NamedKey), record);
}

TEST_F(DlgState, NothingLeaves) {
    StateChild second(log);
    second.CreateIn(window);
    child.throws = true;
    window.Load(true);
    window.Save();
    EXPECT_EQ(Heard().size(), 4u) << "a child that fails keeps no other from hearing";
    child.throws = false;

    Keep(SettingValue::Binary(Bytes({40, 50, 340, 250})));
    window.throwsWhenMoved = true;
    window.Load(true);
    EXPECT_EQ(Heard().size(), 2u) << "nor does the window";
    window.hasId = false;
    window.Load(true);
    window.Save();
    EXPECT_THAT(Heard(), IsEmpty()) << "no key without an id";
    window.hasId = true;
    window.throwsWhenMoved = false;

    std::filesystem::remove_all(store.File().parent_path());
    std::filesystem::create_directories(store.File().parent_path());
    std::ofstream(store.File()) << "this is no store of settings, whatever its name says";
    window.Load(true);
    window.Save();
    EXPECT_THAT(Heard(), IsEmpty()) << "a broken store is a key that cannot be opened";

    std::filesystem::remove(store.File());
    std::filesystem::permissions(store.File().parent_path(),
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    std::filesystem::permissions(store.Path(), std::filesystem::perms::all);
    {
        const platform::OrdinaryUser user;
        window.Load(true);
        window.Save();
    }
    EXPECT_THAT(Heard(), IsEmpty()) << "a folder that may only be read";
}

} // namespace
} // namespace korvel

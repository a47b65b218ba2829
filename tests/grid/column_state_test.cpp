#include "korvel/documents/xml_element.h"
#include "korvel/documents/xml_node.h"
#include "korvel/platform/settings_store.h"
#include "korvel/window/list/header_ctrl.h"
#include "support/grid_fixture.h"
#include "support/table.h"

namespace korvel {
namespace {

using platform::SettingsRoot;
using platform::SettingValue;

class ColumnStateTest : public BoundGridTest {
protected:
    using Widths = std::vector<int>;

    static constexpr const char* Key = "SOFTWARE\\Test\\";
    static constexpr const char* Name = "105 root"; // the control's id, the object's ident

    ColumnStateTest() { platform::CreateKey(SettingsRoot::User, Key); }

    static std::string Write(CEditableGrid& from) {
        std::ostringstream file;
        {
            CXmlNode state(file, "State");
            state.WriteOpeningTag();
            from.SendMessageA(WM_DLG_STATE, 1, reinterpret_cast<LPARAM>(&state));
        }
        return file.str();
    }
    static void Read(CEditableGrid& to, const std::string& document) {
        const XmlElement state = ReadXmlElement(document);
        to.SendMessageA(WM_DLG_STATE, 0, reinterpret_cast<LPARAM>(&state));
    }
    static void Save(CEditableGrid& from, const char* key = Key) {
        from.SendMessageA(WM_DLG_STATE_REGISTRY, 1, reinterpret_cast<LPARAM>(key));
    }
    static void Load(CEditableGrid& to, const char* key = Key) {
        to.SendMessageA(WM_DLG_STATE_REGISTRY, 0, reinterpret_cast<LPARAM>(key));
    }
    static void Keep(const std::string& record) {
        platform::WriteSetting(SettingsRoot::User, Key, Name, SettingValue::Binary(record));
    }
    static std::string KeptAs(const std::string& name) {
        SettingValue value;
        platform::ReadSetting(SettingsRoot::User, Key, name, value);
        return value.bytes;
    }
    static Widths Shown(const CEditableGrid& of) {
        Widths widths;
        for (int column = 0; column < of.GetColumnCount(); ++column)
            widths.push_back(of.GetColumnWidth(column));
        return widths;
    }
    // A divider is dragged by as many pixels.
    void DragColumn(int column, int pixels) {
        int right = 0;
        for (int left = 0; left <= column; ++left)
            right += grid.GetColumnWidth(left);
        const HWND header = grid.GetHeaderCtrl()->m_hWnd;
        input::Mouse(header, WM_LBUTTONDOWN, MK_LBUTTON, {right - 1, 5});
        input::Mouse(header, WM_MOUSEMOVE, MK_LBUTTON, {right - 1 + pixels, 5});
        input::Mouse(header, WM_LBUTTONUP, 0, {right - 1 + pixels, 5});
    }
};

TEST_F(ColumnStateTest, WhatTheUserHasDraggedIsKept) {
    Bind(root);
    const Widths before = Shown(grid);
    EXPECT_EQ(Write(grid), "<State>\n</State>\n");
    Save(grid);
    EXPECT_EQ(KeptAs(Name), "") << "nothing to keep";
    DragColumn(0, 7);
    EXPECT_EQ(Write(grid), "<State>\n<Column POS=\"0\" WIDTH=\"" + std::to_string(before[0] + 7) +
                               "\">\n</Column>\n<Column POS=\"1\" WIDTH=\"" + std::to_string(before[1]) +
                               "\">\n</Column>\n</State>\n");
    NMHEADER dragged;
    for (const auto& [border, column, width, kept] : Table<int, int, int>{
             {"the notice says how wide", 1, 333, 333}, {"none", -1, 5, 333}, {"gone", 2, 5, 333}}) {
        dragged.hdr.code = HDN_ENDTRACK;
        dragged.iItem = column;
        dragged.cxy = width;
        grid.SendMessageA(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&dragged));
        ASSERT_EQ(grid.GetColumnInfo().size(), 2u) << border;
        EXPECT_EQ(grid.GetColumnInfo()[1].width, kept) << border;
    }
}

TEST_F(ColumnStateTest, AStateComesBackInItsOwnGridAndIsRefusedInAnother) {
    const auto binding = [](HostObject& object) {
        return [object = &object](CEditableGrid& to) { to.Initialize(object, "Name", "Value", 0); };
    };
    const auto columns = [this](std::list<std::string> names) {
        return [=, this](CEditableGrid& to) {
            to.SetLayoutMultiColumn(names), to.Initialize(&root, "Name", "Value", 0);
        };
    };
    using Prepare = std::function<void(CEditableGrid&)>;
    for (const auto& [border, prepareOne, prepareOther, isTaken] : Table<Prepare, Prepare, bool>{
             {"two columns", binding(root), binding(root), true},
             {"another object", binding(root), binding(point), false},
             {"more columns", columns({"Name", "x", "y"}), columns({"Name", "x", "y"}), true},
             {"fewer columns", columns({"Name", "x", "y"}), binding(root), false}}) {
        SCOPED_TRACE(border);
        CEditableGrid one(&observer, nullptr), other(&observer, nullptr);
        for (CEditableGrid* each : {&one, &other})
            Make(*each);
        prepareOne(one);
        Widths widths;
        std::vector<SColumnInfo> info;
        for (int column = 0; column < one.GetColumnCount(); ++column) {
            widths.push_back(41 + column);
            info.push_back({column, 41 + column});
        }
        one.SetColumnInfo(info);
        Save(one);
        prepareOther(other);
        const Widths before = Shown(other);
        Load(other);
        EXPECT_EQ(Shown(other), isTaken ? widths : before);
        Read(other, Write(one));
        widths.resize(before.size());
        EXPECT_EQ(Shown(other), widths) << "from XML as far as there are columns";
    }
}

TEST_F(ColumnStateTest, AStateThatComesFirstIsForTheBindingThatFollows) {
    Read(grid, "<State><Column POS='1' WIDTH='77'/></State>"); // the width of the other one is not known
    EXPECT_TRUE(grid.GetColumnInfo().empty());
    grid.SetColumnInfo({{0, 51}, {1, 52}});
    Save(grid);
    EXPECT_EQ(KeptAs("105 ").size(), 16u) << "no object, no ident";
    grid.SetColumnInfo({});
    Load(grid);
    Read(grid, "<State><Column POS='1' WIDTH='77'/></State>");
    Bind(root);
    EXPECT_EQ(Shown(grid), (Widths{51, 77}));
}

TEST_F(ColumnStateTest, WhatIsNoWidthOfAColumnIsLeftOut) {
    Bind(root);
    for (const auto& [border, columns, first, second] : Table<const char*, int, int>{
             {"both", "<Column POS='1' WIDTH='20'/><Column POS='0' WIDTH='10'/>", 10, 20},
             {"one", "<Column POS='1' WIDTH='25'/>", 10, 25},
             {"the bounds", "<Column POS='0' WIDTH='0'/><Column POS='1' WIDTH='32767'/>", 0, 32767},
             {"beyond them", "<Column POS='0' WIDTH='-1'/><Column POS='1' WIDTH='32768'/>", 0, 32767},
             {"twice", "<Column POS='0' WIDTH='30'/><Column POS='0' WIDTH='31'/>", 30, 32767},
             {"no such columns", "<Column POS='2' WIDTH='1'/><Column POS='-1' WIDTH='1'/>", 30, 32767},
             {"no numbers",
              "<Column POS='' WIDTH='1'/><Column POS='1x' WIDTH='1'/><Column POS='1' WIDTH=' 1'/>", 30,
              32767},
             {"too large ones", "<Column POS='4294967296' WIDTH='1'/><Column POS='0' WIDTH='4294967297'/>",
              30, 32767},
             {"a part", "<Column POS='0'/><Column WIDTH='1'/><Column/><Other POS='0' WIDTH='1'/>", 30, 32767},
             {"deeper ones", "<Other><Column POS='0' WIDTH='1'/></Other>", 30, 32767},
             {"others between", "<Other/>text<Column POS='1' WIDTH='40'>text</Column>", 30, 40}}) {
        Read(grid, "<State>" + std::string(columns) + "</State>");
        EXPECT_EQ(Shown(grid), (Widths{first, second})) << border;
        EXPECT_EQ(grid.GetColumnInfo()[1].width, second) << border;
    }
    for (const UINT message : {WM_DLG_STATE, WM_DLG_STATE_REGISTRY})
        for (const WPARAM writes : {0u, 1u})
            EXPECT_EQ(grid.SendMessageA(message, writes, 0), 0) << "no state";
}

TEST_F(ColumnStateTest, ADamagedRecordGivesNoWidthThatIsNone) {
    const std::string record("\0\0\0\0\x40\0\0\0\1\0\0\0\x50\0\0\0", 16);
    Bind(root);
    const auto load = [&](const std::string& damaged) {
        grid.SetColumnInfo({{0, 50}, {1, 60}});
        grid.SetColumnWidth(0, 50);
        grid.SetColumnWidth(1, 60);
        Keep(damaged);
        Load(grid);
        return Shown(grid);
    };
    for (std::size_t at = 0; at < record.size(); ++at)
        for (const int byte : {0, 1, 2, 0x41, 0x7F, 0x80, 0xFF}) {
            std::string damaged = record;
            damaged[at] = static_cast<char>(byte);
            for (const int width : load(damaged))
                EXPECT_TRUE(width >= 0 && width <= 32767) << at << ": " << byte;
        }
    for (std::size_t length = 0; length < 3 * record.size(); ++length)
        if (length != record.size())
            EXPECT_EQ(load((record + record + record).substr(0, length)), (Widths{50, 60})) << length;
    EXPECT_EQ(load(std::string("\0\0\0\0\x09\0\0\0\0\0\0\0\x0A\0\0\0", 16)), (Widths{9, 60})) << "twice";
    platform::WriteSetting(SettingsRoot::User, Key, Name, SettingValue::Text(record));
    Load(grid);
    EXPECT_EQ(Shown(grid), (Widths{9, 60})) << "of another type";
}

TEST_F(ColumnStateTest, AStoreOrObjectThatFailsKeepsNothingAndSaysNothing) {
    Bind(root);
    grid.SetColumnInfo({{0, 64}, {1, 80}});
    const Widths before = Shown(grid);
    Save(grid, "Missing\\");
    Load(grid, "Missing\\");
    root.countsIdent = true;
    root.onCall = [] { throw std::runtime_error("of the host"); };
    Save(grid);
    Load(grid);
    root.countsIdent = false;
    EXPECT_EQ(KeptAs(Name), "");
    EXPECT_EQ(Shown(grid), before);
    root.countsIdent = true;
    root.onCall = [this] { grid.DestroyWindow(); };
    Save(grid);
    Load(grid);
    root.countsIdent = false;
}

} // namespace
} // namespace korvel

#include "make_value.h"
#include "values/file_value.h"
#include "values/member_dispatch_imp.h"

#include <functional>
#include <gtest/gtest.h>

namespace korvel {
namespace {

class Owner;

/// An object that says when it dies.
class Watched : public TMemberDispatchImp<Owner> {
public:
    explicit Watched(int* deaths) : TMemberDispatchImp("watched"), m_deaths(deaths) { m_bAutoDestroy = true; }
    ~Watched() override { ++*m_deaths; }

private:
    int* m_deaths;
};

class WatchedFile : public CFileValueImp {
public:
    explicit WatchedFile(int* deaths) : m_deaths(deaths) { m_bAutoDestroy = true; }
    ~WatchedFile() override { ++*m_deaths; }

private:
    int* m_deaths;
};

std::list<std::string> NamesOf(IMemberDispatch& object) {
    std::list<std::string> names{"left over"};
    object.GetMemberNames(names);
    return names;
}

TEST(MemberDispatch, AbsentMembersChangeNothing) {
    TMemberDispatchImp<Owner> object("axis");
    object.AddMember("there", true, MakeValue(DT_Int, 1));
    CVariantValue value = MakeValue(DT_Int, 7);
    EDataTyps type = DT_Date;
    const std::function<bool()> refusals[] = {
        [&] { return object.GetMember("There", value); },
        [&] { return object.GetMemberType("There", type); },
        [&] { return object.SetMember("There", value); },
        [&] { return object.IsMemberEditable("There"); },
        [&] { return object.SetMemberEditable("There", false); },
        [&] { return object.RemoveMember("There"); },
        [&] { return object.RenameMember("There", "new"); },
        [&] { return object.ChangeMemberType("There", DT_Double); },
    };
    for (const auto& refusal : refusals)
        EXPECT_FALSE(refusal()) << "operation " << &refusal - refusals;
    EXPECT_EQ(int(value), 7);
    EXPECT_EQ(type, DT_Date);
    EXPECT_EQ(NamesOf(object), std::list<std::string>{"there"});
    EXPECT_TRUE(object.IsMemberEditable("there"));
}

TEST(MemberDispatch, ACommonTypeBitIsEnoughToSet) {
    struct Row {
        const char* border;
        unsigned stored;
        unsigned given;
        bool accepted;
    };
    const Row rows[] = {
        {"same type", DT_Int, DT_Int, true},
        {"same storage", DT_Double, DT_LengthDouble, true},
        {"same meaning", DT_LengthFloat, DT_LengthDouble, true},
        {"nothing in common", DT_Int, DT_String, false},
        {"void has no bits", DT_Void, DT_Void, false},
        {"the sign bit alone", 0x80000001, 0x80000002, false},
        {"the sign bit and another", 0x80000001, 0x80000001, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.border);
        TMemberDispatchImp<Owner> object;
        object.AddMember("m", true, MakeValue(static_cast<EDataTyps>(row.stored), 1));
        EXPECT_EQ(object.SetMember("m", MakeValue(static_cast<EDataTyps>(row.given), 2)), row.accepted);
        CVariantValue value;
        object.GetMember("m", value);
        EXPECT_EQ(value.Type, row.accepted ? row.given : row.stored);
        EXPECT_EQ(value.Value.Int, row.accepted ? 2 : 1);
    }
}

TEST(MemberDispatch, OfDoubleNamesTheFirstIsFound) {
    TMemberDispatchImp<Owner> object;
    for (const int number : {1, 2, 3})
        EXPECT_TRUE(object.AddMember("m", number == 1, MakeValue(DT_Int, number)));
    object.AddMember("a", true, MakeValue(DT_Int, 4));
    const auto numberOf = [&](const char* name) {
        CVariantValue value;
        return object.GetMember(name, value) ? value.Value.Int : 0;
    };
    EXPECT_EQ(NamesOf(object), (std::list<std::string>{"m", "m", "m", "a"}));
    EXPECT_TRUE(object.IsMemberEditable("m"));
    EXPECT_TRUE(object.RenameMember("m", "a name that no string holds within itself"));
    EXPECT_EQ(numberOf("a name that no string holds within itself"), 1);
    EXPECT_EQ(numberOf("m"), 2);
    EXPECT_TRUE(object.RemoveMember("m"));
    EXPECT_EQ(numberOf("m"), 3);
    EXPECT_TRUE(object.RemoveMember("m"));
    EXPECT_FALSE(object.RemoveMember("m"));
    object.AddMember("m", true, MakeValue(DT_Int, 5));
    EXPECT_EQ(numberOf("m"), 5);
}

TEST(MemberDispatch, Rename) {
    TMemberDispatchImp<Owner> nested("nested");
    TMemberDispatchImp<Owner> object;
    object.AddMember("m", true, MakeValue(DT_Int, 1));
    object.AddMember("nested", true, MakeValue(DT_Group, &nested));
    object.AddMember("empty", true, MakeValue(DT_Group, nullptr));
    EXPECT_FALSE(object.RenameMember("m", "m"));
    EXPECT_FALSE(object.RenameMember("m", "nested"));
    EXPECT_FALSE(object.RenameMember("empty", "full"));
    EXPECT_FALSE(object.RenameMember("nested", "axis"));
    EXPECT_EQ(nested.GetIdent(), "nested");
    nested.SetEditFlags(EF_Rename);
    EXPECT_TRUE(object.RenameMember("nested", "axis"));
    EXPECT_EQ(nested.GetIdent(), "axis");
    EXPECT_TRUE(object.RenameMember("m", "n"));
    EXPECT_EQ(NamesOf(object), (std::list<std::string>{"n", "axis", "empty"}));
}

TEST(MemberDispatch, AFailedChangeOfTypeKeepsTheValue) {
    TMemberDispatchImp<Owner> object;
    object.AddMember("n", true, MakeValue(DT_Double, 150.7));
    EXPECT_TRUE(object.ChangeMemberType("n", DT_RangeInt));
    EXPECT_THROW(object.ChangeMemberType("n", DT_String), std::invalid_argument);
    CVariantValue value;
    object.GetMember("n", value);
    EXPECT_EQ(value, MakeValue(DT_RangeInt, 100));
}

TEST(MemberDispatch, ClearingDestroysWhatDestroysItself) {
    int deaths = 0;
    TestEnum owned({});
    owned.isAutoDestroy = true;
    TestEnum lent({});
    TMemberDispatchImp<Owner> kept("kept");
    {
        TMemberDispatchImp<Owner> object;
        object.AddMember("nested", true, MakeValue(DT_Group, new Watched(&deaths)));
        object.AddMember("kept", true, MakeValue(DT_Group, &kept));
        object.AddMember("null", true, MakeValue(DT_Group, nullptr));
        for (const EDataTyps type :
             {DT_FileName, DT_ListInt, static_cast<EDataTyps>(DT_ListInt | TypeBitButton)}) {
            CVariantValue value = MakeValue(type, "");
            if (type == DT_FileName)
                value.EnumContext = new WatchedFile(&deaths);
            else
                value.EnumValue = &owned;
            object.AddMember("value", true, value);
        }
        CVariantValue list = MakeValue(DT_ListInt, "");
        list.EnumValue = &lent;
        object.AddMember("list", true, list);

        auto* removed = new Watched(&deaths);
        object.AddMember("removed", true, MakeValue(DT_Group, removed));
        object.RemoveMember("removed");
        EXPECT_EQ(deaths, 0);
        delete removed;
    }
    EXPECT_EQ(deaths, 3);
    EXPECT_EQ(owned.destroyed, 2);
    EXPECT_EQ(lent.destroyed, 0);
}

TEST(MemberDispatch, CommandsComeFromTheSink) {
    struct Sink : IMemberCommandSink {
        std::uint32_t GetMemberFlags(const std::string&) override { return MF_Rename; }
        bool OnMemberCommand(const std::string&, std::uint32_t id) override { return id == 3; }
        void GetMemberCommands(const std::string& name, std::list<SCommand>& commands) override {
            commands.push_back({name, 1});
        }
        void GetMemberExtraCommands(const std::string&, std::list<SCommand>& commands) override {
            commands.push_back({"more", 2});
        }
    } sink;
    TMemberDispatchImp<Owner> object;
    IMemberCommandSink* const receivers[] = {nullptr, &sink};
    for (IMemberCommandSink* receiver : receivers) {
        object.m_pCommandSink = receiver;
        std::list<SCommand> commands;
        object.GetMemberCommands("m", commands);
        object.GetMemberExtraCommands("m", commands);
        EXPECT_EQ(commands.size(), receiver ? 2u : 0u);
        EXPECT_EQ(object.GetMemberFlags("m"), receiver ? 4u : 0u);
        EXPECT_EQ(object.OnMemberCommand("m", 3), receiver != nullptr);
    }
}

} // namespace
} // namespace korvel

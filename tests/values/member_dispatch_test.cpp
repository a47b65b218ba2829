#include "korvel/values/member_dispatch_imp.h"
#include "support/file_chooser.h"
#include "support/make_value.h"
#include "support/test_enumeration.h"

#include <gmock/gmock.h>
#include <optional>

namespace korvel {
namespace {

using testing::ElementsAre;
class Owner;

using Object = TMemberDispatchImp<Owner>;

// An object that destroys itself and says so.
template <typename Base>
class Watched : public Base {
public:
    explicit Watched(int& deaths) : m_deaths(deaths) { this->m_bAutoDestroy = true; }
    ~Watched() override { ++m_deaths; }

private:
    int& m_deaths;
};

std::list<std::string> NamesOf(IMemberDispatch& object) {
    std::list<std::string> names{"left over"};
    object.GetMemberNames(names);
    return names;
}

TEST(MemberDispatch, AbsentMembersChangeNothing) {
    Object object("axis");
    object.AddMember("there", true, MakeValue(DT_Int, 1));
    CVariantValue value = MakeValue(DT_Int, 7);
    EDataTyps type = DT_Date;
    const bool happened[] = {
        object.GetMember("There", value),         object.GetMemberType("There", type),
        object.SetMember("There", value),         object.IsMemberEditable("There"),
        object.SetMemberEditable("There", false), object.RemoveMember("There"),
        object.RenameMember("There", "new"),      object.ChangeMemberType("There", DT_Double),
        object.GetMemberFlags("there") != 0, // without a sink
        object.OnMemberCommand("there", 0)};
    EXPECT_THAT(happened, testing::Each(false));
    EXPECT_EQ(int(value), 7);
    EXPECT_EQ(type, DT_Date);
    EXPECT_THAT(NamesOf(object), ElementsAre("there"));
    EXPECT_TRUE(object.IsMemberEditable("there"));
}

// Knows one member.
struct CommandSink : IMemberCommandSink {
    std::uint32_t GetMemberFlags(const std::string& name) override {
        return name == "m" ? std::uint32_t{MF_Delete} : 0U;
    }
    bool OnMemberCommand(const std::string& name, std::uint32_t id) override {
        return name == "m" && id == 7;
    }
    void GetMemberCommands(const std::string& name, std::list<SCommand>& commands) override {
        commands.emplace_back().id = name == "m" ? 1 : 0;
    }
    void GetMemberExtraCommands(const std::string& name, std::list<SCommand>& commands) override {
        commands.emplace_back().id = name == "m" ? 2 : 0;
    }
};

TEST(MemberDispatch, AsksItsCommandSink) {
    CommandSink sink;
    Object object;
    object.m_pCommandSink = &sink;
    std::list<SCommand> commands;
    object.GetMemberCommands("m", commands);
    object.GetMemberExtraCommands("m", commands);
    EXPECT_THAT(commands, ElementsAre(testing::Field(&SCommand::id, 1), testing::Field(&SCommand::id, 2)));
    EXPECT_TRUE(object.OnMemberCommand("m", 7));
    EXPECT_FALSE(object.OnMemberCommand("m", 8));
    EXPECT_FALSE(object.OnMemberCommand("n", 7));
    EXPECT_EQ(object.GetMemberFlags("m"), MF_Delete);
    EXPECT_EQ(object.GetMemberFlags("n"), 0U);
}

TEST(MemberDispatch, ACommonTypeBitIsEnoughToSet) {
    const std::tuple<const char*, unsigned, unsigned, bool> rows[] = {
        {"same storage", DT_Double, DT_LengthDouble, true},
        {"nothing in common", DT_Int, DT_String, false},
        {"the sign bit alone", 0x80000001, 0x80000002, false},
        {"the sign bit and another", 0x80000001, 0x80000001, false},
    };
    for (const auto& [border, stored, given, accepted] : rows) {
        Object object;
        object.AddMember("m", true, MakeValue(static_cast<EDataTyps>(stored), 1));
        EXPECT_EQ(object.SetMember("m", MakeValue(static_cast<EDataTyps>(given), 2)), accepted) << border;
        CVariantValue value;
        object.GetMember("m", value);
        EXPECT_EQ(value, MakeValue(static_cast<EDataTyps>(accepted ? given : stored), accepted ? 2 : 1))
            << border;
    }
}

TEST(MemberDispatch, OfDoubleNamesTheFirstIsFound) {
    Object object;
    for (const int number : {1, 2, 3})
        EXPECT_TRUE(object.AddMember("m", number == 1, MakeValue(DT_Int, number)));
    const auto numberOf = [&](const char* name) {
        CVariantValue value;
        return object.GetMember(name, value) ? value.Value.Int : 0;
    };
    EXPECT_TRUE(object.IsMemberEditable("m"));
    EXPECT_TRUE(object.RenameMember("m", "a name that no string holds within itself"));
    EXPECT_THAT(NamesOf(object), ElementsAre("a name that no string holds within itself", "m", "m"));
    EXPECT_EQ(numberOf("a name that no string holds within itself"), 1);
    EXPECT_EQ(numberOf("m"), 2);
    EXPECT_TRUE(object.RemoveMember("m"));
    EXPECT_EQ(numberOf("m"), 3);
}

TEST(MemberDispatch, RenameAsksTheNestedObject) {
    Object nested("nested");
    Object object;
    object.AddMember("m", true, MakeValue(DT_Double, 150.7));
    object.AddMember("nested", true, MakeValue(DT_Group, &nested));
    object.AddMember("empty", true, MakeValue(DT_Group, nullptr));
    for (const auto& [name, newName] :
         {std::pair("m", "m"), {"m", "nested"}, {"empty", "full"}, {"nested", "axis"}})
        EXPECT_FALSE(object.RenameMember(name, newName)) << name;
    EXPECT_EQ(nested.GetIdent(), "nested");
    nested.SetEditFlags(EF_Rename);
    EXPECT_TRUE(object.RenameMember("nested", "axis"));
    EXPECT_EQ(nested.GetIdent(), "axis");
    EXPECT_THAT(NamesOf(object), ElementsAre("m", "axis", "empty"));

    EXPECT_TRUE(object.ChangeMemberType("m", DT_RangeInt));
    EXPECT_THROW(object.ChangeMemberType("m", DT_String), std::invalid_argument);
    CVariantValue value;
    object.GetMember("m", value);
    EXPECT_EQ(value, MakeValue(DT_RangeInt, 100)) << "a failed change of the type keeps the value";
}

TEST(MemberDispatch, ClearingDestroysWhatDestroysItself) {
    int deaths = 0;
    TestEnumeration owned, lent;
    owned.isAutoDestroy = true;
    Object nested;
    Watched<Object> removed(deaths);
    CVariantValue file = MakeValue(DT_FileName, "");
    file.EnumContext = new Watched<FileChooser>(deaths);
    {
        Object object;
        for (const CVariantValue& value :
             {MakeValue(DT_Group, &removed), MakeValue(DT_Group, &nested),
              MakeValue(DT_Group, new Watched<Object>(deaths)), file, MakeList(DT_ListInt, "", &owned),
              MakeList(static_cast<EDataTyps>(DT_ListInt | TypeBitButton), "", &owned),
              MakeList(DT_ListInt, "", &lent)})
            object.AddMember("m", true, value);
        object.RemoveMember("m");
    }
    EXPECT_EQ(deaths, 2);
    EXPECT_EQ(owned.destroyed, 2);
    EXPECT_EQ(lent.destroyed, 0);
}

IMemberDispatch* NestedIn(Object& object) {
    CVariantValue value;
    EXPECT_TRUE(object.GetMember("nested", value));
    return value.Value.Dispatch;
}

// Whichever is declared first: objects die in the opposite order.
TEST(MemberDispatch, ANestedObjectThatDiesFirstIsForgotten) {
    Object owner;
    std::optional<Object> nested(std::in_place);
    owner.AddMember("nested", true, MakeValue(DT_Group, &*nested));
    EXPECT_EQ(NestedIn(owner), &*nested);
    nested.reset();
    EXPECT_EQ(NestedIn(owner), nullptr);
    EXPECT_FALSE(owner.RenameMember("nested", "new"));

    nested.emplace();
    owner.SetMember("nested", MakeValue(DT_Group, &*nested));
    EXPECT_EQ(NestedIn(owner), &*nested);
    nested.reset(); // the owner looks at its members when it dies
}

TEST(MemberDispatch, ObjectsThatOwnEachOtherDieOnce) {
    auto* first = new Object;
    auto* second = new Object;
    first->m_bAutoDestroy = second->m_bAutoDestroy = true;
    first->AddMember("nested", true, MakeValue(DT_Group, second));
    second->AddMember("nested", true, MakeValue(DT_Group, first));
    delete first;
}

} // namespace
} // namespace korvel

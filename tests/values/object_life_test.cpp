#include "korvel/values/member_dispatch_imp.h"
#include "support/make_value.h"

#include <gtest/gtest.h>
#include <optional>

namespace korvel {
namespace {

class Plain : public TMemberDispatchImp<Plain> {
public:
    using TMemberDispatchImp::TMemberDispatchImp;
};

IMemberDispatch* NestedIn(Plain& object) {
    CVariantValue value;
    EXPECT_TRUE(object.GetMember("nested", value));
    return value.Value.Dispatch;
}

// Whichever is declared first: objects die in the opposite order.
TEST(ObjectLife, ANestedObjectThatDiesFirstIsForgotten) {
    Plain owner;
    std::optional<Plain> nested(std::in_place);
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

TEST(ObjectLife, ObjectsThatOwnEachOtherDieOnce) {
    auto* first = new Plain;
    auto* second = new Plain;
    first->m_bAutoDestroy = second->m_bAutoDestroy = true;
    first->AddMember("nested", true, MakeValue(DT_Group, second));
    second->AddMember("nested", true, MakeValue(DT_Group, first));
    delete first;
}

} // namespace
} // namespace korvel

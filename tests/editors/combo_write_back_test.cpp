#include "korvel/editors/combo_write_back.h"
#include "korvel/values/member_dispatch_imp.h"
#include "support/test_enumeration.h"

#include <gtest/gtest.h>

namespace korvel::internal {
namespace {

// An object that makes something else of what it is given, and the observer of its changes.
class WilfulObject : public TMemberDispatchImp<int>, public IObserverGrid {
public:
    WilfulObject() : TMemberDispatchImp("object") {}
    std::string log;
    std::string correction;
    std::function<void()> inside;

    bool SetMember(const std::string& name, const CVariantValue& value) override {
        log += "set " + value.Text + " ";
        if (inside)
            inside();
        CVariantValue taken = value;
        taken.Text += correction;
        return TMemberDispatchImp::SetMember(name, taken);
    }
    bool GetMember(const std::string& name, CVariantValue& value) override {
        log += "get ";
        return TMemberDispatchImp::GetMember(name, value);
    }
    void OnChange(IMemberDispatch*, void*, const std::string& name, const CVariantValue& value) override {
        log += "changed " + name + " " + value.Text + " ";
    }
    void AddSink(IMemberDispatch*, IObserverGridSink*) override {}
    void RemoveSink(IMemberDispatch*, IObserverGridSink*) override {}
    void OnRemove(IMemberDispatch*, void*, const std::string&) override {}
    void OnRename(IMemberDispatch*, void*, const std::string&, const std::string&) override {}
    void OnAdd(IMemberDispatch*, void*, const std::string&, const CVariantValue&) override {}
    void OnChangeEditFlag(IMemberDispatch*, void*, const std::string&, const bool&) override {}
    void OnChangeType(IMemberDispatch*, void*, const std::string&, EDataTyps, const CVariantValue&) override {
    }
};

class ComboWriteBackTest : public testing::Test {
protected:
    ComboWriteBackTest() {
        object.AddMember("m", true, shown.ValueOf(",1,"));
        binding.SetValue(shown.ValueOf(",1,"));
        binding.Open();
        writeBack.SetMember(&object, "m");
    }
    std::string Write(IObserverGrid* observer) {
        object.log.clear();
        writeBack.Write(observer);
        return object.log;
    }

    TestEnumeration shown{{"a", "b"}};
    WilfulObject object;
    ComboBinding binding{eDropDown};
    ComboWriteBack writeBack{binding};
};

TEST_F(ComboWriteBackTest, WritesTellsAndReadsBack) {
    EXPECT_FALSE(writeBack.IsDirty());
    binding.Value() = shown.ValueOf(",2,");
    EXPECT_TRUE(writeBack.IsDirty());
    EXPECT_EQ(Write(&object), "set ,2, changed m ,2, get ");
    EXPECT_FALSE(writeBack.IsDirty());
    object.correction = "!";
    EXPECT_EQ(Write(&object), "set ,2, changed m ,2, get changed m ,2,! ");
    EXPECT_EQ(binding.Value().Text, ",2,!");
    EXPECT_EQ(Write(nullptr), "set ,2,! get ");
    writeBack.SetMember(nullptr, {}); // no object: written nowhere
    EXPECT_EQ(Write(&object), "");
    EXPECT_FALSE(writeBack.IsDirty());
}

TEST_F(ComboWriteBackTest, WhatTheObjectDoesMeanwhile) {
    object.inside = [&] {
        EXPECT_TRUE(writeBack.IsWriting());
        writeBack.Write(&object);
        EXPECT_FALSE(writeBack.IsDirty());
    };
    EXPECT_EQ(Write(&object), "set ,1, changed m ,1, get ");
    object.inside = [] { throw Error("no"); };
    EXPECT_THROW(Write(&object), Error);
    EXPECT_FALSE(writeBack.IsWriting());
    EXPECT_EQ(binding.Value().Text, ",1,");
    object.correction = "!";
    object.inside = [&] {
        binding.Close();
        writeBack.Forget();
    };
    EXPECT_EQ(Write(&object), "set ,1, changed m ,1, ") << "an object that is no longer bound is not read";
    EXPECT_EQ(binding.Value().Text, ",1,"); // that of another binding by now
}

} // namespace
} // namespace korvel::internal

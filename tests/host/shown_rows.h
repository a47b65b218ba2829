#pragma once

#include "editing/edit_observer.h"
#include "korvel/values/group_presentation.h"
#include "landxml/landxml_document.h"

#include <algorithm>
#include <deque>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace korvel::inspector {

/// Stands for a grid that shows a whole document: it has the rows that a grid would have after what it heard.
class ShownRows {
public:
    ShownRows(LandXmlDocument& document, EditObserver& observer) : m_observer(observer) {
        Show(document.Root());
    }
    ~ShownRows() {
        for (Object& object : m_objects)
            m_observer.RemoveSink(object.disp, &object);
    }
    ShownRows(const ShownRows&) = delete;
    ShownRows& operator=(const ShownRows&) = delete;

    /// The rows are those that the objects have now.
    void ExpectCurrent() const {
        for (const Object& object : m_objects)
            object.ExpectCurrent();
    }

    /// What was heard since the last call: "rename length -> length [ft]".
    std::vector<std::string> TakeHeard() { return std::exchange(m_heard, {}); }

private:
    struct Row {
        std::string name;
        CVariantValue value;
        bool isEditable;
    };

    static std::vector<Row> RowsOf(IMemberDispatch& disp) {
        std::list<std::string> names;
        disp.GetMemberNames(names);
        std::vector<Row> rows;
        for (const std::string& name : names) {
            rows.push_back({name, {}, disp.IsMemberEditable(name)});
            EXPECT_TRUE(disp.GetMember(name, rows.back().value)) << name;
        }
        return rows;
    }

    static std::string PresentationOf(IMemberDispatch& disp) {
        auto* presentation = dynamic_cast<GroupPresentation*>(disp.m_pEnumValue);
        return presentation ? presentation->GetPresentationText(nullptr) : "";
    }

    struct Object final : IObserverGridSink {
        Object(IMemberDispatch* itsDisp, std::vector<std::string>& log)
            : disp(itsDisp), heard(log), rows(RowsOf(*itsDisp)), presentation(PresentationOf(*itsDisp)) {}

        void ExpectCurrent() const {
            const std::vector<Row> expected = RowsOf(*disp);
            ASSERT_EQ(rows.size(), expected.size()) << disp->GetIdent();
            for (std::size_t i = 0; i < rows.size(); ++i) {
                EXPECT_EQ(rows[i].name, expected[i].name) << disp->GetIdent();
                EXPECT_EQ(rows[i].value.Type, expected[i].value.Type) << rows[i].name;
                EXPECT_TRUE(rows[i].value == expected[i].value) << rows[i].name;
                EXPECT_EQ(rows[i].isEditable, expected[i].isEditable) << rows[i].name;
            }
            EXPECT_EQ(presentation, PresentationOf(*disp));
        }

        auto Find(const std::string& name) {
            return std::find_if(
                rows.begin(), rows.end(), [&](const Row& row) { return row.name == name; });
        }
        Row& At(const std::string& name) {
            const auto row = Find(name);
            if (row != rows.end())
                return *row;
            ADD_FAILURE() << "no row " << name;
            return unknown;
        }

        void OnChangeIdent(const std::string&, const std::string&) override {}
        void OnChange(const std::string& name, const CVariantValue& value) override {
            heard.push_back("change " + name);
            At(name).value = value;
        }
        void OnChangeEditFlag(const std::string& name, const bool& editable) override {
            heard.push_back("protect " + name);
            At(name).isEditable = editable;
        }
        void OnOperationAdd(const std::string& name, const CVariantValue&) override {
            ADD_FAILURE() << "added at the end: " << name;
        }
        void OnOperationInsert(const unsigned long& position, const std::string& name,
                               const CVariantValue& value) override {
            heard.push_back("insert " + name);
            ASSERT_LE(position, rows.size());
            EXPECT_EQ(Find(name), rows.end()) << name << " is there already";
            rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(position),
                        {name, value, disp->IsMemberEditable(name)});
        }
        void OnOperationRemove(const std::string& name, const CVariantValue&) override {
            heard.push_back("remove " + name);
            ASSERT_NE(Find(name), rows.end()) << name;
            rows.erase(Find(name));
        }
        void OnOperationRename(const std::string& name, const std::string& newName) override {
            heard.push_back("rename " + name + " -> " + newName);
            EXPECT_EQ(Find(newName), rows.end()) << newName << " is there already";
            At(name).name = newName;
        }
        void OnOperationChangeType(const std::string& name, EDataTyps type,
                                   const CVariantValue& value) override {
            heard.push_back("retype " + name);
            EXPECT_EQ(At(name).value.Type, type) << "the former one";
            At(name).value = value;
        }
        void OnOperationChangeTupelPresentation(const std::string& text) override {
            heard.push_back("present " + text);
            presentation = text;
        }

        IMemberDispatch* disp;
        std::vector<std::string>& heard;
        std::vector<Row> rows;
        Row unknown{};
        std::string presentation;
    };

    void Show(IMemberDispatch& disp) {
        Object& object = m_objects.emplace_back(&disp, m_heard);
        m_observer.AddSink(&disp, &object);
        m_observer.AddSink(&disp, &object); // as a grid may
        const std::vector<Row> rows = object.rows;
        for (const Row& row : rows)
            if (row.value.Type == DT_Group)
                Show(*row.value.Value.Dispatch);
    }

    EditObserver& m_observer;
    std::vector<std::string> m_heard;
    std::deque<Object> m_objects;
};

} // namespace korvel::inspector

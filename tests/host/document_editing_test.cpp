#include "editing/renames.h"
#include "host/edited_document.h"
#include "support/make_value.h"

namespace korvel::inspector {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DocumentEditingTest : public EditedDocumentTest {
protected:
    void OpenLine() { Open("<LandXML><Line a='1' b='2' length='3'/></LandXML>"); }
    void Set(const char* name, const char* text) {
        EXPECT_TRUE(At("Line").SetMember(name, MakeValue(DT_String, text)));
    }
    std::string Value(const char* name) { return std::string(Document().Tree().FindAttribute(1, name)); }
    const UndoStack& Steps() { return Editing().Steps(); }
};

TEST_F(DocumentEditingTest, AFrameIsAStepAndAWriteOutsideIsOne) {
    OpenLine();
    OpenFrame("edited");
    CloseFrame();
    EXPECT_FALSE(Steps().CanUndo()) << "a frame without a change";
    OpenFrame("edited");
    Set("b", "x");
    EXPECT_FALSE(Steps().CanUndo()) << "while it is open";
    Set("a", "y");
    CloseFrame();
    CloseFrame();
    Set("a", "z");
    Editing().Undo();
    EXPECT_EQ(Value("a"), "y");
    EXPECT_EQ(Steps().UndoTitle(), "edited: b") << "the first member of the frame";
    EXPECT_TRUE(Steps().CanRedo());
    Editing().Undo();
    EXPECT_EQ(Steps().RedoTitle(), "edited: b");
    EXPECT_EQ(Value("a") + Value("b"), "12");
    EXPECT_FALSE(Steps().CanUndo());
    Editing().Undo();
    Editing().Redo();
    EXPECT_EQ(Value("a") + Value("b"), "yx");
    Set("length", "4");
    EXPECT_FALSE(Steps().CanRedo()) << "another way was taken";
    Rows().ExpectCurrent();
}

TEST_F(DocumentEditingTest, ARollBackDropsOnlyTheFrameJustClosed) {
    enum Act { Undo, Frame, Empty, Close, Settle, Outside };
    struct Row {
        const char* name;
        std::vector<Act> acts; // before the roll-back
        const char* value;     // of the attribute a, which each write makes one higher
        bool canRedo;
    };
    const Row rows[] = {
        {"the frame just closed", {Frame, Close}, "1", false},
        {"a frame still open", {Frame}, "1", false},
        {"closed twice", {Frame, Close, Close}, "1", false},
        {"not the step before", {Frame, Close, Empty, Close}, "2", false},
        {"no frame at all", {Outside}, "2", false},
        {"a write after it", {Frame, Close, Outside}, "3", false},
        {"its input is over", {Frame, Close, Settle}, "2", false},
        {"an undone step comes back", {Outside, Undo, Frame, Close}, "1", true},
        {"after an undo", {Frame, Close, Undo}, "1", true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        OpenLine();
        for (const Act act : row.acts) {
            const std::string next = std::to_string(std::stoi(Value("a")) + 1);
            if (act == Frame || act == Empty)
                OpenFrame("edited");
            if (act == Frame || act == Outside)
                Set("a", next.c_str());
            if (act == Close)
                CloseFrame();
            if (act == Undo)
                Editing().Undo();
            if (act == Settle)
                Editing().Settle();
        }
        Rows().TakeHeard();
        RollBack();
        EXPECT_EQ(Value("a"), row.value);
        EXPECT_EQ(Steps().CanRedo(), row.canRedo);
        Rows().ExpectCurrent();
        RollBack();
        EXPECT_EQ(Value("a"), row.value) << "once";
    }
}

TEST_F(DocumentEditingTest, KnowsWhetherTheFileIsAsTheDocument) {
    OpenLine();
    EXPECT_TRUE(Steps().IsClean());
    Set("a", "2");
    EXPECT_FALSE(Steps().IsClean());
    Editing().MarkSaved();
    EXPECT_TRUE(At("Line").SetMemberEditable("a", false));
    EXPECT_TRUE(Steps().IsClean()) << "nothing of the file";
    Editing().Undo();
    Editing().Undo();
    EXPECT_FALSE(Steps().IsClean());
    Editing().Redo();
    EXPECT_TRUE(Steps().IsClean());
    Editing().Undo();
    OpenFrame("edited");
    Set("a", "3");
    EXPECT_FALSE(Steps().IsClean()) << "while the frame is open";
    CloseFrame();
    Editing().Undo();
    EXPECT_FALSE(Steps().IsClean()) << "the saved state cannot come back";
}

TEST_F(DocumentEditingTest, AFrameTellsAtItsEndAndTheGridKeepsItsNamesUntilThen) {
    Open("<LandXML><Line length='INF'/></LandXML>");
    OpenFrame("edited");
    EXPECT_TRUE(At("Line").SetMember("length", MakeValue(DT_String, "2")));
    EXPECT_THAT(Rows().TakeHeard(), IsEmpty());
    CloseFrame();
    EXPECT_THAT(Rows().TakeHeard(), ElementsAre("retype length"));
    Editing().Undo();
    EXPECT_THAT(Rows().TakeHeard(), ElementsAre("retype length"));
    Rows().ExpectCurrent();
}

TEST_F(DocumentEditingTest, AValueThatAGridSaidIsCorrected) {
    Open("<LandXML><Title>x</Title></LandXML>");
    IMemberDispatch& title = At("Title");
    const CVariantValue said = MakeValue(DT_String, " x ");
    OpenFrame("edited");
    Observer().OnChange(&title, nullptr, "text", said);
    EXPECT_TRUE(title.SetMember("text", said));
    CloseFrame();
    EXPECT_FALSE(Steps().CanUndo());
    Rows().ExpectCurrent();
}

TEST_F(DocumentEditingTest, TellsAllThatAnEditReaches) {
    constexpr const char* Railway =
        "<Alignment name='r'><Cant/></Alignment><Roadway name='s' alignmentRefs='r'><A sta='1'/></Roadway>";
    struct Row {
        const char* name;
        const char* xml;
        const char* path;
        const char* member;
        const char* text; // null: the attribute is removed
        const char* heard;
    };
    const Row rows[] = {
        {"a unit", "<Units><Metric linearUnit='meter'/></Units><Line length='1'/><Title a='1'/>",
         "Units/Metric", "linearUnit", "millimeter",
         "change linearUnit|rename length -> length [mm]|retype length [mm]|"},
        {"the unit of angles", "<Units><Metric angularUnit='grads'/></Units><Curve delta='100'/>",
         "Units/Metric", "angularUnit", "radians", "change angularUnit|change delta|"},
        {"a name and the numbers of its neighbors", "<b/><b name='x'/><b/><b name='x'/>", "b x", "name",
         nullptr, "rename b 2 -> b 3|rename b x -> b 2|rename b x (2) -> b x|remove name|"},
        {"what another attribute means",
         "<Units><Metric linearUnit='meter'/></Units><ZoneWidth startVertType='slope' startVertValue='2'/>",
         "ZoneWidth", "startVertType", "vertical distance", "change startVertType|retype startVertValue|"},
        {"a railway by its name", Railway, "Roadway s", "alignmentRefs", "q",
         "change alignmentRefs|retype sta|"},
        {"a railway that takes another name", Railway, "Alignment r", "name", "q",
         "rename Alignment r -> Alignment q|change name|retype sta|"},
        {"what stands beside an alignment", "<Alignment length='1'/>", "Alignment", "length", "2",
         "change length|present 2,00|"},
        {"a zone of a date", "<Monument date='2024-05-17'/>", "Monument", "date", "2024-05-17Z",
         "rename date -> date [Z]|"},
        {"one point of a terrain", "<Pnts><P id='1'>1 2</P><P id='1'>3 4</P></Pnts>", "Pnts", "P 1 (2)",
         "5 6", "change P 1 (2)|protect P 1 (2)|"},
        {"a wrong point of a terrain", "<Pnts><P id='1'>1 2</P><P id='1'>3 x</P></Pnts>", "Pnts",
         "P 1 [invalid]", "3 4", "rename P 1 [invalid] -> P 1 (2)|change P 1 (2)|protect P 1 (2)|"},
        {"a row of numbers out of a wrong text", "<Start>1</Start>", "Start", "text [invalid]", "1 2",
         "remove text [invalid]|insert northing|insert easting|"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string xml = "<LandXML>" + std::string(row.xml) + "</LandXML>";
        Open(xml);
        IMemberDispatch& object = At(row.path);
        if (row.text)
            EXPECT_TRUE(object.SetMember(row.member, MakeValue(DT_String, row.text)));
        else
            EXPECT_TRUE(object.RemoveMember(row.member));
        std::string heard;
        for (const std::string& line : Rows().TakeHeard())
            heard += line + "|";
        EXPECT_EQ(heard, row.heard);
        Rows().ExpectCurrent();
        const std::optional<ChangedMember> changed = Editing().Undo();
        ASSERT_TRUE(changed);
        EXPECT_EQ(&Document().ObjectOf(changed->owner), &object);
        EXPECT_EQ(changed->name, row.member);
        EXPECT_EQ(Text(), xml);
        Rows().ExpectCurrent();
        EXPECT_EQ(Editing().Redo()->name.empty(), row.text == nullptr) << "removed";
        Rows().ExpectCurrent();
    }
}

// A grid that ends its binding as soon as it hears something.
class LeavingSink final : public IObserverGridSink {
public:
    LeavingSink(EditObserver& observer, IMemberDispatch& disp, IObserverGridSink*& other)
        : m_observer(observer), m_disp(disp), m_other(other) {
        m_observer.AddSink(&m_disp, this);
    }
    void OnChange(const std::string&, const CVariantValue&) override {
        ++heard;
        m_observer.RemoveSink(&m_disp, this);
        m_observer.RemoveSink(&m_disp, m_other);
        throw Error("a grid fails");
    }
    void OnChangeIdent(const std::string&, const std::string&) override {}
    void OnChangeEditFlag(const std::string&, const bool&) override {}
    void OnOperationAdd(const std::string&, const CVariantValue&) override {}
    void OnOperationInsert(const unsigned long&, const std::string&, const CVariantValue&) override {}
    void OnOperationRemove(const std::string&, const CVariantValue&) override {}
    void OnOperationRename(const std::string&, const std::string&) override {}
    void OnOperationChangeType(const std::string&, EDataTyps, const CVariantValue&) override {}
    void OnOperationChangeTupelPresentation(const std::string&) override {}
    int heard = 0;

private:
    EditObserver& m_observer;
    IMemberDispatch& m_disp;
    IObserverGridSink*& m_other;
};

TEST_F(DocumentEditingTest, SurvivesGridsThatLeaveAndFailWhileTheyAreTold) {
    OpenLine();
    IMemberDispatch& line = At("Line");
    IObserverGridSink* firstsOther = nullptr;
    IObserverGridSink* secondsOther = nullptr;
    LeavingSink first(Observer(), line, firstsOther);
    LeavingSink second(Observer(), line, secondsOther);
    firstsOther = &second;
    secondsOther = &first;
    EXPECT_EQ(RefusalOf([&] { line.SetMember("a", MakeValue(DT_String, "x")); }), "a grid fails");
    EXPECT_EQ(first.heard + second.heard, 1) << "the other one has left before its turn";
    EXPECT_EQ(Value("a"), "x");
    Rows().ExpectCurrent();
    Editing().Undo();
    EXPECT_EQ(Value("a"), "1");
    Rows().ExpectCurrent();
}

TEST(Renames, NoNameIsGivenThatAnotherStillHas) {
    using List = std::vector<NameChange>;
    const std::pair<List, List> rows[] = {
        {{{"2", "3"}, {"3", "4"}}, {{"3", "4"}, {"2", "3"}}},
        {{{"3", "2"}, {"4", "3"}}, {{"3", "2"}, {"4", "3"}}},
        {{{"a", "b"}, {"b", "a"}, {"c", "d"}}, {{"a", "a~"}, {"b", "a"}, {"a~", "b"}, {"c", "d"}}},
        {{{"a", "b"}, {"b", "c"}, {"c", "a"}}, {{"a", "a~"}, {"c", "a"}, {"b", "c"}, {"a~", "b"}}},
    };
    for (const auto& [renames, ordered] : rows)
        EXPECT_EQ(InOrder(renames), ordered);
}

} // namespace
} // namespace korvel::inspector

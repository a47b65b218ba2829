#include "host/edited_document.h"
#include "korvel/platform/code_page.h"
#include "support/make_value.h"

#include <pugixml.hpp>
#include <random>

namespace korvel::inspector {
namespace {

constexpr const char* Source =
    "<?xml version='1.0'?>\r\n<!-- c -->\r\n<LandXML xmlns:o='urn:o' xmlns:p='urn:p' version = \"1.2\">\r\n"
    "  <Units><Metric linearUnit='meter' angularUnit='grads' directionUnit='decimal dd.mm.ss'/></Units>\r\n"
    "  <Alignments><Alignment name='r1' length='1.50' staStart='10'><Cant name='c'/><Line dir='45.3025'/>"
    "<Line length=\"2\"/></Alignment><Alignment name='r1' length='3'/><Alignment name='r1 "
    "(2)'/></Alignments>\r\n"
    "  <Roadway name='w' alignmentRefs='q'><A sta='5' date='2018-00-00'/></Roadway>\r\n"
    "  <b id='2'/><b/><b o:x='1&amp;2'  name = 'x'/><b name='x'/>\r\n"
    "  <ZoneWidth startVertType='slope' startVertValue='2' readOnly='0'/>\r\n"
    "  <Start>1.0 2.0</Start><Title>t<b/>u &lt; v</Title><Pnts><P id='1'>1 2</P><P id='1'>3 x</P></Pnts>\r\n"
    "</LandXML>\r\n";

constexpr unsigned KeepAll = pugi::parse_full | pugi::parse_ws_pcdata;

// The same edits on a document of another kind, one text for each step.
class PlainModel {
public:
    explicit PlainModel(const std::string& text) : m_texts{text} { Load(text); }

    pugi::xml_node Element(ElementIndex index) {
        struct Finder : pugi::xml_tree_walker {
            bool for_each(pugi::xml_node& node) override {
                if (node.type() != pugi::node_element || left-- != 0)
                    return true;
                found = node;
                return false;
            }
            ElementIndex left = 0;
            pugi::xml_node found;
        } finder;
        finder.left = index;
        m_document.traverse(finder);
        return finder.found;
    }

    // The document has this text after what was done to the model.
    void Follow(const std::string& text) {
        EXPECT_EQ(Plain(m_document), PlainOf(text));
        if (text != m_texts[m_position]) {
            m_texts.resize(m_position + 1);
            m_texts.push_back(text);
            ++m_position;
        }
        Load(text);
    }
    bool CanMove(int by) const { return by < 0 ? m_position > 0 : m_position + 1 < m_texts.size(); }
    const std::string& Move(int by) {
        m_position += static_cast<std::size_t>(by);
        Load(m_texts[m_position]);
        return m_texts[m_position];
    }

private:
    static std::string Plain(const pugi::xml_document& document) {
        std::ostringstream out;
        document.save(out, "", pugi::format_raw);
        return out.str();
    }
    static std::string PlainOf(const std::string& text) {
        pugi::xml_document document;
        EXPECT_TRUE(document.load_string(text.c_str(), KeepAll));
        return Plain(document);
    }
    void Load(const std::string& text) { EXPECT_TRUE(m_document.load_string(text.c_str(), KeepAll)); }

    pugi::xml_document m_document;
    std::vector<std::string> m_texts;
    std::size_t m_position = 0;
};

class RandomEditsTest : public EditedDocumentTest {
protected:
    template <class Items>
    const auto& OneOf(const Items& items) {
        return *std::next(std::begin(items), static_cast<long>(m_random() % std::size(items)));
    }

    ElementObject& AnyObject() {
        std::vector<ElementObject*> objects;
        for (ElementIndex element = 0; element < Document().Tree().Count(); ++element)
            if (ElementObject* object = Document().FindObject(element))
                objects.push_back(object);
        return *OneOf(objects);
    }

    bool Edit(PlainModel& model);
    void ExpectLikeReopened();

    std::mt19937 m_random;

private:
    bool EditText(PlainModel& model);
};

constexpr const char* Values[] = {"1",       "2.50",       "x y",         "slope", "INF",  "millimeter",
                                  "meter",   "q r1",       "r1",          "0",     "true", "",
                                  "&<'\"\t", "2024-05-17", "2024-05-17Z", "grads", "x",    "2",
                                  "radians", "-3.25",      "\x81\xE1\xF3"};
constexpr const char* Names[] = {"name",     "id",           "length", "desc",   "o:x", "p:x",
                                 "staStart", "alignmentRef", "b",      "Line 1", "dir", "b (2)"};

// False where the document refuses; then the model stays as it is, too.
bool RandomEditsTest::Edit(PlainModel& model) {
    if (m_random() % 6 == 0)
        return EditText(model);
    ElementObject& object = AnyObject();
    pugi::xml_node node = model.Element(object.Element());
    const std::string value = OneOf(Values);
    const std::string newName = OneOf(Names);
    const std::string utf8 = platform::ToUtf8(value);
    const std::vector<XmlAttribute> attributes = Document().Tree().Attributes(object.Element());
    const unsigned act = m_random() % 8;
    if (attributes.empty() || act == 0) {
        if (!object.AddMember(newName, true, MakeValue(DT_String, value)))
            return false;
        return node.append_attribute(newName.c_str()).set_value(utf8.c_str());
    }
    const auto index = static_cast<std::size_t>(m_random() % attributes.size());
    const std::string shown = Document().NamesOf(object.Element()).NameAt(index);
    const std::string name(attributes[index].name);
    pugi::xml_attribute attribute = node.attribute(name.c_str());
    if (act == 1)
        return object.RemoveMember(shown) && node.remove_attribute(attribute);
    if (act == 2)
        return object.RenameMember(shown, newName) && attribute.set_name(newName.c_str());
    CVariantValue written = MakeValue(DT_String, value);
    CVariantValue current;
    EXPECT_TRUE(object.GetMember(shown, current));
    if (current.Type == DT_LengthDouble && act == 3) {
        written = MakeValue(DT_LengthDouble, 4.125);
        return object.SetMember(shown, written) && attribute.set_value("4.125");
    }
    return object.SetMember(shown, written) && attribute.set_value(utf8.c_str());
}

bool RandomEditsTest::EditText(PlainModel& model) {
    const std::string number = std::to_string(m_random() % 4);
    const ElementTree& tree = Document().Tree();
    for (ElementIndex element = m_random() % tree.Count(); element < tree.Count(); ++element) {
        if (tree.Texts(element).size() != 1 || tree.HasChildren(element))
            continue;
        const bool isChild = Document().Members().IsTextElement(element);
        const ElementIndex owner = isChild ? tree.Parent(element) : element;
        const UniqueMemberNames& names = Document().NamesOf(owner);
        const std::string name = isChild ? names.NameOfChild(element) : names.NameAt(names.Count() - 1);
        const bool isPart = tree.LocalName(element) == "Start";
        const std::string text = isPart ? number + ".5" : number + " 2";
        const std::string whole = isPart ? "1.0 " + text : text;
        return Document().ObjectOf(owner).SetMember(name, MakeValue(DT_String, text)) &&
               model.Element(element).text().set(whole.c_str());
    }
    return false;
}

// What is remembered of names, units and railways has followed the edits.
void RandomEditsTest::ExpectLikeReopened() {
    platform::ScratchFolder folder;
    const std::string path = folder.Path() / "reopened.xml";
    std::ofstream(path, std::ios::binary) << Text();
    LandXmlDocument reopened(path, {});
    ASSERT_EQ(reopened.Tree().Count(), Document().Tree().Count());
    for (ElementIndex element = 0; element < reopened.Tree().Count(); ++element) {
        ElementObject* object = Document().FindObject(element);
        if (!object)
            continue;
        ElementObject& expected = reopened.ObjectOf(element);
        EXPECT_EQ(object->GetIdent(), expected.GetIdent());
        std::list<std::string> names;
        expected.GetMemberNames(names);
        std::list<std::string> own;
        object->GetMemberNames(own);
        ASSERT_EQ(own, names);
        for (const std::string& name : names) {
            CVariantValue value;
            CVariantValue wanted;
            ASSERT_TRUE(object->GetMember(name, value) && expected.GetMember(name, wanted)) << name;
            EXPECT_TRUE(value == wanted) << name << ' ' << value.ToText() << ' ' << wanted.ToText();
        }
    }
}

TEST_F(RandomEditsTest, AgreeWithAPlainModelAndAFileReadAnew) {
    constexpr unsigned Runs = 3;
    constexpr int Acts = 150;
    for (unsigned run = 0; run < Runs; ++run) {
        m_random.seed(run);
        Open(Source);
        PlainModel model(Source);
        int edits = 0;
        for (int act = 0; act < Acts; ++act) {
            SCOPED_TRACE("run " + std::to_string(run) + ", act " + std::to_string(act));
            const std::string before = Text();
            const unsigned kind = m_random() % 10;
            if (kind < 2) {
                const int by = kind == 0 ? -1 : 1;
                EXPECT_EQ(by < 0 ? Editing().Steps().CanUndo() : Editing().Steps().CanRedo(),
                          model.CanMove(by));
                if (model.CanMove(by)) {
                    by < 0 ? Editing().Undo() : Editing().Redo();
                    EXPECT_EQ(Text(), model.Move(by));
                }
            } else {
                const bool isFramed = kind > 5;
                if (isFramed)
                    OpenFrame("edit");
                bool isDone = false;
                const std::string refusal = RefusalOf([&] { isDone = Edit(model); });
                if (isFramed)
                    CloseFrame();
                edits += isDone;
                if (!isDone) {
                    EXPECT_EQ(Text(), before) << refusal;
                } else if (isFramed && kind == 9) {
                    RollBack();
                    EXPECT_EQ(Text(), before);
                    model.Move(0);
                } else {
                    model.Follow(Text());
                }
            }
            ASSERT_NO_FATAL_FAILURE(Rows().ExpectCurrent());
            ExpectLikeReopened();
            if (HasFailure())
                return;
        }
        EXPECT_GT(edits, Acts / 4);
        while (Editing().Steps().CanUndo())
            Editing().Undo();
        EXPECT_EQ(Text(), Source);
        Rows().ExpectCurrent();
    }
}

} // namespace
} // namespace korvel::inspector

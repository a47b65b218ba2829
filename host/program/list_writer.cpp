#include "program/list_writer.h"

#include "korvel/platform/code_page.h"

#include <algorithm>
#include <string>
#include <vector>

namespace korvel::inspector {
namespace {

std::string OneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < ' '; }, ' ');
    return platform::ToUtf8(text);
}

class ListWriter {
public:
    ListWriter(std::ostream& out, const std::function<void(IMemberDispatch&)>& onWritten)
        : m_out(out), m_onWritten(onWritten) {}

    void Write(IMemberDispatch& object) {
        m_open.push_back(&object);
        std::list<std::string> names;
        object.GetMemberNames(names);
        if (!(object.GetOptions() & DO_KeepOrder))
            names.sort();
        for (const std::string& name : names)
            WriteMember(object, name);
        m_open.pop_back();
    }

private:
    void WriteMember(IMemberDispatch& object, const std::string& name) {
        CVariantValue value;
        object.GetMember(name, value);
        const std::string text =
            value.Type == DT_Void ? std::string() : value.ToText(TextForm::WithAngleUnit);
        m_out << std::string((m_open.size() - 1) * 2, ' ') << OneLine(name) << '\t' << OneLine(text) << '\n';
        if (value.Type != DT_Group || value.Value.Dispatch == nullptr)
            return;
        if (std::find(m_open.begin(), m_open.end(), value.Value.Dispatch) != m_open.end())
            return;
        Write(*value.Value.Dispatch);
        if (m_onWritten)
            m_onWritten(*value.Value.Dispatch);
    }

    std::ostream& m_out;
    const std::function<void(IMemberDispatch&)>& m_onWritten;
    std::vector<IMemberDispatch*> m_open; // from the root to the object whose members are written
};

} // namespace

void WriteList(IMemberDispatch& root, std::ostream& out,
               const std::function<void(IMemberDispatch&)>& onWritten) {
    ListWriter(out, onWritten).Write(root);
}

} // namespace korvel::inspector

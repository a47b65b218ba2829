#pragma once

#include "korvel/values/data_types.h"
#include "source/element_tree.h"

#include <map>
#include <optional>
#include <string>

namespace korvel::inspector {

class LandXmlEnumeration;

/// What the user made of a member for this run, which the file does not hold.
struct MemberSession {
    std::optional<EDataTyps> type;       ///< it is shown as this type
    LandXmlEnumeration* words = nullptr; ///< those that it is one of, for DT_ListString
    bool isProtected = false;

    bool operator==(const MemberSession&) const = default;
};

/// Of the members of one element, by MemberAddress::key.
using MemberSessions = std::map<std::string, MemberSession>;

/// Where a member is, whatever it is called: the element whose start tag or text holds it, and which
/// attribute or text of it.
struct MemberAddress {
    ElementIndex element;
    std::string key; ///< "length" for an attribute, "#1" for a part of a text, "@17" for a text
};

/// One write to a document: how the start tag or the text of an element was and is. Putting one of both back
/// is undo and redo.
struct DocumentChange {
    enum class Kind { Edit, Add, Remove, Rename, Retype, Protect };
    struct State {
        std::string written; ///< the start tag, or the text as in TextSource
        MemberSessions sessions;

        bool operator==(const State&) const = default;
    };

    Kind kind;
    std::string member; ///< its name, in the code page of the library's texts
    ElementIndex element;
    std::optional<std::size_t> text; ///< its offset; nothing: the start tag
    State before;
    State after;

    bool IsInFile() const { return before.written != after.written; }
};

/// Hears of each write, also when it is undone. Names, types and values are the former ones in OnChanging and
/// the new ones in OnChanged.
class DocumentListener {
public:
    virtual void OnChanging(const DocumentChange& change) = 0;
    virtual void OnChanged(const DocumentChange& change) = 0;

protected:
    ~DocumentListener() = default;
};

} // namespace korvel::inspector

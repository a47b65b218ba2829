#pragma once

#include "korvel/values/member_dispatch.h"
#include "source/element_tree.h"

#include <cstdint>
#include <list>
#include <string>

namespace korvel::inspector {

/// What a program adds to the elements of a document: commands for their context menu, and an object as their
/// last member that is no part of the file, is never saved and no step of undo. Set by
/// LandXmlDocument::SetExtras.
class ElementExtras {
public:
    /// Append the commands of an element, and those of a member of it.
    virtual void ListCommands(ElementIndex element, std::list<SCommand>& commands) = 0;
    virtual void ListMemberCommands(ElementIndex owner, const std::string& name,
                                    std::list<SCommand>& commands) = 0;
    /// Run one of them by its id; false for an id that is none of them.
    virtual bool Run(ElementIndex element, std::uint32_t id) = 0;
    virtual bool RunOnMember(ElementIndex owner, const std::string& name, std::uint32_t id) = 0;

    /// The added object of an element, or null. It has one name in all elements, which begins with '[', as no
    /// name of LandXML does.
    virtual IMemberDispatch* AddedTo(ElementIndex element) = 0;
    virtual std::string NameOfAdded() const = 0;
    virtual void RemoveAdded(ElementIndex element) = 0;

protected:
    ~ElementExtras() = default;
};

} // namespace korvel::inspector

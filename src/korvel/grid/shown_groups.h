#pragma once

#include "korvel/grid/attribute_tree.h"
#include "korvel/platform/first_failure.h"

#include <list>
#include <map>
#include <memory>

namespace korvel::internal {

/// The nested objects that are shown, each with its row and with the sink that the observer was given. An
/// object in several rows is known by the first. The observer may be null, and may come back from every call.
class ShownGroups {
public:
    using CTreeItem = grid::CTreeItem;

    ShownGroups(AttributeTree& tree, IObserverGrid* observer) : m_tree(tree), m_observer(observer) {}

    bool IsEmpty() const { return m_groups.empty(); }
    /// Null when the object is not shown.
    CTreeItem* RowOf(IMemberDispatch* disp) const;

    /// Enters an object, unless it is there, and gives the observer its sink. After an exception the object
    /// is entered, and goes with its row.
    void Enter(IMemberDispatch& disp, CTreeItem& row);
    /// Gives the observer the sink of an object again; false when the object is not shown.
    bool TellAgain(IMemberDispatch* disp);
    /// The same for all of them, in the order of their addresses.
    void TellAllAgain();

    class Leaving;
    // These allocate nothing.
    Leaving LeaveNone() const;
    /// In the order of their addresses.
    Leaving LeaveAll();
    /// Takes an object that is shown out, after those that are leaving already.
    void Leave(IMemberDispatch* disp, Leaving& leaving);

private:
    struct Group {
        IMemberDispatch* disp;
        CTreeItem* row;
        std::unique_ptr<IObserverGridSink> sink;
    };
    using Groups = std::list<Group>;

    AttributeTree& m_tree;
    IObserverGrid* m_observer;
    Groups m_groups;
    std::map<IMemberDispatch*, Groups::iterator> m_places;
};

/// Objects that are shown no longer: their sinks live until the observer has let go of them.
class ShownGroups::Leaving {
public:
    /// Takes the sinks back from the observer, every one of them whatever it throws.
    void TakeBack(FirstFailure& failure);

private:
    friend class ShownGroups;
    explicit Leaving(IObserverGrid* observer) : m_observer(observer) {}

    IObserverGrid* m_observer;
    Groups m_groups;
};

} // namespace korvel::internal

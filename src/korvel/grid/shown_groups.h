#pragma once

#include "korvel/grid/attribute_tree.h"
#include "korvel/window/base/first_failure.h"

#include <map>
#include <memory>
#include <vector>

namespace korvel::internal {

/// The nested objects that are shown, each with its row and with the sink that the observer was given. An
/// object in several rows is known by the first. The observer may be null, may come back from every call, and
/// hears of objects in the order of their addresses.
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
    void TellAllAgain();

    /// Takes out the objects whose rows are among `rows`, in that order; to be told by TakeBack.
    class Leaving;
    Leaving Leave(const std::vector<CTreeItem*>& rows);
    Leaving LeaveAll();

private:
    struct Group {
        std::unique_ptr<IObserverGridSink> sink;
        CTreeItem* row;
    };
    using Groups = std::map<IMemberDispatch*, Group>;

    AttributeTree& m_tree;
    IObserverGrid* m_observer;
    Groups m_groups;
};

/// Objects that are shown no longer: their sinks live until the observer has let go of them.
class ShownGroups::Leaving {
public:
    std::vector<IMemberDispatch*> GetObjects() const;
    /// Takes the sinks back from the observer, every one of them whatever it throws.
    void TakeBack(FirstFailure& failure);

private:
    friend class ShownGroups;
    explicit Leaving(IObserverGrid* observer) : m_observer(observer) {}

    IObserverGrid* m_observer;
    std::vector<Groups::node_type> m_groups;
};

} // namespace korvel::internal

#pragma once

#include "korvel/grid/attribute_tree.h"
#include "korvel/platform/first_failure.h"

#include <list>
#include <map>
#include <memory>

namespace korvel::internal {

/// The objects whose members are shown: the root, and nested ones, each with its row and with the sink that
/// the observer was given. An object in several rows is known by the first. The observer may be null, and may
/// come back from every call.
class ShownObjects {
public:
    using CTreeItem = grid::CTreeItem;

    ShownObjects(AttributeTree& tree, IObserverGrid* observer)
        : m_tree(tree), m_observer(observer), m_rootSink(tree.MakeSink(nullptr)) {}

    /// Null also while nothing is shown.
    IMemberDispatch* Root() const { return m_root; }
    /// The row of a nested object, or null.
    CTreeItem* RowOf(IMemberDispatch* disp) const;
    bool HasNested() const { return !m_groups.empty(); }
    /// Whether an object is shown, and the row whose children its members are (null for the root).
    struct Place {
        bool isShown;
        CTreeItem* row;
    };
    Place PlaceOf(IMemberDispatch* disp) const;

    void EnterRoot(IMemberDispatch* root) { m_root = root; }
    /// Gives the observer the sink of the root, also of a null one.
    void TellRoot();
    /// Enters a nested object, unless it is there, and gives the observer its sink. After an exception the
    /// object is entered, and goes with its row.
    void Enter(IMemberDispatch& disp, CTreeItem& row);
    /// Gives the observer the sink of a nested object again; false when the object is not shown.
    bool TellAgain(IMemberDispatch* disp);
    /// The same for all of them, in the order of their addresses.
    void TellAllAgain();
    /// Tells the observer of an object that has no sink.
    void TellWithoutSink(IMemberDispatch& disp);

    class Leaving;
    // These allocate nothing.
    Leaving LeaveNone() const;
    /// The nested ones in the order of their addresses, then the root.
    Leaving LeaveAll();
    /// Takes a nested object that is shown out, after those that are leaving already.
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
    const std::unique_ptr<IObserverGridSink> m_rootSink;
    IMemberDispatch* m_root = nullptr;
    bool m_isRootTold = false;
    Groups m_groups;
    std::map<IMemberDispatch*, Groups::iterator> m_places;
};

/// Objects that are shown no longer: their sinks live until the observer has let go of them.
class ShownObjects::Leaving {
public:
    /// Takes the sinks back from the observer, every one of them whatever it throws.
    void TakeBack(FirstFailure& failure);

private:
    friend class ShownObjects;
    explicit Leaving(IObserverGrid* observer) : m_observer(observer) {}

    IObserverGrid* m_observer;
    Groups m_groups;
    IMemberDispatch* m_root = nullptr;
    IObserverGridSink* m_rootSink = nullptr;
    bool m_isRootLeaving = false; // and the observer was told of it
};

} // namespace korvel::internal

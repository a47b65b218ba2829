#pragma once

#include "korvel/window/base/types.h"

#include <QAccessible>
#include <QPointer>
#include <QString>
#include <functional>
#include <vector>

namespace korvel::internal {

class ListSurface;

/// Tells screen readers what happens to the cell of a list, or the painted field, that the user is in: that it is
/// another cell, and what it says now. Once a turn of the event loop at most, however much changed; about others
/// nothing. While the user is in a control over the list, that one has the focus and tells of itself.
class Announcer {
public:
    /// A list in which the user may be, until it is gone.
    void Add(ListSurface& list);
    /// Something changed that may concern the cell. Costs next to nothing while nobody listens.
    void Note();

    /// Who hears the announcements in place of the desktop, for tests; empty: the desktop.
    using Listener = std::function<void(QAccessibleEvent& event)>;
    static void SetListener(Listener listener);

private:
    /// What was last said of a cell or field.
    struct Told {
        QAccessible::Id cell = 0; // 0: of none
        bool isField = false;     // whose focus Qt has told of
        QString name;
        QString description;
        QAccessible::State state;
    };

    void Tell();
    ListSurface* ListOfUser();
    Told ReadPlaceOfUser();
    static void Announce(const Told& before, const Told& now);

    std::vector<QPointer<ListSurface>> m_lists;
    Told m_told;
    bool m_isPending = false;
    QObject m_context; // of the call that is pending
};

} // namespace korvel::internal

#pragma once

#include <functional>
#include <string>

class QMenu;

namespace korvel::inspector {

/// The menu of the files that were opened last, as the settings hold them when the menu around it is shown. A
/// file that has gone leaves the list when it is chosen.
class RecentMenu {
public:
    /// Adds itself to `menu`. `open` opens a file; false when it was tried and failed.
    RecentMenu(QMenu& menu, std::function<bool(const std::string& path)> open);

private:
    void List();
    void Open(const std::string& path) const;

    const std::function<bool(const std::string& path)> m_open;
    QMenu* m_menu;
};

} // namespace korvel::inspector

#include "editing/renames.h"

#include <cstddef>
#include <unordered_map>

namespace korvel::inspector {
namespace {

class RenameOrder {
public:
    explicit RenameOrder(std::vector<NameChange> renames) : m_renames(std::move(renames)) {
        for (std::size_t i = 0; i < m_renames.size(); ++i)
            m_holders.emplace(m_renames[i].first, i);
    }

    std::vector<NameChange> Make() {
        for (std::size_t i = 0; i < m_renames.size(); ++i)
            if (m_holders.contains(m_renames[i].first))
                Resolve(i);
        return std::move(m_ordered);
    }

private:
    // Follows those that are in the way until one is free, and comes back from there.
    void Resolve(std::size_t first) {
        std::vector<std::size_t> waiting;
        for (std::size_t i = first;;) {
            waiting.push_back(i);
            const auto holder = m_holders.find(m_renames[i].second);
            if (holder == m_holders.end())
                break;
            i = holder->second;
            if (i == first) { // a ring: nothing before it leads into one, as each name has one holder
                StepAside(first);
                break;
            }
        }
        for (; !waiting.empty(); waiting.pop_back()) {
            m_holders.erase(m_renames[waiting.back()].first);
            m_ordered.push_back(m_renames[waiting.back()]);
        }
    }

    void StepAside(std::size_t index) {
        std::string aside = m_renames[index].first;
        do
            aside += '~';
        while (m_holders.contains(aside));
        m_holders.erase(m_renames[index].first);
        m_ordered.emplace_back(m_renames[index].first, aside);
        m_renames[index].first = aside;
    }

    std::vector<NameChange> m_renames;
    std::vector<NameChange> m_ordered;
    std::unordered_map<std::string, std::size_t> m_holders; // of the names that are still in use
};

} // namespace

std::vector<NameChange> InOrder(std::vector<NameChange> renames) {
    return RenameOrder(std::move(renames)).Make();
}

} // namespace korvel::inspector

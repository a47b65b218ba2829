#pragma once

#include "source/element_tree.h"

#include <algorithm>
#include <cstdint>
#include <deque>

namespace korvel::inspector {

/// Finds which of some elements is the innermost around another one, at a cost that does not depend on the
/// elements between. Scopes are numbered in the order of their addition.
class ScopeIndex {
public:
    static constexpr std::uint32_t None = 0xFFFFFFFF;

    /// Adds the elements from `begin` to before `end`; begins must rise.
    void Add(ElementIndex begin, ElementIndex end) {
        std::uint32_t outer = m_scopes.empty() ? None : static_cast<std::uint32_t>(m_scopes.size() - 1);
        while (outer != None && m_scopes[outer].end <= begin)
            outer = m_scopes[outer].outer;
        m_scopes.push_back({begin, end, outer});
    }

    /// The innermost scope that holds an element; None when none does.
    std::uint32_t Innermost(ElementIndex element) const {
        const auto next =
            std::upper_bound(m_scopes.begin(), m_scopes.end(), element,
                             [](ElementIndex e, const Scope& scope) { return e < scope.begin; });
        auto scope =
            next == m_scopes.begin() ? None : static_cast<std::uint32_t>(next - m_scopes.begin() - 1);
        while (scope != None && m_scopes[scope].end <= element)
            scope = m_scopes[scope].outer;
        return scope;
    }

private:
    struct Scope {
        ElementIndex begin;
        ElementIndex end;
        std::uint32_t outer;
    };
    std::deque<Scope> m_scopes; // a vector that grows takes twice its memory
};

} // namespace korvel::inspector

#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>

namespace korvel::inspector {

/// The number of an element in document order; the root is 0.
using ElementIndex = std::uint32_t;

/// Finds which of some elements is the innermost around another one, at a cost that depends neither on the
/// depth of the document nor on the elements between. Scopes are numbered in the order of their addition.
class ScopeIndex {
public:
    static constexpr std::uint32_t None = 0xFFFFFFFF;

    /// Adds the elements from `begin` to before `end`; begins must rise.
    void Add(ElementIndex begin, ElementIndex end) {
        std::uint32_t outer = Count() == 0 ? None : Count() - 1;
        while (outer != None && m_scopes[outer].end <= begin)
            outer = m_scopes[outer].outer;
        m_scopes.push_back({begin, end, outer});
    }

    std::uint32_t Count() const { return static_cast<std::uint32_t>(m_scopes.size()); }
    ElementIndex Begin(std::uint32_t scope) const { return m_scopes[scope].begin; }

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

    /// The next scope around one.
    std::uint32_t Outer(std::uint32_t scope) const { return m_scopes[scope].outer; }

private:
    struct Scope {
        ElementIndex begin;
        ElementIndex end;
        std::uint32_t outer;
    };
    std::deque<Scope> m_scopes; // a vector that grows takes twice its memory
};

} // namespace korvel::inspector

#pragma once

#include <cstdint>

namespace korvel {

/// What the values of a code list are; it decides the words of its second column.
struct CodeType {
    enum Enum : std::int32_t {
        Epsg = 0,  ///< numbers of coordinate reference systems
        Height = 1 ///< heights that are added
    };
};

/// What a code list is shown for.
struct SelectionMode {
    enum Enum : std::int32_t {
        Single = 0,  ///< to pick one pair; the order cannot be changed
        Multiple = 1 ///< to edit the whole list
    };
};

} // namespace korvel

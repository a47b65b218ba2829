#pragma once

namespace korvel {

/// How a CComboList is used.
enum EComboListMode {
    eDesignFlat, ///< part of a dialog; entries can be added, renamed and removed; names stay flat
    eDesignTree, ///< the same; names are split into a tree where the enumeration asks for it
    eDropDown,   ///< drops down under a field; has no context menu
};

} // namespace korvel

#pragma once

#include "korvel/platform/export.h"

#include <stdexcept>

namespace korvel {

/// Thrown when a value has no reading of the wanted kind; `what()` names the conversion that was tried.
class KORVEL_API invalid_operation : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

} // namespace korvel

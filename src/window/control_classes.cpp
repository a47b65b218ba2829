#include "window/window_record.h"

namespace korvel::internal {

void RegisterControlClasses() {}

} // namespace korvel::internal

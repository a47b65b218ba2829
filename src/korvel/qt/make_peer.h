#pragma once

#include "korvel/window/base/types.h"

namespace korvel::internal {

struct PeerContext;

/// Makes the peer that fits the kind of a window, inside the peer of its parent. A child window of a
/// window that is not shown gets none.
void MakePeer(PeerContext& context, HWND window);

} // namespace korvel::internal

#pragma once

#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/focus.h"

namespace korvel::internal {

/// Runs `question(IDisplay&)`, which shows a box or a chooser, on the display's thread and returns its
/// result. The focus leaves meanwhile and comes back.
template <class Question>
auto AskUser(Question&& question) {
    return OnDisplayThread([&](IDisplay& display) {
        decltype(question(display)) answer{};
        LendFocusToBox([&] { answer = question(display); });
        return answer;
    });
}

} // namespace korvel::internal

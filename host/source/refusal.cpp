#include "source/refusal.h"

#include "korvel/platform/code_page.h"
#include "korvel/platform/error.h"

namespace korvel::inspector {

void Refuse(const Message& reason) {
    throw Error(platform::FromUtf8(Say(reason)).text);
}

} // namespace korvel::inspector

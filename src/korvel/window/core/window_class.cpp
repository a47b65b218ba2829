#include "korvel/window/core/window_class.h"

#include "korvel/window/base/name_compare.h"
#include "korvel/window/core/window.h"

#include <map>
#include <mutex>

namespace korvel {

using namespace internal;

namespace {

struct Classes {
    std::mutex mutex;
    std::map<std::string, WindowClass, NameLess> byName;
};

Classes& TheClasses() {
    static auto& classes = *new Classes;
    return classes;
}

[[maybe_unused]] const bool Registered = RegisterWindowClass({"KorvelFrame", DefWindowProcA});

} // namespace

void RegisterClassA(const char* className, WNDPROC procedure) {
    if (className && procedure)
        RegisterWindowClass({className, procedure});
}

namespace internal {

bool RegisterWindowClass(WindowClass windowClass) {
    const std::lock_guard lock(TheClasses().mutex);
    std::string name = windowClass.name;
    TheClasses().byName.insert_or_assign(std::move(name), std::move(windowClass));
    return true;
}

std::optional<WindowClass> FindWindowClass(std::string_view name) {
    const std::lock_guard lock(TheClasses().mutex);
    const auto found = TheClasses().byName.find(name);
    return found == TheClasses().byName.end() ? std::nullopt : std::optional(found->second);
}

} // namespace internal
} // namespace korvel

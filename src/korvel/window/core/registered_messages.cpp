#include "korvel/window/core/registered_messages.h"

#include "korvel/window/base/name_compare.h"
#include "korvel/window/core/window.h"

#include <map>
#include <mutex>
#include <string>

namespace korvel {
namespace {

constexpr UINT FirstRegistered = 0xC000;
constexpr UINT LastRegistered = 0xFFFF;

struct MessageNames {
    std::mutex mutex;
    std::map<std::string, UINT, internal::NameLess> numbers;
};

MessageNames& Names() {
    static MessageNames names;
    return names;
}

} // namespace

UINT RegisterWindowMessageA(const char* name) {
    if (!name || !*name)
        return 0;
    const std::lock_guard lock(Names().mutex);
    auto& numbers = Names().numbers;
    if (const auto known = numbers.find(name); known != numbers.end())
        return known->second;
    const std::size_t number = FirstRegistered + numbers.size();
    if (number > LastRegistered)
        return 0;
    return numbers.emplace(name, static_cast<UINT>(number)).first->second;
}

const UINT WM_DLG_STATE = RegisterWindowMessageA("WM_DLG_STATE");
const UINT WM_DLG_STATE_REGISTRY = RegisterWindowMessageA("WM_DLG_STATE_REGISTRY");
const UINT WM_SHOW_SETTINGS = RegisterWindowMessageA("WM_SHOW_SETTINGS");
const UINT WM_DTM_COLOR_DIRTY = RegisterWindowMessageA("WM_DTM_COLOR_DIRTY");
const UINT WM_OPENGLSINK_NOTIFICATION = RegisterWindowMessageA("WM_OPENGLSINK_NOTIFICATION");
const UINT WM_HISTORY = RegisterWindowMessageA("WM_HISTORY");
const UINT WM_HISTORY_ROLLBACK = RegisterWindowMessageA("WM_HISTORY_ROLLBACK");
const UINT WM_GET_IMAGEINDEX = RegisterWindowMessageA("WM_GET_IMAGEINDEX");

} // namespace korvel

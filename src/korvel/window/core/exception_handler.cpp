#include "korvel/window/core/exception_handler.h"

#include <mutex>
#include <utility>

namespace korvel {
namespace {

struct HandlerHolder {
    std::mutex mutex;
    ExceptionHandler handler;
};

HandlerHolder& Holder() {
    static auto& holder = *new HandlerHolder; // windows may still end while the process does
    return holder;
}

} // namespace

void SetExceptionHandler(ExceptionHandler handler) {
    const std::lock_guard lock(Holder().mutex);
    Holder().handler = std::move(handler);
}

ExceptionHandler GetExceptionHandler() {
    const std::lock_guard lock(Holder().mutex);
    return Holder().handler;
}

} // namespace korvel

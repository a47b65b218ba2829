#include "korvel/window/core/uncaught.h"

#include "korvel/window/core/display.h"
#include "korvel/window/core/window.h"

#include <exception>
#include <mutex>

namespace korvel {
namespace {

using Handler = std::function<void(const CString&)>;

struct HandlerHolder {
    std::mutex mutex;
    Handler handler;
};

HandlerHolder& Holder() {
    static auto& holder = *new HandlerHolder; // windows may still end while the process does
    return holder;
}

Handler CurrentHandler() {
    const std::lock_guard lock(Holder().mutex);
    return Holder().handler;
}

CString TextOf(const std::exception_ptr& exception) {
    try {
        std::rethrow_exception(exception);
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return "Unknown failure";
    }
}

// A window that throws whenever it is painted would put a box on the box.
void ShowBox(const CString& text) {
    static thread_local bool showing = false;
    if (showing)
        return;
    struct Showing {
        Showing() { showing = true; }
        ~Showing() { showing = false; }
    } const scope;
    MessageBoxA(nullptr, text, "Korvel", MB_ICONERROR);
}

void HandToHandler(const Handler& handler, const CString& text) noexcept {
    try {
        if (handler)
            handler(text);
        else
            ShowBox(text);
    } catch (...) { // the handler is the last resort: nobody is left to take its own failure
    }
}

} // namespace

void SetExceptionHandler(std::function<void(const CString& text)> handler) {
    const std::lock_guard lock(Holder().mutex);
    Holder().handler = std::move(handler);
}

namespace internal {

std::exception_ptr FailureOf(const std::function<void()>& action) {
    try {
        action();
        return nullptr;
    } catch (...) {
        const std::exception_ptr exception = std::current_exception();
        const Handler handler = CurrentHandler();
        if (!handler && Display().IsHeadless())
            return exception;
        HandToHandler(handler, TextOf(exception));
        return nullptr;
    }
}

void Guarded(const std::function<void()>& action) {
    if (const std::exception_ptr failure = FailureOf(action))
        std::rethrow_exception(failure);
}

} // namespace internal
} // namespace korvel

#include "korvel/window/core/uncaught.h"

#include "korvel/window/core/exception_handler.h"

namespace korvel::internal {
namespace {

FailureViewer*& Viewer() {
    static FailureViewer* viewer = nullptr;
    return viewer;
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

// False: nobody has taken it.
bool HandOn(const ExceptionHandler& handler, const CString& text) noexcept {
    try {
        if (!handler)
            return Viewer() && Viewer()(text);
        handler(text);
    } catch (...) { // the handler is the last resort: nobody is left to take its own failure
    }
    return true;
}

} // namespace

bool SetFailureViewer(FailureViewer* show) {
    Viewer() = show;
    return true;
}

std::exception_ptr FailureOf(const std::function<void()>& action) {
    try {
        action();
        return nullptr;
    } catch (...) {
        const std::exception_ptr exception = std::current_exception();
        return HandOn(GetExceptionHandler(), TextOf(exception)) ? nullptr : exception;
    }
}

void Guarded(const std::function<void()>& action) {
    if (const std::exception_ptr failure = FailureOf(action))
        std::rethrow_exception(failure);
}

} // namespace korvel::internal

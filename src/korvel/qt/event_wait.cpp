#include "korvel/qt/event_wait.h"

#include <QAbstractEventDispatcher>
#include <QEventLoop>
#include <exception>

namespace korvel::internal {

void WaitUntil(const std::function<bool()>& done) {
    QEventLoop loop;
    std::exception_ptr failure;
    const auto check = [&] {
        try {
            if (done())
                loop.quit();
        } catch (...) {
            failure = std::current_exception();
            loop.quit();
        }
    };
    if (done())
        return;
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &loop,
                     check);
    loop.exec();
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace korvel::internal

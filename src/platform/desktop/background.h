#pragma once

#include <QEventLoop>
#include <memory>
#include <thread>

namespace platform {

// Runs `work` on a thread of its own and gives what it returns. Meanwhile the windows stay painted and the
// timers run; keys and clicks wait until the work is done.
template <typename Work>
auto RunInBackground(Work work) {
    decltype(work()) result{};
    QEventLoop loop;
    std::thread worker([&] {
        result = work();
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    worker.join();
    return result;
}

} // namespace platform

#pragma once

#include <QCoroTask>
#include <QCoroThread>
#include <QThread>

#include <exception>
#include <optional>
#include <type_traits>

namespace mintaro {

/// A thread with an event loop on which the operations of one object run one at a time. A service owns one and hands
/// its bodies to perform().
class Actor
{
public:
    explicit Actor(const QString &name)
    {
        m_thread.setObjectName(name);
        m_thread.start();
    }
    ~Actor()
    {
        m_thread.quit();
        m_thread.wait();
    }
    Actor(const Actor &) = delete;
    Actor &operator=(const Actor &) = delete;

    /// Runs `body` on the actor's thread and gives its result, or throws its exception, on the thread of the caller,
    /// which must have an event loop.
    template <typename Body>
    [[nodiscard]] QCoro::Task<std::invoke_result_t<Body>> perform(Body body)
    {
        using Result = std::invoke_result_t<Body>;
        QThread *const caller = QThread::currentThread();
        std::exception_ptr error;
        // Going back must happen on every path: a task that ends on another thread resumes its caller there.
        if constexpr (std::is_void_v<Result>) {
            co_await QCoro::moveToThread(&m_thread);
            try {
                body();
            } catch (...) {
                error = std::current_exception();
            }
            co_await QCoro::moveToThread(caller);
            if (error)
                std::rethrow_exception(error);
        } else {
            std::optional<Result> result;
            co_await QCoro::moveToThread(&m_thread);
            try {
                result.emplace(body());
            } catch (...) {
                error = std::current_exception();
            }
            co_await QCoro::moveToThread(caller);
            if (error)
                std::rethrow_exception(error);
            co_return std::move(*result);
        }
    }

private:
    QThread m_thread;
};

} // namespace mintaro

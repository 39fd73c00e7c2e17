#pragma once

#include <coroutine>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace mintaro {

/// An asynchronous sequence with an unbounded buffer and one consumer. Producer and consumer are on the same thread.
/// Copies share the sequence; when the last copy goes, the termination handler is called.
template <typename T>
class AsyncStream
{
    struct State
    {
        std::deque<T> buffer;
        std::coroutine_handle<> waiter;
        std::function<void()> onTermination;
        bool finished = false;

        void wake()
        {
            if (waiter)
                std::exchange(waiter, {}).resume();
        }
        ~State()
        {
            if (onTermination)
                onTermination();
        }
    };

    struct Awaiter
    {
        State *state;
        [[nodiscard]] bool await_ready() const noexcept { return state->finished || !state->buffer.empty(); }
        void await_suspend(std::coroutine_handle<> handle) noexcept { state->waiter = handle; }
        [[nodiscard]] std::optional<T> await_resume()
        {
            if (state->buffer.empty())
                return std::nullopt;
            T element = std::move(state->buffer.front());
            state->buffer.pop_front();
            return element;
        }
    };

public:
    /// The producer's end. It keeps nothing alive: what is yielded into a sequence that nobody holds is dropped.
    class Continuation
    {
    public:
        void yield(T element) const
        {
            if (const auto state = m_state.lock(); state && !state->finished) {
                state->buffer.push_back(std::move(element));
                state->wake();
            }
        }
        /// Ends the sequence once its buffer is empty.
        void finish() const
        {
            if (const auto state = m_state.lock()) {
                state->finished = true;
                state->wake();
            }
        }
        /// Called when the consumer lets go of the sequence.
        void setOnTermination(std::function<void()> handler) const
        {
            if (const auto state = m_state.lock())
                state->onTermination = std::move(handler);
        }

    private:
        friend class AsyncStream;
        std::weak_ptr<State> m_state;
    };

    /// Makes the sequence and hands the producer's end to `build`.
    explicit AsyncStream(const std::function<void(Continuation)> &build)
        : m_state(std::make_shared<State>())
    {
        Continuation continuation;
        continuation.m_state = m_state;
        build(continuation);
    }

    /// To be awaited: the next element, or nothing once the sequence has ended.
    [[nodiscard]] Awaiter next() { return { m_state.get() }; }

private:
    std::shared_ptr<State> m_state;
};

} // namespace mintaro

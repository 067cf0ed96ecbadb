#pragma once

#include "Persistence/SerialQueue.h"
#include "Platform/Ports/HttpSession.h"

#include <coroutine>
#include <optional>
#include <QtCore/QObject>
#include <utility>

// What the coroutines of the remote library wait for. One that has waited looks whether its owner still lives.

namespace tomcatto {

/// Goes on with a coroutine, once: when it is called, or when its last copy goes with what would have called it, so
/// that nothing of a coroutine ever stays behind.
class Resumption final
{
public:
    explicit Resumption(std::coroutine_handle<> waiting)
        : m_waiting(std::make_shared<Waiting>(waiting))
    {
    }
    void operator()() const { m_waiting->resume(); }

private:
    class Waiting final
    {
    public:
        explicit Waiting(std::coroutine_handle<> handle)
            : m_handle(handle)
        {
        }
        Waiting(const Waiting &) = delete;
        Waiting &operator=(const Waiting &) = delete;
        ~Waiting() { resume(); }
        void resume()
        {
            if (const auto handle = std::exchange(m_handle, nullptr))
                handle.resume();
        }

    private:
        std::coroutine_handle<> m_handle;
    };

    std::shared_ptr<Waiting> m_waiting;
};

/// An answer of a server; a failure where the session goes before it comes.
class AwaitedAnswer final
{
public:
    AwaitedAnswer(HttpSession &session, HttpRequest request, std::function<void(qint64, qint64)> onProgress = {})
        : m_session(session)
        , m_request(std::move(request))
        , m_onProgress(std::move(onProgress))
    {
    }

    [[nodiscard]] bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> waiting)
    {
        m_session.get(m_request, m_onProgress,
                      [result = m_result, resume = Resumption(waiting)](const HttpResult &answer) {
                          *result = answer;
                          resume();
                      });
    }
    [[nodiscard]] HttpResult await_resume() const { return *m_result; }

private:
    HttpSession &m_session;
    HttpRequest m_request;
    std::function<void(qint64, qint64)> m_onProgress;
    std::shared_ptr<HttpResult> m_result =
        std::make_shared<HttpResult>(std::unexpected(HttpFailure{HttpFailure::Kind::network, {}}));
};

/// What a job on a queue gives, back on the thread of `context`; a default value where that goes before.
template<typename Result>
class AwaitedJob final
{
public:
    AwaitedJob(SerialQueue &queue, QObject &context, std::function<Result()> job)
        : m_queue(queue)
        , m_context(context)
        , m_job(std::move(job))
    {
    }

    [[nodiscard]] bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> waiting)
    {
        // The context's owner empties the queue before the context goes.
        m_queue.async([job = m_job, result = m_result, context = &m_context, resume = Resumption(waiting)] {
            *result = job();
            QMetaObject::invokeMethod(context, resume, Qt::QueuedConnection);
        });
    }
    [[nodiscard]] Result await_resume() { return std::move(*m_result); }

private:
    SerialQueue &m_queue;
    QObject &m_context;
    std::function<Result()> m_job;
    std::shared_ptr<Result> m_result = std::make_shared<Result>();
};

}

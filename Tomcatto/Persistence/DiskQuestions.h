#pragma once

#include "Platform/Ports/MainRunLoop.h"

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <set>
#include <vector>

namespace tomcatto {

/// Puts questions to disks that may answer late or never: each on a thread that nobody waits for, neither the main one
/// nor the end of the process. Main thread only.
class DiskQuestions final : public QObject
{
    Q_OBJECT
public:
    /// How long one question may hold up those behind it before they get another thread.
    static constexpr std::chrono::milliseconds stall{30};
    /// The most threads that hang at a time, and of those the most for one disk. While there are as many, nothing more
    /// is asked, of that disk or at all.
    static constexpr int mostThreads = 16;
    static constexpr int mostThreadsOfDisk = 4;

    /// What is asked. It owns all that it uses, as it may outlive everything that has an end.
    template<typename Answer>
    struct Question
    {
        /// The same for the same file: what was once not answered in time is not asked again until it is.
        QByteArray key;
        std::function<Answer()> ask;
        /// The disk that is asked; empty if it is not known, then it counts for none.
        QByteArray disk = {};
    };

    explicit DiskQuestions(MainRunLoop &runLoop, QObject *parent = nullptr);
    ~DiskQuestions() override;

    /// Asks, and calls `done` in a later turn of the main loop with the answers in the order of the questions, once all
    /// are there or `patience` is over; not at all when this object is gone by then. An answer that comes later is
    /// dropped on its own thread.
    template<typename Answer>
    void ask(std::vector<Question<Answer>> questions, std::chrono::milliseconds patience,
             std::function<void(std::vector<std::optional<Answer>>)> done)
    {
        const auto answers = std::make_shared<std::vector<std::optional<Answer>>>(questions.size());
        std::vector<Job> jobs;
        for (std::size_t place = 0; place < questions.size(); ++place) {
            Question<Answer> &question = questions.at(place);
            jobs.push_back(
                {std::move(question.key), std::move(question.disk), [answers, place, ask = std::move(question.ask)] {
                     return [answers, place, answer = ask()]() mutable { answers->at(place) = std::move(answer); };
                 }});
        }
        // At the end nobody writes any more.
        start(std::move(jobs), patience, [answers, done = std::move(done)] { done(std::move(*answers)); });
    }

private:
    /// Asks, and returns what keeps the answer if it is still wanted.
    struct Job
    {
        QByteArray key;
        QByteArray disk;
        std::function<std::function<void()>()> ask;
        bool isAsked = false;
        bool isAnswered = false;
    };
    /// Questions that were put together.
    struct Round
    {
        std::vector<Job> jobs;
        std::size_t answered = 0;
        bool isOver = false;
    };
    /// Who waits for a round; it may know what ends before a thread does.
    struct Waiting
    {
        std::function<void()> done;
        Cancellable patience;
        Cancellable watch;
    };
    /// Of all threads and the owner; the mutex guards the rounds as well.
    struct Shared
    {
        std::mutex mutex;
        DiskQuestions *owner = nullptr;
        int threads = 0;
        /// The disks of questions that were asked and are not answered yet, and the keys of those given up.
        std::multiset<QByteArray> busy;
        std::multiset<QByteArray> givenUp;
    };

    void start(std::vector<Job> jobs, std::chrono::milliseconds patience, std::function<void()> done);
    void startThread(const std::shared_ptr<Round> &round);
    void watch(const std::shared_ptr<Round> &round, std::size_t answeredBefore);
    void finish(const std::shared_ptr<Round> &round);
    [[nodiscard]] static Job *nextJob(const Shared &shared, Round &round);
    static void work(const std::shared_ptr<Shared> &shared, const std::shared_ptr<Round> &round);

    MainRunLoop &m_runLoop;
    std::shared_ptr<Shared> m_shared = std::make_shared<Shared>();
    std::map<std::shared_ptr<Round>, Waiting> m_waiting;
};

}

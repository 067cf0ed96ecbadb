#include "Media/DiskQuestions.h"

#include <thread>

namespace tomcatto {

DiskQuestions::DiskQuestions(MainRunLoop &runLoop, QObject *parent)
    : QObject(parent)
    , m_runLoop(runLoop)
{
    m_shared->owner = this;
}

DiskQuestions::~DiskQuestions()
{
    const std::lock_guard lock(m_shared->mutex);
    m_shared->owner = nullptr;
}

void DiskQuestions::start(std::vector<Job> jobs, std::chrono::milliseconds patience, std::function<void()> done)
{
    const auto round = std::make_shared<Round>();
    Waiting &waiting = m_waiting[round];
    waiting.done = std::move(done);
    {
        const std::lock_guard lock(m_shared->mutex);
        for (Job &job : jobs) {
            if (!m_shared->givenUp.contains(job.key))
                round->jobs.push_back(std::move(job));
        }
    }
    if (round->jobs.empty()) {
        m_runLoop.async(*this, [this, round] { finish(round); });
        return;
    }
    startThread(round);
    watch(round, 0);
    waiting.patience = m_runLoop.after(patience, [this, round] { finish(round); });
}

void DiskQuestions::startThread(const std::shared_ptr<Round> &round)
{
    {
        const std::lock_guard lock(m_shared->mutex);
        if (m_shared->threads >= mostThreads)
            return;
        ++m_shared->threads;
    }
    std::thread([shared = m_shared, round] { work(shared, round); }).detach();
}

void DiskQuestions::watch(const std::shared_ptr<Round> &round, std::size_t answeredBefore)
{
    m_waiting.at(round).watch = m_runLoop.after(stall, [this, round, answeredBefore] {
        std::size_t answered = 0;
        {
            const std::lock_guard lock(m_shared->mutex);
            if (round->isOver || round->next == round->jobs.size())
                return;
            answered = round->answered;
        }
        if (answered == answeredBefore)
            startThread(round);
        watch(round, answered);
    });
}

void DiskQuestions::finish(const std::shared_ptr<Round> &round)
{
    {
        const std::lock_guard lock(m_shared->mutex);
        if (std::exchange(round->isOver, true))
            return;
        for (std::size_t place = 0; place < round->next; ++place) {
            if (!round->jobs.at(place).isAnswered)
                m_shared->givenUp.insert(round->jobs.at(place).key);
        }
    }
    const auto waiting = m_waiting.extract(round);
    waiting.mapped().done();
}

// On a thread of its own.
void DiskQuestions::work(const std::shared_ptr<Shared> &shared, const std::shared_ptr<Round> &round)
{
    std::unique_lock lock(shared->mutex);
    while (!round->isOver && round->next < round->jobs.size()) {
        Job &job = round->jobs.at(round->next++);
        lock.unlock();
        auto keep = job.ask();
        lock.lock();
        job.isAnswered = true;
        if (round->isOver) {
            shared->givenUp.erase(shared->givenUp.find(job.key));
        } else {
            keep();
            if (++round->answered == round->jobs.size() && shared->owner)
                QMetaObject::invokeMethod(
                    shared->owner, [owner = shared->owner, round] { owner->finish(round); }, Qt::QueuedConnection);
        }
        // What nobody wants goes without holding anyone up.
        lock.unlock();
        keep = nullptr;
        lock.lock();
    }
    --shared->threads;
}

}

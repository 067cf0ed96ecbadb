#include "Persistence/DiskQuestions.h"

#include <algorithm>
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
        if (m_shared->threads >= mostThreads || !nextJob(*m_shared, *round))
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
            if (round->isOver || std::ranges::all_of(round->jobs, &Job::isAsked))
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
        for (const Job &job : round->jobs) {
            if (job.isAsked && !job.isAnswered)
                m_shared->givenUp.insert(job.key);
        }
    }
    const auto waiting = m_waiting.extract(round);
    waiting.mapped().done();
}

// What hangs on one disk must leave threads for the others.
DiskQuestions::Job *DiskQuestions::nextJob(const Shared &shared, Round &round)
{
    const auto found = std::ranges::find_if(round.jobs, [&shared](const Job &job) {
        return !job.isAsked && (job.disk.isEmpty() || shared.busy.count(job.disk) < mostThreadsOfDisk);
    });
    return found == round.jobs.end() ? nullptr : &*found;
}

// On a thread of its own.
void DiskQuestions::work(const std::shared_ptr<Shared> &shared, const std::shared_ptr<Round> &round)
{
    std::unique_lock lock(shared->mutex);
    while (Job *const next = round->isOver ? nullptr : nextJob(*shared, *round)) {
        Job &job = *next;
        job.isAsked = true;
        shared->busy.insert(job.disk);
        lock.unlock();
        auto keep = job.ask();
        lock.lock();
        job.isAnswered = true;
        shared->busy.erase(shared->busy.find(job.disk));
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

#include "Platform/Posix/CompanionFindings.h"

#include "Platform/Posix/CompanionProgram.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QFile>
#include <QtCore/QProcess>

namespace tomcatto {

namespace {

using namespace std::chrono_literals;

/// GStreamer's first look at what is installed takes some seconds.
constexpr auto longestLook = 10s;

QProcess *started(const QString &path)
{
    auto *process = new QProcess;
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->start(path, {QStringLiteral("--findings")});
    return process;
}

Findings readFindings(QProcess &process)
{
    Findings findings;
    for (const QByteArray &line : process.readAllStandardOutput().split('\n')) {
        if (const auto finding = findingFromLine(line))
            findings.push_back(*finding);
    }
    return findings;
}

/// Of a process that has told nothing.
Finding unanswered(const QProcess &process, const FindingCompanion &companion)
{
    const bool isThere = QFile::exists(process.program());
    return {companion.part, Finding::Mark::lacking,
            companion.program + (isThere ? QStringLiteral(" gives no answer") : QStringLiteral(" is not there")) +
                QStringLiteral(", so ") + companion.loss,
            isThere ? QStringLiteral("See what it says: %1 --findings").arg(process.program())
                    : QStringLiteral("Install Tomcatto completely")};
}

}

Findings companionFindings(const std::vector<FindingCompanion> &companions)
{
    std::vector<QProcess *> processes;
    processes.reserve(companions.size());
    for (const FindingCompanion &companion : companions)
        processes.push_back(started(companionProgram(companion.program)));
    const QDeadlineTimer deadline(longestLook);
    Findings all;
    for (std::size_t place = 0; place < companions.size(); ++place) {
        QProcess *const process = processes[place];
        process->waitForFinished(static_cast<int>(deadline.remainingTime()));
        const Findings found = readFindings(*process);
        all.insert(all.end(), found.begin(), found.end());
        if (found.empty())
            all.push_back(unanswered(*process, companions[place]));
        endCompanion(process);
    }
    return all;
}

}

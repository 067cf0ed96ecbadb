#include "Platform/Posix/CompanionFact.h"

#include "Foundation/EnumTexts.h"
#include "Platform/Posix/CompanionProgram.h"

#include <algorithm>
#include <QtCore/QProcess>

namespace tomcatto {
namespace {

using namespace std::chrono_literals;

constexpr std::array factTexts{"unknown", "no", "yes", "untold"};
/// How long one that has ended rests: at first, and at most.
constexpr std::chrono::milliseconds shortestRest = 1s;
constexpr std::chrono::milliseconds longestRest = 10min;
/// One that has run for so long is sound.
constexpr auto soundTime = 1min;

}

CompanionFact::CompanionFact(QString program, MainRunLoop &runLoop)
    : m_program(std::move(program))
    , m_runLoop(runLoop)
{
}

CompanionFact::~CompanionFact()
{
    CompanionFact::end();
}

void CompanionFact::begin()
{
    m_rest = shortestRest;
    start();
}

void CompanionFact::end()
{
    m_nextStart = {};
    m_soundness = {};
    if (!m_process)
        return;
    m_process->disconnect(&m_context);
    endCompanion(std::exchange(m_process, nullptr));
}

void CompanionFact::start()
{
    m_process = new QProcess;
    QObject::connect(m_process, &QProcess::readyReadStandardOutput, &m_context, [this] { read(); });
    QObject::connect(m_process, &QProcess::errorOccurred, &m_context, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            lose(QStringLiteral(" does not start"));
    });
    QObject::connect(m_process, &QProcess::finished, &m_context, [this] { lose(QStringLiteral(" has ended")); });
    m_process->setStandardErrorFile(QProcess::nullDevice());
    m_soundness = m_runLoop.after(soundTime, [this] { m_rest = shortestRest; });
    m_process->start(m_program, QStringList());
}

void CompanionFact::read()
{
    while (m_process->canReadLine()) {
        if (const auto fact = caseOf<Fact>(factTexts, QString::fromLatin1(m_process->readLine().trimmed())))
            tell(*fact);
    }
}

void CompanionFact::lose(const QString &reason)
{
    m_soundness = {};
    m_process->disconnect(&m_context);
    std::exchange(m_process, nullptr)->deleteLater();
    m_logger.error(m_program + reason);
    tell(Fact::untold);
    m_nextStart = m_runLoop.after(m_rest, [this] { start(); });
    m_rest = std::min(2 * m_rest, longestRest);
}

}

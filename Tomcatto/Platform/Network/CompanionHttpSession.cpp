#include "Platform/Network/CompanionHttpSession.h"

#include "Platform/Posix/CompanionProgram.h"

#include <QtCore/QProcess>
#include <utility>

namespace tomcatto {

namespace {

/// What was fetched for one list is often wanted by the next, and connections are still open.
constexpr std::chrono::seconds restAfterLast{10};
constexpr int endMilliseconds = 500;

}

CompanionHttpSession::CompanionHttpSession(QString program, QString cacheFolder, MainRunLoop &runLoop)
    : m_program(std::move(program))
    , m_cacheFolder(std::move(cacheFolder))
    , m_runLoop(runLoop)
    , m_logger(QStringLiteral("HttpSession"))
{
}

CompanionHttpSession::~CompanionHttpSession()
{
    if (!m_process)
        return;
    m_process->disconnect(this);
    // It takes away what is not whole; one that hangs in a disk is not waited for.
    m_process->closeWriteChannel();
    m_process->waitForFinished(endMilliseconds);
    endCompanion(m_process);
}

void CompanionHttpSession::get(const HttpRequest &request, std::function<void(qint64, qint64)> onProgress,
                               std::function<void(const HttpResult &)> done)
{
    m_rest = {};
    m_fetches.emplace(++m_lastNumber, Fetch{std::move(onProgress), std::move(done), {}});
    if (!m_process)
        start();
    QByteArray order;
    QDataStream stream(&order, QIODevice::WriteOnly);
    stream << FetchOrder{m_lastNumber,
                         request.url,
                         request.file,
                         request.largestBody,
                         static_cast<qint32>(request.idleLimit.count()),
                         static_cast<qint32>(request.wholeLimit.count()),
                         request.reloads,
                         request.isKept};
    m_process->write(order);
}

void CompanionHttpSession::start()
{
    m_process = new QProcess;
    connect(m_process, &QProcess::readyReadStandardOutput, this, &CompanionHttpSession::read);
    connect(m_process, &QProcess::finished, this, [this] { fail(QStringLiteral("what fetches has ended")); });
    connect(
        m_process, &QProcess::errorOccurred, this,
        [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                fail(m_program + QStringLiteral(" does not start"));
        },
        Qt::QueuedConnection);
    m_process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process->start(m_program, {m_cacheFolder, QString::number(m_capacity.memory), QString::number(m_capacity.disk)});
}

void CompanionHttpSession::read()
{
    FetchNews news;
    while (m_process && takeMessage(*m_process, news))
        take(news);
}

void CompanionHttpSession::take(const FetchNews &news)
{
    const auto found = m_fetches.find(news.number);
    if (found == m_fetches.end())
        return;
    switch (news.kind) {
    case FetchNews::Kind::progress:
        if (const auto onProgress = found->second.onProgress)
            onProgress(news.received, news.total);
        return;
    case FetchNews::Kind::body:
        found->second.body += news.bytes;
        return;
    case FetchNews::Kind::answered:
        return finish(news.number, HttpResponse{news.status, found->second.body});
    case FetchNews::Kind::failedNetwork:
        return finish(news.number, std::unexpected(HttpFailure{HttpFailure::Kind::network, news.text}));
    case FetchNews::Kind::failedResponse:
        return finish(news.number, std::unexpected(HttpFailure{HttpFailure::Kind::response, news.text}));
    case FetchNews::Kind::failedFile:
        return finish(news.number, std::unexpected(HttpFailure{HttpFailure::Kind::file, news.text}));
    }
}

void CompanionHttpSession::finish(qint32 number, const HttpResult &result)
{
    // Taken out first: what is told may ask for more.
    const auto fetch = m_fetches.extract(number);
    if (m_fetches.empty())
        m_rest = m_runLoop.after(restAfterLast, [this] { letGo(); });
    fetch.mapped().done(result);
}

void CompanionHttpSession::fail(const QString &reason)
{
    m_process->disconnect(this);
    std::exchange(m_process, nullptr)->deleteLater();
    m_rest = {};
    if (!m_fetches.empty())
        m_logger.error(reason);
    for (const auto &[number, fetch] : std::exchange(m_fetches, {}))
        fetch.done(std::unexpected(HttpFailure{HttpFailure::Kind::network, reason}));
}

void CompanionHttpSession::letGo()
{
    m_process->disconnect(this);
    // It ends with its input.
    connect(m_process, &QProcess::finished, m_process, &QObject::deleteLater);
    std::exchange(m_process, nullptr)->closeWriteChannel();
}

}

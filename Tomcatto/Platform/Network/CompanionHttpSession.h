#pragma once

#include "Foundation/Logger.h"
#include "Platform/Network/FetchMessages.h"
#include "Platform/Ports/HttpSession.h"
#include "Platform/Ports/MainRunLoop.h"

#include <map>
#include <QtCore/QObject>

class QProcess;

namespace tomcatto {

/// Fetches by a program of its own, which is started with the first request and ends soon after the last one: what
/// speaks to servers, the libraries for it and the copies that are kept in memory go with it. Main thread only.
class CompanionHttpSession final : public QObject, public HttpSession
{
    Q_OBJECT

public:
    /// @param program its path; it may be missing. @param cacheFolder where copies are kept; empty for nowhere. @param
    /// runLoop outlives the session
    CompanionHttpSession(QString program, QString cacheFolder, MainRunLoop &runLoop);
    CompanionHttpSession(const CompanionHttpSession &) = delete;
    CompanionHttpSession &operator=(const CompanionHttpSession &) = delete;
    ~CompanionHttpSession() override;

    void configureUrlCache(UrlCacheCapacity capacity) override { m_capacity = capacity; }
    void get(const HttpRequest &request, std::function<void(qint64 received, qint64 total)> onProgress,
             std::function<void(const HttpResult &)> done) override;

private:
    struct Fetch
    {
        std::function<void(qint64, qint64)> onProgress;
        std::function<void(const HttpResult &)> done;
        QByteArray body;
    };

    void start();
    void read();
    void take(const FetchNews &news);
    void finish(qint32 number, const HttpResult &result);
    void fail(const QString &reason);
    void letGo();

    QString m_program;
    QString m_cacheFolder;
    MainRunLoop &m_runLoop;
    Logger m_logger;
    UrlCacheCapacity m_capacity;
    // Ends itself, which may take longer than this lives.
    QProcess *m_process = nullptr;
    std::map<qint32, Fetch> m_fetches;
    qint32 m_lastNumber = 0;
    Cancellable m_rest;
};

}

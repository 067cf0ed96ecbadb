#pragma once

#include "Platform/Ports/HttpSession.h"

#include <QtCore/QFile>
#include <vector>

namespace tomcatto {

/// Servers that a test plays: it answers the requests one by one.
class FakeHttpSession final : public HttpSession
{
public:
    void configureUrlCache(UrlCacheCapacity wanted) override { capacity = wanted; }
    void get(const HttpRequest &request, std::function<void(qint64, qint64)> onProgress,
             std::function<void(const HttpResult &)> done) override
    {
        requests.push_back({request, std::move(onProgress), std::move(done)});
    }

    /// Answers the oldest request, with a file where one is asked for.
    void answer(int status, const QByteArray &body = {})
    {
        Pending pending = next();
        if (QFile file(pending.request.file); !pending.request.file.isEmpty() && file.open(QIODevice::WriteOnly))
            file.write(body);
        pending.done(HttpResponse{status, pending.request.file.isEmpty() ? body : QByteArray()});
    }
    void fail(HttpFailure::Kind kind) { next().done(std::unexpected(HttpFailure{kind, QStringLiteral("cut")})); }

    struct Pending
    {
        HttpRequest request;
        std::function<void(qint64, qint64)> onProgress;
        std::function<void(const HttpResult &)> done;
    };
    std::vector<Pending> requests;
    UrlCacheCapacity capacity;

private:
    Pending next()
    {
        Pending pending = std::move(requests.at(0));
        requests.erase(requests.begin());
        return pending;
    }
};

}

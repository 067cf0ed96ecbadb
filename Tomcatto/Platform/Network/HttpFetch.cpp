#include "Platform/Network/HttpFetch.h"

#include "Foundation/TrustedAddress.h"

#include <algorithm>
#include <QtNetwork/QNetworkAccessManager>

namespace tomcatto {

namespace {

// What may wait for being written, in bytes; the server is held up beyond.
constexpr qint64 pieceSize = qint64{256} * 1024;
constexpr int mostRedirects = 10;
// News of how far it is: more often is not seen.
constexpr int mostNews = 200;
constexpr qint64 leastNews = qint64{64} * 1024;

QNetworkRequest requestOf(const FetchOrder &order)
{
    QNetworkRequest request(order.url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::UserVerifiedRedirectPolicy);
    request.setMaximumRedirectsAllowed(mostRedirects);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         order.reloads ? QNetworkRequest::AlwaysNetwork : QNetworkRequest::PreferNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, order.isKept);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    // Asked for, a small packed answer could unpack to any size.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setRawHeader("User-Agent", "Tomcatto");
    return request;
}

}

HttpFetch::HttpFetch(QNetworkAccessManager &network, FetchOrder order, Tell tell, QObject *parent)
    : QObject(parent)
    , m_order(std::move(order))
    , m_tell(std::move(tell))
    , m_reply(network.get(requestOf(m_order)))
    , m_address(m_order.url)
    , m_file(m_order.file)
{
    m_reply->setReadBufferSize(pieceSize);
    connect(m_reply.get(), &QNetworkReply::redirected, this, &HttpFetch::redirect);
    connect(m_reply.get(), &QNetworkReply::metaDataChanged, this, &HttpFetch::readHead);
    connect(m_reply.get(), &QNetworkReply::readyRead, this, &HttpFetch::readBody);
    connect(m_reply.get(), &QNetworkReply::finished, this, &HttpFetch::finish);
    connect(&m_idle, &QTimer::timeout, this, [this] {
        end(FetchNews::Kind::failedNetwork,
            QStringLiteral("the server sent nothing for %1 seconds").arg(m_order.idleSeconds));
    });
    connect(&m_whole, &QTimer::timeout, this, [this] {
        end(FetchNews::Kind::failedNetwork, QStringLiteral("it took over %1 seconds").arg(m_order.wholeSeconds));
    });
    m_idle.start(std::chrono::seconds(m_order.idleSeconds));
    if (m_order.wholeSeconds > 0)
        m_whole.start(std::chrono::seconds(m_order.wholeSeconds));
}

HttpFetch::~HttpFetch()
{
    m_reply->disconnect(this);
}

void HttpFetch::redirect(const QUrl &address)
{
    m_idle.start();
    if (!isTrustedRedirect(m_address, address))
        return end(FetchNews::Kind::failedNetwork,
                   QStringLiteral("the server leads to an address that is not trusted: ") + address.toDisplayString());
    m_address = address;
    Q_EMIT m_reply->redirectAllowed();
}

void HttpFetch::readHead()
{
    m_idle.start();
    // Redirections are followed by the library.
    constexpr int firstRedirection = 300;
    constexpr int firstError = 400;
    if (m_hasEnded || status() == 0 || (status() >= firstRedirection && status() < firstError))
        return;
    if (!isSuccess())
        return end(FetchNews::Kind::answered);
    const QByteArray packing = m_reply->rawHeader("Content-Encoding").trimmed().toLower();
    if (!packing.isEmpty() && packing != "identity")
        return end(FetchNews::Kind::failedResponse, QStringLiteral("the answer is packed"));
    if (announcedSize() > m_order.largestBody)
        end(FetchNews::Kind::failedResponse, QStringLiteral("the answer is too large"));
}

void HttpFetch::readBody()
{
    m_idle.start();
    if (!m_hasEnded && isSuccess()) {
        const QByteArray piece = m_reply->read(pieceSize);
        m_received += piece.size();
        if (m_received > m_order.largestBody)
            return end(FetchNews::Kind::failedResponse, QStringLiteral("the answer is too large"));
        if (!write(piece))
            return end(FetchNews::Kind::failedFile, m_file.errorString());
        progress();
        if (m_reply->bytesAvailable() > 0)
            QMetaObject::invokeMethod(this, &HttpFetch::readBody, Qt::QueuedConnection);
    }
}

void HttpFetch::finish()
{
    while (!m_hasEnded && isSuccess() && m_reply->bytesAvailable() > 0)
        readBody();
    if (m_hasEnded)
        return;
    if (status() != 0 && !isSuccess() && m_reply->error() != QNetworkReply::TooManyRedirectsError)
        return end(FetchNews::Kind::answered);
    if (m_reply->error() != QNetworkReply::NoError)
        return end(FetchNews::Kind::failedNetwork, m_reply->errorString());
    if (announcedSize() >= 0 && announcedSize() != m_received)
        return end(FetchNews::Kind::failedNetwork,
                   QStringLiteral("%1 bytes came of %2").arg(m_received).arg(announcedSize()));
    // A file without content is one as well.
    if (!m_order.file.isEmpty() && (!write({}) || !m_file.commit()))
        return end(FetchNews::Kind::failedFile, m_file.errorString());
    end(FetchNews::Kind::answered);
}

int HttpFetch::status() const
{
    return m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

bool HttpFetch::isSuccess() const
{
    constexpr int hundred = 100;
    return status() / hundred == 2;
}

qint64 HttpFetch::announcedSize() const
{
    const QVariant size = m_reply->header(QNetworkRequest::ContentLengthHeader);
    return size.isValid() ? size.toLongLong() : -1;
}

bool HttpFetch::write(const QByteArray &piece)
{
    if (m_order.file.isEmpty()) {
        m_tell({.kind = FetchNews::Kind::body, .number = m_order.number, .bytes = piece});
        return true;
    }
    // Without a buffer, because committing does not notice that emptying it failed, as on a full disk.
    if (!m_file.isOpen() && !m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    for (qint64 done = 0; done < piece.size();) {
        const qint64 size = m_file.write(piece.constData() + done, piece.size() - done);
        if (size <= 0)
            return false;
        done += size;
    }
    return true;
}

void HttpFetch::progress()
{
    const qint64 step = std::max(leastNews, announcedSize() / mostNews);
    if (m_received - m_told < step)
        return;
    m_told = m_received;
    m_tell({.kind = FetchNews::Kind::progress,
            .number = m_order.number,
            .received = m_received,
            .total = announcedSize()});
}

void HttpFetch::end(FetchNews::Kind kind, const QString &text)
{
    if (std::exchange(m_hasEnded, true))
        return;
    m_idle.stop();
    m_whole.stop();
    m_reply->disconnect(this);
    m_tell({.kind = kind, .number = m_order.number, .status = status(), .text = text});
    // Whatever is open goes with it: the connection, and a file that is not whole.
    deleteLater();
}

}

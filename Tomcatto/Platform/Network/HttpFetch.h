#pragma once

#include "Platform/Network/FetchMessages.h"

#include <functional>
#include <QtCore/QSaveFile>
#include <QtCore/QTimer>
#include <QtNetwork/QNetworkReply>

class QNetworkAccessManager;

namespace tomcatto {

/// One request, from its order to its last news. Bodies go on as they come, so that they never lie in memory as a
/// whole. Of the program that fetches; its only thread.
class HttpFetch final : public QObject
{
    Q_OBJECT

public:
    using Tell = std::function<void(const FetchNews &)>;

    /// Begins. @param tell takes the news; after the last one this object deletes itself
    HttpFetch(QNetworkAccessManager &network, FetchOrder order, Tell tell, QObject *parent);
    HttpFetch(const HttpFetch &) = delete;
    HttpFetch &operator=(const HttpFetch &) = delete;
    ~HttpFetch() override;

private:
    void redirect(const QUrl &address);
    void readHead();
    void readBody();
    void finish();
    [[nodiscard]] int status() const;
    [[nodiscard]] bool isSuccess() const;
    [[nodiscard]] qint64 announcedSize() const;
    bool write(const QByteArray &piece);
    void progress();
    void end(FetchNews::Kind kind, const QString &text = {});

    FetchOrder m_order;
    Tell m_tell;
    std::unique_ptr<QNetworkReply> m_reply;
    QUrl m_address;
    QSaveFile m_file;
    QTimer m_idle;
    QTimer m_whole;
    qint64 m_received = 0;
    qint64 m_told = 0;
    bool m_hasEnded = false;
};

}

#pragma once

#include "Platform/Network/FetchMessages.h"

#include <QtCore/QBuffer>
#include <QtCore/QFile>
#include <QtCore/QSocketNotifier>
#include <QtNetwork/QNetworkAccessManager>

namespace tomcatto {

/// Takes orders from standard input until its end and sends news to an output. Of the program that fetches; its only
/// thread.
class FetchDesk final : public QObject
{
    Q_OBJECT

public:
    /// @param cacheFolder where copies are kept; empty for nowhere. @param memoryCapacity and @param diskCapacity in
    /// bytes. @param news the output's descriptor
    FetchDesk(const QString &cacheFolder, qint64 memoryCapacity, qint64 diskCapacity, int news);
    FetchDesk(const FetchDesk &) = delete;
    FetchDesk &operator=(const FetchDesk &) = delete;
    /// Lets go of what is not whole.
    ~FetchDesk() override;

private:
    void read();
    void obey(const FetchOrder &order);

    QNetworkAccessManager m_network;
    QFile m_news;
    QSocketNotifier m_orders;
    QByteArray m_read;
};

}

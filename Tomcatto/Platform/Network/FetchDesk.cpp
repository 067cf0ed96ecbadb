#include "Platform/Network/FetchDesk.h"

#include "Platform/Network/HttpFetch.h"
#include "Platform/Network/TieredUrlCache.h"

#include <QtCore/QCoreApplication>
#include <unistd.h>

namespace tomcatto {

FetchDesk::FetchDesk(const QString &cacheFolder, qint64 memoryCapacity, qint64 diskCapacity, int news)
    : m_orders(STDIN_FILENO, QSocketNotifier::Read)
{
    // What there is no reader for any more fails, and the input's end says so.
    static_cast<void>(m_news.open(news, QIODevice::WriteOnly | QIODevice::Unbuffered));
    if (!cacheFolder.isEmpty()) {
        auto *const cache = new TieredUrlCache(memoryCapacity);
        cache->setCacheDirectory(cacheFolder);
        cache->setMaximumCacheSize(diskCapacity);
        m_network.setCache(cache);
    }
    connect(&m_orders, &QSocketNotifier::activated, this, &FetchDesk::read);
}

FetchDesk::~FetchDesk()
{
    // Before what their answers belong to.
    qDeleteAll(findChildren<HttpFetch *>(Qt::FindDirectChildrenOnly));
}

void FetchDesk::read()
{
    constexpr qsizetype pieceSize = 4096;
    QByteArray piece(pieceSize, Qt::Uninitialized);
    const auto size = ::read(STDIN_FILENO, piece.data(), static_cast<std::size_t>(pieceSize));
    if (size <= 0)
        return QCoreApplication::quit();
    m_read.append(piece.constData(), size);
    QBuffer orders(&m_read);
    orders.open(QIODevice::ReadOnly);
    FetchOrder order;
    qint64 taken = 0;
    for (; takeMessage(orders, order); taken = orders.pos())
        obey(order);
    orders.close();
    m_read.remove(0, taken);
}

void FetchDesk::obey(const FetchOrder &order)
{
    new HttpFetch(
        m_network, order,
        [this](const FetchNews &news) {
            QByteArray bytes;
            QDataStream stream(&bytes, QIODevice::WriteOnly);
            stream << news;
            m_news.write(bytes);
        },
        this);
}

}

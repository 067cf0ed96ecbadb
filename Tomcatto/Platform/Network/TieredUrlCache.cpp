#include "Platform/Network/TieredUrlCache.h"

#include <QtCore/QBuffer>

namespace tomcatto {

namespace {

// One alone is not to push all others out.
constexpr int shareOfOne = 20;

}

TieredUrlCache::TieredUrlCache(qint64 memoryCapacity, QObject *parent)
    : QNetworkDiskCache(parent)
    , m_memory(memoryCapacity)
{
}

QIODevice *TieredUrlCache::data(const QUrl &url)
{
    if (!m_memory.contains(url)) {
        QIODevice *const onDisk = QNetworkDiskCache::data(url);
        if (!onDisk || onDisk->size() > m_memory.maxCost() / shareOfOne)
            return onDisk;
        const std::unique_ptr<QIODevice> device(onDisk);
        auto bytes = std::make_unique<QByteArray>(device->readAll());
        const qsizetype cost = bytes->size();
        m_memory.insert(url, bytes.release(), cost);
    }
    const QByteArray *const bytes = m_memory.object(url);
    if (!bytes)
        return QNetworkDiskCache::data(url);
    auto copy = std::make_unique<QBuffer>();
    copy->setData(*bytes);
    copy->open(QIODevice::ReadOnly);
    return copy.release();
}

QIODevice *TieredUrlCache::prepare(const QNetworkCacheMetaData &metaData)
{
    QIODevice *const device = QNetworkDiskCache::prepare(metaData);
    if (device)
        m_prepared.insert(device, metaData.url());
    return device;
}

void TieredUrlCache::insert(QIODevice *device)
{
    m_memory.remove(m_prepared.take(device));
    QNetworkDiskCache::insert(device);
}

bool TieredUrlCache::remove(const QUrl &url)
{
    m_memory.remove(url);
    // The copy on its way, too, if that is what is given up.
    m_prepared.removeIf([&url](const auto &entry) { return entry.value() == url; });
    return QNetworkDiskCache::remove(url);
}

void TieredUrlCache::updateMetaData(const QNetworkCacheMetaData &metaData)
{
    m_memory.remove(metaData.url());
    QNetworkDiskCache::updateMetaData(metaData);
}

void TieredUrlCache::clear()
{
    m_memory.clear();
    QNetworkDiskCache::clear();
}

}

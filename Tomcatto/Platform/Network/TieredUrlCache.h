#pragma once

#include <QtCore/QCache>
#include <QtNetwork/QNetworkDiskCache>

namespace tomcatto {

/// Keeps copies of what was fetched on disk, and those that were read again in memory as well. Of the program that
/// fetches; its only thread.
class TieredUrlCache final : public QNetworkDiskCache
{
    Q_OBJECT

public:
    /// @param memoryCapacity in bytes
    explicit TieredUrlCache(qint64 memoryCapacity, QObject *parent = nullptr);

    QIODevice *data(const QUrl &url) override;
    QIODevice *prepare(const QNetworkCacheMetaData &metaData) override;
    void insert(QIODevice *device) override;
    bool remove(const QUrl &url) override;
    void updateMetaData(const QNetworkCacheMetaData &metaData) override;

public Q_SLOTS:
    void clear() override;

private:
    QCache<QUrl, QByteArray> m_memory;
    /// Whose copies are on their way to the disk.
    QHash<QIODevice *, QUrl> m_prepared;
};

}

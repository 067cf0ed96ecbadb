#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QString>
#include <QtCore/QUrl>

namespace tomcatto {

/// What the application asks of the program that fetches, over its input.
struct FetchOrder
{
    qint32 number = 0;
    QUrl url;
    /// Empty where the body is to come over the output.
    QString file;
    qint64 largestBody = 0;
    qint32 idleSeconds = 0;
    /// 0 for no limit.
    qint32 wholeSeconds = 0;
    bool reloads = false;
    bool isKept = false;
};

/// What comes back over its output.
struct FetchNews
{
    enum class Kind : quint8 {
        /// `received` of `total` bytes are there.
        progress,
        /// A piece of the body.
        body,
        /// The server has answered with `status`; the last news of a fetch, as the next three.
        answered,
        failedNetwork,
        failedResponse,
        failedFile,
    };

    Kind kind = Kind::progress;
    qint32 number = 0;
    qint32 status = 0;
    qint64 received = 0;
    qint64 total = 0;
    QByteArray bytes = {};
    QString text = {};
};

inline QDataStream &operator<<(QDataStream &stream, const FetchOrder &order)
{
    return stream << order.number << order.url << order.file << order.largestBody << order.idleSeconds
                  << order.wholeSeconds << order.reloads << order.isKept;
}

inline QDataStream &operator>>(QDataStream &stream, FetchOrder &order)
{
    return stream >> order.number >> order.url >> order.file >> order.largestBody >> order.idleSeconds >>
           order.wholeSeconds >> order.reloads >> order.isKept;
}

inline QDataStream &operator<<(QDataStream &stream, const FetchNews &news)
{
    return stream << news.kind << news.number << news.status << news.received << news.total << news.bytes << news.text;
}

inline QDataStream &operator>>(QDataStream &stream, FetchNews &news)
{
    return stream >> news.kind >> news.number >> news.status >> news.received >> news.total >> news.bytes >> news.text;
}

/// Takes the next message, once all of it is there.
template<typename Message>
bool takeMessage(QIODevice &device, Message &message)
{
    QDataStream stream(&device);
    stream.startTransaction();
    stream >> message;
    return stream.commitTransaction();
}

}

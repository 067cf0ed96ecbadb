#include "Platform/Posix/FileBookmarks.h"

#include "Platform/Posix/MovedFileSearch.h"

#include <fcntl.h>
#include <QtCore/QDataStream>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QIODevice>
#include <unistd.h>

namespace tomcatto {

namespace {

// "TmBm" and the version of what follows.
constexpr quint32 magic = 0x546d426d;
constexpr quint8 formatVersion = 1;

struct StoredBookmark
{
    QByteArray nativePath;
    FileIdentity identity;
};

QByteArray encoded(const StoredBookmark &bookmark)
{
    QByteArray data;
    QDataStream stream(&data, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_4);
    stream << magic << formatVersion << bookmark.nativePath << bookmark.identity.device << bookmark.identity.inode
           << bookmark.identity.birthNanoseconds.has_value() << bookmark.identity.birthNanoseconds.value_or(0);
    return data;
}

std::optional<StoredBookmark> decoded(const QByteArray &data)
{
    QDataStream stream(data);
    stream.setVersion(QDataStream::Qt_6_4);
    quint32 mark = 0;
    quint8 version = 0;
    bool hasBirth = false;
    qint64 birth = 0;
    StoredBookmark bookmark;
    stream >> mark >> version >> bookmark.nativePath >> bookmark.identity.device >> bookmark.identity.inode >>
        hasBirth >> birth;
    if (stream.status() != QDataStream::Ok || !stream.atEnd() || mark != magic || version != formatVersion ||
        !bookmark.nativePath.startsWith('/'))
        return std::nullopt;
    if (hasBirth)
        bookmark.identity.birthNanoseconds = birth;
    return bookmark;
}

QByteArray nativePath(const QUrl &fileUrl)
{
    const QString path = fileUrl.isLocalFile() ? fileUrl.toLocalFile() : QString();
    return path.isEmpty() ? QByteArray() : QFile::encodeName(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
}

ResolvedBookmark resolvedAt(const QByteArray &path, bool isStale)
{
    return {QUrl::fromLocalFile(QFile::decodeName(path)), isStale};
}

}

FileBookmarks::FileBookmarks(const QString &homeFolder, FileStatusReader fileStatus)
    : m_homeFolder(QFile::encodeName(QDir::cleanPath(homeFolder)))
    , m_fileStatus(fileStatus)
{
}

std::optional<QByteArray> FileBookmarks::bookmarkData(const QUrl &fileUrl) const
{
    const QByteArray path = nativePath(fileUrl);
    if (path.isEmpty())
        return std::nullopt;
    const auto status = m_fileStatus(path, SymbolicLinks::follow);
    if (!status)
        return std::nullopt;
    return encoded({path, status->identity});
}

std::optional<ResolvedBookmark> FileBookmarks::resolve(const QByteArray &data, QDeadlineTimer searchUntil) const
{
    const auto bookmark = decoded(data);
    if (!bookmark)
        return std::nullopt;
    // The file may have been edited in place, or saved anew by a program that writes beside it and renames.
    const auto status = m_fileStatus(bookmark->nativePath, SymbolicLinks::follow);
    if (status && status->isRegularFile)
        return resolvedAt(bookmark->nativePath, status->identity != bookmark->identity);
    if (searchUntil.hasExpired())
        return std::nullopt;
    MovedFileSearch search(bookmark->identity, m_homeFolder, searchUntil, m_fileStatus);
    const auto found = search.find(bookmark->nativePath);
    if (!found)
        return std::nullopt;
    return resolvedAt(*found, true);
}

QByteArray FileBookmarks::disk(const QByteArray &data) const
{
    const auto bookmark = decoded(data);
    return bookmark ? QByteArray::number(bookmark->identity.device) : QByteArray();
}

bool FileBookmarks::startAccess(const QUrl &fileUrl) const
{
    const QByteArray path = nativePath(fileUrl);
    const auto status = m_fileStatus(path, SymbolicLinks::follow);
    if (!status || !status->isRegularFile)
        return false;
    const int descriptor = open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    close(descriptor);
    return true;
}

void FileBookmarks::stopAccess(const QUrl & /*fileUrl*/) const {}

}

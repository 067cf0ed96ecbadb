#include "Platform/Qt/DefaultsFile.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

namespace tomcatto {

namespace {

constexpr QFileDevice::Permissions ownerOnlyFile = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

QString makeFolder(const QString &folder)
{
    if (QFileInfo(folder).isDir())
        return {};
    const QString parent = QFileInfo(folder).path();
    if (QDir().mkpath(parent) && QDir().mkdir(folder, ownerOnlyFile | QFileDevice::ExeOwner))
        return {};
    // Another process may have made it meanwhile.
    return QFileInfo(folder).isDir() ? QString() : QStringLiteral("cannot create the folder ") + folder;
}

}

DefaultsFile::DefaultsFile(QString path)
    : m_path(std::move(path))
{
}

QString DefaultsFile::target() const
{
    // As many links as the system itself follows; one more is a loop, which then fails to open.
    constexpr int mostLinks = 40;
    QString path = m_path;
    for (int links = 0; links < mostLinks && QFileInfo(path).isSymLink(); ++links)
        path = QFileInfo(path).symLinkTarget();
    return path;
}

DefaultsFile::Content DefaultsFile::read() const
{
    const QFileInfo info(target());
    if (!info.exists())
        return {};
    // Opening a pipe would wait for a writer.
    if (!info.isFile())
        return {State::corrupt, {}, QStringLiteral("it is not a regular file")};
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly))
        return {State::unreadable, {}, file.errorString()};
    const QByteArray text = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return {State::unreadable, {}, file.errorString()};
    auto document = DefaultsDocument::parse(text);
    if (!document)
        return {State::corrupt, {}, QStringLiteral("it holds no JSON object")};
    return {State::sound, *std::move(document), {}};
}

std::optional<QString> DefaultsFile::setAside() const
{
    // What a link leads to is moved only if it is a file; a link to a device or a folder is moved itself.
    const QString resolved = target();
    const QString from = QFileInfo(resolved).isFile() ? resolved : m_path;
    const QString time = QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd'T'HHmmss"));
    const QString base = from + QStringLiteral(".corrupt-") + time;
    constexpr int mostInOneSecond = 1000;
    for (int number = 1; number < mostInOneSecond; ++number) {
        QString to = number == 1 ? base : base + QLatin1Char('-') + QString::number(number);
        const QFileInfo taken(to);
        if (taken.exists() || taken.isSymLink())
            continue;
        if (QDir().rename(from, to))
            return to;
        return std::nullopt;
    }
    return std::nullopt;
}

QString DefaultsFile::write(const QByteArray &text) const
{
    const QString path = target();
    if (path.isEmpty())
        return QStringLiteral("the user has no folder for it");
    if (QString problem = makeFolder(QFileInfo(path).path()); !problem.isEmpty())
        return problem;
    const bool isNew = !QFileInfo::exists(path);
    QSaveFile file(path);
    // Without a buffer, because committing does not notice that emptying it failed, as on a full disk, and would put an
    // empty file in the place of the good one.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return file.errorString();
    if (isNew)
        file.setPermissions(ownerOnlyFile);
    for (qint64 done = 0; done < text.size();) {
        // What is cut short has no reason of its own; writing on gives it.
        const qint64 size = file.write(text.constData() + done, text.size() - done);
        if (size <= 0)
            return file.errorString();
        done += size;
    }
    return file.commit() ? QString() : file.errorString();
}

}

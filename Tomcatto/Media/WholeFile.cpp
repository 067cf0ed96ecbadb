#include "Media/WholeFile.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

namespace tomcatto {

bool makeFolder(const QString &path)
{
    constexpr QFileDevice::Permissions ownerOnly =
        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
    return QFileInfo(path).isDir() || (QDir().mkpath(QFileInfo(path).path()) && QDir().mkdir(path, ownerOnly)) ||
           QFileInfo(path).isDir();
}

QString replaceFile(const QString &path, const QByteArray &content)
{
    const QString folder = QFileInfo(path).path();
    if (!makeFolder(folder))
        return QStringLiteral("cannot create the folder ") + folder;
    QSaveFile file(path);
    // A buffer that cannot be emptied, as on a full disk, would go unnoticed when the file takes its place.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return file.errorString();
    for (qint64 done = 0; done < content.size();) {
        const qint64 size = file.write(content.constData() + done, content.size() - done);
        if (size <= 0)
            return file.errorString();
        done += size;
    }
    return file.commit() ? QString() : file.errorString();
}

}

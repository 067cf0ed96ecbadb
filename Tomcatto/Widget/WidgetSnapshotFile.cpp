#include "Widget/WidgetSnapshotFile.h"

#include "Widget/SharedJSON.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace tomcatto {

WidgetSnapshotFile::WidgetSnapshotFile(QString path)
    : m_path(std::move(path))
{
}

std::expected<void, QString> WidgetSnapshotFile::write(const WidgetSnapshot &snapshot, WidgetCenter &widgetCenter) const
{
    const QString folder = QFileInfo(m_path).path();
    if (!QDir().mkpath(folder))
        return std::unexpected(QStringLiteral("%1: the folder cannot be made").arg(folder));
    // One name for all of them: what a killed writer leaves behind is the next one's.
    QFile part(m_path + QStringLiteral(".part"));
    const QByteArray text = SharedJSON::encode(snapshot);
    const bool isWritten =
        part.open(QIODevice::WriteOnly | QIODevice::Truncate) && part.write(text) == text.size() && part.flush();
    part.close();
    if (!isWritten || part.error() != QFileDevice::NoError)
        return std::unexpected(QStringLiteral("%1: %2").arg(part.fileName(), part.errorString()));
    if (const std::error_code error = widgetCenter.replaceFile(part.fileName(), m_path))
        return std::unexpected(QStringLiteral("%1: %2").arg(m_path, QString::fromStdString(error.message())));
    return {};
}

std::expected<WidgetSnapshot, QString> WidgetSnapshotFile::read() const
{
    // To open a pipe would wait for its other end.
    if (const QFileInfo info(m_path); info.exists() && !info.isFile())
        return std::unexpected(QStringLiteral("not a file"));
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return std::unexpected(file.errorString());
    // A snapshot has some 400 bytes; what is larger is something else.
    constexpr qint64 mostBytes = qint64{64} * 1024;
    return SharedJSON::decode(file.read(mostBytes));
}

}

#pragma once

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtCore/QUuid>
#include <QtDBus/QDBusConnection>

namespace tomcatto {

/// A message bus of its own that starts no services. Connections to it end with it.
class PrivateBus final
{
public:
    PrivateBus()
    {
        QFile file(m_folder.filePath(QStringLiteral("bus.conf")));
        const QByteArray place = m_folder.path().toUtf8();
        if (file.open(QIODevice::WriteOnly))
            file.write("<busconfig><listen>unix:dir=" + place +
                       "</listen><policy context='default'><allow send_destination='*'/><allow receive_sender='*'/>"
                       "<allow own='*'/></policy></busconfig>");
        file.close();
        m_daemon.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                                                       QStringLiteral("--config-file=") + file.fileName()});
        m_daemon.waitForReadyRead();
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;
    ~PrivateBus()
    {
        for (const QString &name : m_connections)
            QDBusConnection::disconnectFromBus(name);
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    [[nodiscard]] QDBusConnection connection()
    {
        m_connections << QUuid::createUuid().toString();
        return QDBusConnection::connectToBus(m_address, m_connections.constLast());
    }
    [[nodiscard]] const QString &address() const { return m_address; }

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QStringList m_connections;
};

}

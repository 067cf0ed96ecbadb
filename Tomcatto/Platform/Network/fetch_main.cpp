// Fetches over HTTP for the application that has started it, until that one closes the input: what it reads there are
// orders, and its output is news. Called with "--findings", it tells whether it could speak to servers.

#include "Foundation/TrustedAddress.h"
#include "Platform/Network/FetchDesk.h"
#include "Platform/Ports/Finding.h"

#include <csignal>
#include <cstdio>
#include <QtCore/QCoreApplication>
#include <QtNetwork/QNetworkProxyFactory>
#include <QtNetwork/QSslConfiguration>
#include <QtNetwork/QSslSocket>
#include <unistd.h>

namespace {

/// The system's proxies, but for this machine itself.
class ProxiesForOthers final : public QNetworkProxyFactory
{
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery &query) override
    {
        return tomcatto::isLoopback(query.url()) ? QList{QNetworkProxy(QNetworkProxy::NoProxy)}
                                                 : systemProxyForQuery(query);
    }
};

/// As other programs do, trusts authorities in a file that the environment names, beside those of the system.
void trustNamedAuthorities()
{
    const QString file = qEnvironmentVariable("SSL_CERT_FILE");
    if (file.isEmpty())
        return;
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.addCaCertificates(file);
    QSslConfiguration::setDefaultConfiguration(configuration);
}

tomcatto::Finding findSecurity()
{
    using tomcatto::Finding;
    const QString part = QStringLiteral("network");
    const QString loss = QStringLiteral(", so no videos can be downloaded");
    if (!QSslSocket::supportsSsl())
        return {part, Finding::Mark::lacking, QStringLiteral("Qt finds no library for secure connections") + loss,
                QStringLiteral("Install libssl3")};
    if (QSslConfiguration::systemCaCertificates().empty())
        return {part, Finding::Mark::lacking, QStringLiteral("the system trusts no authority for certificates") + loss,
                QStringLiteral("Install ca-certificates")};
    return {part, Finding::Mark::there, QSslSocket::sslLibraryVersionString(), {}};
}

}

int main(int argc, char **argv)
{
    std::signal(SIGPIPE, SIG_IGN);
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.mid(1) == QStringList(QStringLiteral("--findings"))) {
        std::fputs(tomcatto::findingLine(findSecurity()).constData(), stdout);
        return 0;
    }
    // What libraries print must not lie between the news.
    const int news = ::dup(STDOUT_FILENO);
    if (arguments.size() != 4 || news < 0 || ::dup2(STDERR_FILENO, STDOUT_FILENO) < 0)
        return 2;
    QNetworkProxyFactory::setApplicationProxyFactory(new ProxiesForOthers);
    trustNamedAuthorities();
    const tomcatto::FetchDesk desk(arguments.at(1), arguments.at(2).toLongLong(), arguments.at(3).toLongLong(), news);
    return QCoreApplication::exec();
}

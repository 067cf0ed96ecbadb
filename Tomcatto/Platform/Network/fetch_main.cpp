// Fetches over HTTP for the application that has started it, until that one closes the input: what it reads there are
// orders, and its output is news.

#include "Foundation/TrustedAddress.h"
#include "Platform/Network/FetchDesk.h"

#include <csignal>
#include <QtCore/QCoreApplication>
#include <QtNetwork/QNetworkProxyFactory>
#include <QtNetwork/QSslConfiguration>
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

}

int main(int argc, char **argv)
{
    std::signal(SIGPIPE, SIG_IGN);
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    // What libraries print must not lie between the news.
    const int news = ::dup(STDOUT_FILENO);
    if (arguments.size() != 4 || news < 0 || ::dup2(STDERR_FILENO, STDOUT_FILENO) < 0)
        return 2;
    QNetworkProxyFactory::setApplicationProxyFactory(new ProxiesForOthers);
    trustNamedAuthorities();
    const tomcatto::FetchDesk desk(arguments.at(1), arguments.at(2).toLongLong(), arguments.at(3).toLongLong(), news);
    return QCoreApplication::exec();
}

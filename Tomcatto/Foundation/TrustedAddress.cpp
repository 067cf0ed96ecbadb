#include "Foundation/TrustedAddress.h"

#include <QtCore/QRegularExpression>

namespace tomcatto {

bool isLoopback(const QUrl &address)
{
    static const QRegularExpression ownNumber(QStringLiteral("^127\\.\\d{1,3}\\.\\d{1,3}\\.\\d{1,3}$"));
    const QString host = address.host();
    return host == QLatin1String("localhost") || host == QLatin1String("::1") || ownNumber.match(host).hasMatch();
}

bool isTrustedAddress(const QUrl &address)
{
    if (!address.isValid() || address.host().isEmpty())
        return false;
    return address.scheme() == QLatin1String("https") ||
           (address.scheme() == QLatin1String("http") && isLoopback(address));
}

bool isTrustedRedirect(const QUrl &from, const QUrl &to)
{
    return isTrustedAddress(to) && (!isLoopback(to) || isLoopback(from));
}

}

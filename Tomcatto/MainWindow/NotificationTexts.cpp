#include "MainWindow/NotificationTexts.h"

namespace tomcatto {

QString allowedNotificationsText(const quillbay::NotificationAuthorization &authorization,
                                 const LocalizedStrings &strings, const QString &usualKey)
{
    const QString key = QStringLiteral("window.permissions.notifications.");
    const QString &server = authorization.serverName();
    if (authorization.hasActions())
        return server.isEmpty() ? strings.text(usualKey) : strings.format(key + QStringLiteral("help_by"), server);
    return server.isEmpty() ? strings.text(key + QStringLiteral("help_no_actions"))
                            : strings.format(key + QStringLiteral("help_by_no_actions"), server);
}

}

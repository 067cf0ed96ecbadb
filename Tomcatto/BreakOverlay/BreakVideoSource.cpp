#include "BreakOverlay/BreakVideoSource.h"

#include <QtCore/QFileInfo>

namespace tomcatto {

QUrl posterBeside(const QUrl &video)
{
    if (!video.isLocalFile())
        return {};
    const QFileInfo file(video.toLocalFile());
    const QString poster = file.path() + QStringLiteral("/posters/") + file.completeBaseName() + QStringLiteral(".jpg");
    return QFileInfo::exists(poster) ? QUrl::fromLocalFile(poster) : QUrl();
}

}

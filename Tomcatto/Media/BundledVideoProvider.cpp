#include "Media/BundledVideoProvider.h"

#include "Foundation/Logger.h"

#include <QtCore/QDir>

namespace tomcatto {

BundledVideoProvider::BundledVideoProvider(const QString &directory)
{
    QStringList names = QDir(directory).entryList(QDir::Files, QDir::NoSort);
    // A name filter of QDir is a regular expression; the library for those would stay in memory for this alone.
    names.removeIf([](const QString &name) { return !name.endsWith(QLatin1String(".mp4")); });
    if (names.isEmpty())
        Logger(QStringLiteral("BundledVideoProvider"))
            .error(QStringLiteral("BundledVideos directory missing or empty in main bundle"));
    names.sort(Qt::CaseSensitive);
    m_candidates.reserve(static_cast<std::size_t>(names.size()));
    for (const QString &name : names)
        m_candidates.push_back({LocalVideoCandidate::Origin::bundled, name.left(name.lastIndexOf(QLatin1Char('.'))),
                                QUrl::fromLocalFile(QDir(directory).absoluteFilePath(name))});
}

}

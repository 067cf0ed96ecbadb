#include "Platform/Sets/PosixFindings.h"

#include "Platform/Posix/DisplayProbe.h"
#include "Platform/Qt/DefaultsFile.h"

#include <QtCore/QFileInfo>

namespace tomcatto {

namespace {

using Mark = Finding::Mark;

/// The folder that something is to be made in, or the first one above it that is there.
QFileInfo nearestFolder(const QString &path)
{
    QFileInfo folder(QFileInfo(path).path());
    while (!folder.exists() && !folder.isRoot())
        folder.setFile(folder.path());
    return folder;
}

/// A file that the application writes where it does not lie yet, too.
Finding findPlace(const QString &part, const QString &path)
{
    if (path.isEmpty())
        return {part, Mark::failing, QStringLiteral("it has no place"),
                QStringLiteral("Set HOME to the path of your home folder")};
    const QFileInfo file(path);
    const QFileInfo folder = nearestFolder(path);
    if (!folder.isDir() || !folder.isWritable())
        return {part, Mark::failing, QStringLiteral("%1: nothing can be written to %2").arg(path, folder.filePath()),
                QStringLiteral("Make that folder yours and writable")};
    if (file.exists() && !file.isReadable())
        return {part, Mark::failing, path + QStringLiteral(": it cannot be read"),
                QStringLiteral("Make the file yours and readable")};
    return {part, Mark::there, file.exists() ? path : path + QStringLiteral(", not made yet"), {}};
}

Finding findSettings(const QString &path)
{
    Finding place = findPlace(QStringLiteral("settings"), path);
    if (place.mark != Mark::there)
        return place;
    const DefaultsFile::Content content = DefaultsFile(path).read();
    if (content.state == DefaultsFile::State::sound)
        return place;
    return {place.part, Mark::failing, path + QStringLiteral(": ") + content.problem,
            QStringLiteral("Put a copy of yours in its place; the next start sets this one aside and begins anew")};
}

Finding findSounds(const CompanionSounds::Finder &findSound)
{
    const QString part = QStringLiteral("sounds");
    QStringList files;
    for (const QString &name : {QStringLiteral("Glass"), QStringLiteral("Pop")}) {
        const QString file = findSound(name);
        if (file.isEmpty())
            return {part, Mark::lacking, QStringLiteral("there is no sound \"%1\"").arg(name),
                    QStringLiteral("Install Tomcatto completely")};
        files << file;
    }
    return {part, Mark::there, files.join(QStringLiteral(", ")), {}};
}

/// The display is looked at by the program that would open it.
Findings findWithCompanions(const std::vector<FindingCompanion> &own)
{
    std::vector<FindingCompanion> companions{
        {QStringLiteral("tomcatto-sound"), QStringLiteral("audio"), QStringLiteral("phases end without a sound")},
        {QStringLiteral("tomcatto-film"), QStringLiteral("codecs"), QStringLiteral("breaks show no film")},
        {QStringLiteral("tomcatto-fetch"), QStringLiteral("network"), QStringLiteral("no videos can be downloaded")}};
    companions.insert(companions.end(), own.begin(), own.end());
    if (DisplayProbe().isReachable()) {
        companions.insert(companions.begin(), {QStringLiteral("tomcatto-desktop"), QStringLiteral("display"),
                                               QStringLiteral("Tomcatto runs in the terminal alone")});
        return companionFindings(companions);
    }
    Findings findings{{QStringLiteral("display"), Mark::lacking,
                       QStringLiteral("none answers, so Tomcatto runs in the terminal"),
                       QStringLiteral("Start it within a desktop; WAYLAND_DISPLAY or DISPLAY names the display")}};
    const Findings others = companionFindings(companions);
    findings.insert(findings.end(), others.begin(), others.end());
    return findings;
}

}

Findings posixFindings(const ApplicationDirectories &directories, const std::function<Findings()> &findOwn,
                       const std::vector<FindingCompanion> &ownCompanions, const CompanionSounds::Finder &findSound)
{
    const QString downloads = directories.applicationSupport().value_or(QString());
    Findings findings{
        findPlace(QStringLiteral("downloads"),
                  downloads.isEmpty() ? downloads : downloads + QStringLiteral("/Tomcatto/RemoteVideoCache")),
        findSettings(directories.userDefaultsFile()),
        findPlace(QStringLiteral("snapshot"), directories.widgetSnapshotFile()),
        findPlace(QStringLiteral("socket"), directories.controlSocket())};
    for (const Findings &more : {findOwn(), findWithCompanions(ownCompanions), Findings{findSounds(findSound)}})
        findings.insert(findings.end(), more.begin(), more.end());
    return findings;
}

}

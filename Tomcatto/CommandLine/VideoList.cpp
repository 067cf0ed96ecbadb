#include "CommandLine/VideoList.h"

#include "CommandLine/HistoryReports.h"
#include "Media/UserVideoCommands.h"
#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/UserVideoRepository.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QFileInfo>

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::chrono::seconds patience{5};

/// A name may hold line breaks and what steers a terminal.
QString onOneLine(QString name)
{
    for (QChar &character : name) {
        const QChar::Category category = character.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line ||
            category == QChar::Separator_Paragraph)
            character = QLatin1Char('?');
    }
    return name;
}

/// What one video's line in the list has, by columns.
QString videoLine(const QString &id, bool isSelected, double seconds, const QString &name, const QString &place)
{
    const QString selected = isSelected ? QStringLiteral("selected") : QStringLiteral("-");
    return QStringList{onOneLine(id), selected, QString::number(seconds, 'f', 1), onOneLine(name), onOneLine(place)}
        .join(QLatin1Char('\t'));
}

}

ControlReply VideoList::reply() const
{
    const auto own = ownVideos();
    if (!own)
        return controlReply(ExitStatus::failed, QStringLiteral("The videos cannot be read; the log says why."));
    const QStringList lines = *own + remoteVideos();
    return {ExitStatus::done, lines.join(QLatin1Char('\n')), {}};
}

std::optional<QStringList> VideoList::ownVideos() const
{
    const auto &support = m_surroundings.applicationSupportDirectory;
    if (HistoryReports::hasNoStore(support))
        return QStringList();
    CoreDataStack stack(support);
    UserVideoRepository repository(stack, m_surroundings.wallClock, m_surroundings.identifiers,
                                   *m_surroundings.bookmarks, m_surroundings.stillFrame);
    bool hasFailed = false;
    QObject::connect(&repository, &UserVideoRepository::fetchFailed, &repository, [&hasFailed] { hasFailed = true; });
    const UserVideoCommands videos(repository, m_surroundings.stillFrame, m_surroundings.runLoop);
    QStringList lines;
    for (const UserVideoListing &line : videos.list()) {
        const UserVideo &video = line.video;
        lines << videoLine(identifierText(video.id), video.userSelected, video.durationSeconds, video.displayName,
                           line.path.isEmpty() ? QStringLiteral("(not found)") : line.path);
    }
    return hasFailed ? std::nullopt : std::optional(lines);
}

QStringList VideoList::remoteVideos() const
{
    const auto &support = m_surroundings.applicationSupportDirectory;
    if (!support || !m_surroundings.remoteManifestUrl())
        return {};
    // A running application knows what is not on disk yet.
    const auto answer = m_client.ask({QStringLiteral("videos"), {{"action", "list"}}, false}, QDeadlineTimer(patience));
    const Json entries = answer && answer->result.is_array()
                             ? answer->result
                             : m_files.remoteVideos(QFileInfo(CoreDataStack::storePath(*support)).path());
    QStringList lines;
    for (const Json &entry : entries) {
        // The user's own have none.
        if (!entry.contains("state"))
            continue;
        const QString path = textArgument(entry, "path");
        const bool isComing = entry.value("state", "") == "downloading";
        lines << videoLine(textArgument(entry, "id"), entry.value("isSelected", false), entry.value("seconds", 0.0),
                           textArgument(entry, "name"),
                           !path.isEmpty() ? path
                           : isComing      ? QStringLiteral("(downloading)")
                                           : QStringLiteral("(not downloaded)"));
    }
    return lines;
}

}

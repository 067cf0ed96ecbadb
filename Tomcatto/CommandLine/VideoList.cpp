#include "CommandLine/VideoList.h"

#include "CommandLine/HistoryReports.h"
#include "Media/VideoFiles.h"
#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/UserVideoRepository.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QEventLoop>
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

/// Where the files of videos are. Runs the main loop until the disks have answered, or a person has waited long enough.
VideoFiles::Places placesOf(const std::vector<UserVideo> &videos, VideoFiles &files)
{
    QEventLoop waiting;
    VideoFiles::Places found;
    files.find(videos, VideoFiles::longPatience, [&waiting, &found](const VideoFiles::Places &places) {
        found = places;
        waiting.quit();
    });
    waiting.exec();
    return found;
}

QString textOf(const VideoPlace &place)
{
    switch (place.state) {
    case VideoPlace::State::silent:
        return QStringLiteral("(its disk does not answer)");
    case VideoPlace::State::lost:
        return QStringLiteral("(not found)");
    case VideoPlace::State::found:
        return place.fileUrl.toLocalFile();
    }
    return {};
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
    const std::vector<UserVideo> videos = repository.allVideos();
    VideoFiles files(repository, m_surroundings.bookmarks, m_surroundings.runLoop);
    const VideoFiles::Places places = placesOf(videos, files);
    QStringList lines;
    for (std::size_t row = 0; row < places.size(); ++row) {
        const UserVideo &video = videos.at(row);
        lines << videoLine(identifierText(video.id), video.userSelected, video.durationSeconds, video.displayName,
                           textOf(places.at(row)));
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

#include "CommandLine/FileCommands.h"

#include "Composition/HistoryCommands.h"
#include "Composition/SettingsCommands.h"
#include "Composition/ShortcutCommands.h"
#include "Composition/VideoCommands.h"
#include "Media/RemoteLibrary.h"
#include "Media/VideoFileValidator.h"
#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/UserVideoRepository.h"
#include "Persistence/StoreReplacement.h"
#include "Recording/InFlightSessionRecovery.h"
#include "Recording/InFlightSessionStore.h"

#include <algorithm>
#include <QtCore/QEventLoop>
#include <QtCore/QFileInfo>
#include <QtCore/QRandomGenerator>

namespace tomcatto {

namespace {

/// Runs a command, and the main loop until it has answered.
ControlReply answerOf(const CommandTable &commands, const QString &name, const nlohmann::ordered_json &arguments)
{
    QEventLoop waiting;
    std::optional<ControlReply> answer;
    commands.run(name, arguments, [&waiting, &answer](const ControlReply &reply) {
        answer = reply;
        waiting.quit();
    });
    if (!answer)
        waiting.exec();
    return std::move(answer).value_or(ControlReply{});
}

/// Shows the list that was kept on disk, as a running application does that does not reach the server.
void showLastList(RemoteVideoProvider &provider)
{
    if (!provider.isEnabled())
        return;
    QEventLoop waiting;
    provider.showLast([&waiting] { waiting.quit(); });
    waiting.exec();
}

/// What an application that ended without an answer has done of a request all the same.
std::optional<ControlReply> doneSince(Date asked, const UserVideoRepository &repository,
                                      const nlohmann::ordered_json &arguments)
{
    const std::string action = arguments.value("action", std::string());
    const QUuid id = QUuid::fromString(QString::fromStdString(arguments.value("id", std::string())));
    const QFileInfo file(QString::fromStdString(arguments.value("path", std::string())));
    const std::vector<UserVideo> videos = repository.allVideos();
    const auto isOfFile = [&](const UserVideo &video) {
        const auto place = repository.resolveBookmark(video, QDeadlineTimer(0));
        return place && QFileInfo(place->fileUrl.toLocalFile()) == file;
    };
    const auto found = std::ranges::find_if(videos, [&](const UserVideo &video) {
        return action == "add" ? video.addedAt >= asked && isOfFile(video) : video.id == id;
    });
    if (action == "add" && found != videos.end())
        return controlReply(ExitStatus::done, identifierText(found->id));
    return action == "remove" && found == videos.end() ? std::optional(ControlReply{}) : std::nullopt;
}

/// The phase that the next start of the application will record, with the end that it will have.
std::optional<EndedPhase> phaseLeftBehind(const InFlightSessionStore &store, const WallClock &clock)
{
    const auto marker = store.load();
    const auto request = marker ? recoveredRequest(*marker, clock.now(), clock.calendar(), {}) : std::nullopt;
    if (!request)
        return std::nullopt;
    EndedPhase phase;
    phase.phase = request->phase;
    phase.startedAt = request->startedAt;
    phase.endedAt = request->endedAt;
    return phase;
}

}

std::expected<VideoLook, StillFrameFailure> RememberedLook::look(const QString &path, StillFrameRequest request,
                                                                 std::stop_token stop) const
{
    if (m_path != path)
        m_look = m_stillFrame.look(path, request, std::move(stop));
    m_path = path;
    return m_look;
}

FileCommands::FileCommands(const CommandSurroundings &surroundings)
    : m_surroundings(surroundings)
    , m_look(surroundings.stillFrame)
{
}

ControlReply FileCommands::run(const ControlRequest &request, std::optional<Date> askedSince,
                               const std::function<void(double)> &onProgress) const
{
    if (request.command == QStringLiteral("history") &&
        textArgument(request.arguments, "action") == QStringLiteral("restore"))
        return restoreHistory(request.arguments, askedSince.has_value());
    if (request.command == QStringLiteral("history"))
        return history(request.arguments, askedSince.has_value());
    return request.command == QStringLiteral("videos") ? videos(request.arguments, askedSince, onProgress)
                                                       : withDefaults(request, false);
}

ControlReply FileCommands::read(const ControlRequest &request) const
{
    return withDefaults(request, true);
}

ControlReply FileCommands::withDefaults(const ControlRequest &request, bool isReadOnly) const
{
    const auto defaults = m_surroundings.openDefaults(isReadOnly);
    PomodoroSettings settings(*defaults);
    LaunchAtLoginService launchAtLogin(settings, m_surroundings.loginItem);
    CommandTable commands;
    MannersSettings manners(*defaults);
    addSettingsCommands(commands, {settings, launchAtLogin, manners, *defaults, {}});
    const LanguageOverrideService language(*defaults);
    const LocalizedStrings strings(language);
    ShortcutsService shortcuts(*defaults);
    addShortcutCommands(commands, {shortcuts, strings, *defaults, nullptr, {}});
    return answerOf(commands, request.command, request.arguments);
}

std::optional<ControlReply> FileCommands::refusal(const ControlRequest &request) const
{
    if (request.command != QStringLiteral("videos") || !request.arguments.contains("path"))
        return std::nullopt;
    const QString file = textArgument(request.arguments, "path");
    const auto valid = VideoFileValidator(m_look).validate(file, {});
    return valid ? std::nullopt : std::optional(controlReply(ExitStatus::failed, description(valid.error(), file)));
}

nlohmann::ordered_json FileCommands::remoteVideos(const QString &folder) const
{
    const auto defaults = m_surroundings.openDefaults(true);
    RemoteLibrary library(folder,
                          {m_surroundings.remoteManifestUrl(), m_surroundings.httpSession, *defaults,
                           m_surroundings.wallClock, *QRandomGenerator::global()},
                          RemoteVideoProvider::Seeds::wait);
    showLastList(library.provider);
    nlohmann::ordered_json lines = nlohmann::ordered_json::array();
    RemoteVideoCommands(library.provider).list(lines);
    return lines;
}

ControlReply FileCommands::history(const nlohmann::ordered_json &arguments, bool wasAsked) const
{
    CoreDataStack stack(m_surroundings.applicationSupportDirectory);
    const auto defaults = m_surroundings.openDefaults(true);
    const InFlightSessionStore marker(*defaults);
    const auto leftBehind = [&] { return phaseLeftBehind(marker, m_surroundings.wallClock); };
    HistoryEditor editor(stack, m_surroundings.wallClock, m_surroundings.identifiers, leftBehind);
    CommandTable commands;
    HistoryImporter importer(stack, m_surroundings.identifiers, m_surroundings.runLoop);
    addHistoryCommands(commands, {editor, importer, m_surroundings.wallClock, stack});
    ControlReply reply = answerOf(commands, QStringLiteral("history"), arguments);
    // The application that got the request may have removed the phase already.
    const bool isDone = wasAsked && reply.status == ExitStatus::notApplicable &&
                        textArgument(arguments, "action") == QStringLiteral("remove");
    return isDone ? ControlReply{} : reply;
}

StoreCopyResult<QString> FileCommands::prepareStore(const QString &copy) const
{
    const auto &support = m_surroundings.applicationSupportDirectory;
    if (!support)
        return std::unexpected(Refusal{Refusal::Kind::failed, QStringLiteral("There is no place for the history.")});
    return storeReplacement::prepare(copy, CoreDataStack::storePath(*support));
}

ControlReply FileCommands::restoreHistory(const nlohmann::ordered_json &arguments, bool wasAsked) const
{
    const QString prepared = textArgument(arguments, "path");
    // The application that got the request may have put it in place before it ended.
    if (wasAsked && !QFileInfo::exists(prepared))
        return ControlReply{};
    const auto &support = m_surroundings.applicationSupportDirectory;
    if (!support)
        return controlReply(ExitStatus::failed, QStringLiteral("There is no place for the history."));
    // Without the store's own classes, since it may be one that they cannot open.
    return replyTo(storeReplacement::putInPlace(prepared, CoreDataStack::storePath(*support),
                                                keptStoreName(m_surroundings.wallClock)));
}

ControlReply FileCommands::videos(nlohmann::ordered_json arguments, std::optional<Date> askedSince,
                                  const std::function<void(double)> &onProgress) const
{
    CoreDataStack stack(m_surroundings.applicationSupportDirectory);
    UserVideoRepository repository(stack, m_surroundings.wallClock, m_surroundings.identifiers,
                                   *m_surroundings.bookmarks, m_look);
    UserVideoCommands videos(repository, m_look, m_surroundings.runLoop);
    if (askedSince) {
        if (const auto done = doneSince(*askedSince, repository, arguments))
            return *done;
    }
    const auto defaults = m_surroundings.openDefaults(false);
    m_surroundings.httpSession.configureUrlCache(remoteLibraryUrlCache);
    RemoteLibrary library(QFileInfo(stack.storePath()).path(),
                          {m_surroundings.remoteManifestUrl(), m_surroundings.httpSession, *defaults,
                           m_surroundings.wallClock, *QRandomGenerator::global()},
                          RemoteVideoProvider::Seeds::wait);
    const QString id = textArgument(arguments, "id");
    QObject::connect(&library.provider, &RemoteVideoProvider::entryChanged, &library.provider, [&](qsizetype place) {
        const RemoteVideoEntryView &entry = library.provider.entries().at(static_cast<std::size_t>(place));
        if (onProgress && entry.id == id && entry.isDownloading)
            onProgress(entry.downloadProgress);
    });
    // The others begin with a new list.
    const QString action = textArgument(arguments, "action");
    if (action != QStringLiteral("download") && action != QStringLiteral("refresh"))
        showLastList(library.provider);
    // Nobody else asks how far it is.
    arguments.erase("isWatched");
    CommandTable commands;
    addVideoCommands(commands, videos, library.provider);
    return answerOf(commands, QStringLiteral("videos"), arguments);
}

}

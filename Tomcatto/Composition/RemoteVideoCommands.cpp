#include "Composition/RemoteVideoCommands.h"

#include "Platform/Ports/IdentifierSource.h"

#include <algorithm>
#include <QtCore/QPointer>

namespace tomcatto {

namespace {

using Json = nlohmann::ordered_json;
using Outcome = RemoteVideoProvider::DownloadOutcome;

// In the order of `RemoteVideoEntryView::DisplayState`.
constexpr std::array stateTexts{"downloading", "idle", "cachedInactive", "selected"};

ControlReply refusal(const QString &reason)
{
    return controlReply(ExitStatus::notApplicable, reason);
}

}

RemoteVideoCommands::RemoteVideoCommands(RemoteVideoProvider &provider, QObject *parent)
    : QObject(parent)
    , m_provider(provider)
{
}

void RemoteVideoCommands::list(Json &lines) const
{
    for (const RemoteVideoEntryView &entry : m_provider.entries())
        lines.push_back({{"id", entry.id.toStdString()},
                         {"name", entry.title.toStdString()},
                         {"seconds", entry.durationSec},
                         {"isSelected", entry.userSelected},
                         {"state", stateTexts.at(static_cast<std::size_t>(entry.displayState()))},
                         {"progress", entry.downloadProgress},
                         {"path", entry.localFileUrl.toLocalFile().toStdString()}});
}

bool RemoteVideoCommands::run(const QString &action, const Json &arguments, const CommandTable::Answer &answer)
{
    const QString id = textArgument(arguments, "id");
    if (action == QStringLiteral("refresh")) {
        m_provider.refresh(true, [self = QPointer(this), answer] {
            if (self)
                answer(self->refreshed());
        });
        return true;
    }
    if (action == QStringLiteral("download")) {
        const bool isWatched = arguments.value("isWatched", Json(false)) == Json(true);
        download(id, isWatched, answer);
        return true;
    }
    if (action == QStringLiteral("progress")) {
        answer(progress(id));
        return true;
    }
    return isOurs(id) && change(action, id, answer);
}

ControlReply RemoteVideoCommands::refreshed() const
{
    if (!m_provider.isEnabled())
        return refusal(description(RemoteManifestClientError::missingURL));
    if (m_provider.status().error)
        return refusal(m_provider.status().message());
    if (const auto reason = m_provider.offlineReason())
        return refusal(description(*reason) + QStringLiteral(" The list is the one it had last."));
    return controlReply(ExitStatus::done, QStringLiteral("%1 videos").arg(m_provider.entries().size()));
}

void RemoteVideoCommands::download(const QString &id, bool isWatched, const CommandTable::Answer &answer)
{
    if (m_provider.contains(id))
        return begin(id, isWatched, answer);
    // It may be new, or nothing was fetched yet.
    m_provider.refresh(false, [self = QPointer(this), id, isWatched, answer] {
        if (self)
            self->begin(id, isWatched, answer);
    });
}

void RemoteVideoCommands::begin(const QString &id, bool isWatched, const CommandTable::Answer &answer)
{
    if (!m_provider.contains(id) && (!m_provider.isEnabled() || m_provider.status().error))
        return answer(refreshed());
    m_ended.erase(id);
    const auto isAnswered = std::make_shared<bool>(false);
    m_provider.download(id, [self = QPointer(this), id, isAnswered, answer](Outcome outcome) {
        if (!self)
            return;
        const ControlReply reply = self->ended(id, outcome);
        if (std::exchange(*isAnswered, true))
            self->m_ended.insert_or_assign(id, reply);
        else
            answer(reply);
    });
    // A watcher asks how far it is.
    if (isWatched && !std::exchange(*isAnswered, true))
        answer({ExitStatus::done, {}, {{"progress", 0.0}}});
}

ControlReply RemoteVideoCommands::ended(const QString &id, Outcome outcome) const
{
    switch (outcome) {
    case Outcome::done:
        return controlReply(ExitStatus::done, QStringLiteral("%1 is downloaded; breaks play it.").arg(id));
    case Outcome::notInManifest:
        return refusal(QStringLiteral("There is no video \"%1\" in the library; see videos list.").arg(id));
    case Outcome::unreachable:
        return refusal(description(RemoteVideoDownloaderError::networkFailure));
    case Outcome::refused:
        return refusal(description(RemoteVideoDownloaderError::invalidResponse));
    case Outcome::notStored:
        return controlReply(ExitStatus::failed, description(RemoteVideoDownloaderError::fileMoveFailed));
    }
    return {};
}

ControlReply RemoteVideoCommands::progress(const QString &id) const
{
    // It stays: another may be watching.
    if (const auto ended = m_ended.find(id); ended != m_ended.end())
        return ended->second;
    const auto entry = std::ranges::find(m_provider.entries(), id, &RemoteVideoEntryView::id);
    if (entry == m_provider.entries().end() || !entry->isDownloading)
        return refusal(QStringLiteral("\"%1\" is not being downloaded.").arg(id));
    return {ExitStatus::done, {}, {{"progress", entry->downloadProgress}}};
}

bool RemoteVideoCommands::isOurs(const QString &id) const
{
    // The user's own have other identifiers.
    const bool isOwn = identifierFromText(id).has_value();
    return m_provider.contains(id) || m_provider.isDownloaded(id) || (m_provider.isEnabled() && !isOwn);
}

bool RemoteVideoCommands::change(const QString &action, const QString &id, const CommandTable::Answer &answer)
{
    bool isDone = false;
    if (action == QStringLiteral("select"))
        isDone = m_provider.setSelected(id, true);
    else if (action == QStringLiteral("deselect"))
        isDone = m_provider.setSelected(id, false);
    else if (action == QStringLiteral("remove"))
        isDone = m_provider.remove(id);
    else
        return false;
    if (isDone)
        answer({});
    else if (m_provider.contains(id))
        answer(refusal(QStringLiteral("\"%1\" is not downloaded; see videos download.").arg(id)));
    else
        answer(ended(id, Outcome::notInManifest));
    return true;
}

}

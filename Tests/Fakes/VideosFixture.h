#pragma once

#include "Fakes/FakeHttpSession.h"
#include "Fakes/FakeUserDefaults.h"
#include "Fakes/ManualRunLoop.h"
#include "Fakes/ManualWallClock.h"
#include "Fakes/SequentialIdentifiers.h"
#include "Media/MovedVideoSearch.h"
#include "Media/RemoteLibrary.h"
#include "Media/RemoteStills.h"
#include "Media/UserVideoCommands.h"
#include "Media/VideoFiles.h"
#include "Media/VideoProviding.h"
#include "Persistence/CoreDataStack.h"
#include "Persistence/Repositories/UserVideoRepository.h"

#include <QtCore/QFileInfo>
#include <QtCore/QRandomGenerator>
#include <QtCore/QTemporaryDir>

namespace tomcatto {

/// Bookmarks that are the path alone. A file that was moved is found by those who look for longer than a moment.
class PathBookmarks final : public Bookmarks
{
public:
    [[nodiscard]] std::optional<QByteArray> bookmarkData(const QUrl &fileUrl) const override
    {
        const QString path = fileUrl.toLocalFile();
        return QFileInfo::exists(path) ? std::optional(path.toUtf8()) : std::nullopt;
    }
    [[nodiscard]] std::optional<ResolvedBookmark> resolve(const QByteArray &data, QDeadlineTimer until) const override
    {
        const QString path = QString::fromUtf8(data);
        if (path == movedFrom && until.remainingTime() > 500)
            return ResolvedBookmark{QUrl::fromLocalFile(movedTo), true};
        return QFileInfo::exists(path) ? std::optional(ResolvedBookmark{QUrl::fromLocalFile(path)}) : std::nullopt;
    }
    [[nodiscard]] QByteArray disk(const QByteArray &) const override { return {}; }
    [[nodiscard]] bool startAccess(const QUrl &) const override { return true; }
    void stopAccess(const QUrl &) const override {}

    QString movedFrom;
    QString movedTo;
};

/// Reads what a test puts in the file: "sound" has no picture, "text" is not a container, the rest is itself the
/// picture.
class TextStillFrame final : public StillFrame
{
public:
    [[nodiscard]] std::expected<VideoLook, StillFrameFailure> look(const QString &path, StillFrameRequest,
                                                                   std::stop_token) const override
    {
        const QByteArray content = read(path);
        if (content == "sound")
            return std::unexpected(StillFrameFailure::noPicture);
        if (content == "text")
            return std::unexpected(StillFrameFailure::noContainer);
        return VideoLook{12.5, content};
    }

private:
    static QByteArray read(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

class ChosenBundledVideos final : public BundledVideoProviding
{
public:
    [[nodiscard]] const std::vector<LocalVideoCandidate> &candidates() const override { return videos; }

    std::vector<LocalVideoCandidate> videos;
};

/// The user's videos in a store of their own, those that come along, and a remote library where it has an address.
class VideosFixture
{
public:
    explicit VideosFixture(const std::optional<QString> &remoteAddress = {})
        : remote(folder.path(), {remoteAddress, http, defaults, clock, random}, RemoteVideoProvider::Seeds::wait)
    {
    }

    QTemporaryDir folder;
    ManualWallClock clock;
    SequentialIdentifiers identifiers;
    std::shared_ptr<PathBookmarks> bookmarks = std::make_shared<PathBookmarks>();
    TextStillFrame stillFrame;
    ManualRunLoop runLoop;
    CoreDataStack stack{folder.path()};
    UserVideoRepository repository{stack, clock, identifiers, *bookmarks, stillFrame};
    MovedVideoSearch movedVideoSearch{repository, bookmarks, runLoop};
    VideoFiles files{repository, bookmarks, runLoop};
    UserVideoCommands commands{repository, stillFrame, runLoop};
    ChosenBundledVideos bundled;
    FakeHttpSession http;
    FakeUserDefaults defaults;
    QRandomGenerator random{7};
    RemoteLibrary remote;
    RemoteStills remoteStills{http, stillFrame, runLoop};
};

}

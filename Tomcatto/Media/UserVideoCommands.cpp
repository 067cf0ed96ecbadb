#include "Media/UserVideoCommands.h"

#include "Persistence/Repositories/UserVideoRepository.h"
#include "Platform/Ports/IdentifierSource.h"

#include <QtCore/QDir>

namespace tomcatto {

namespace {

using Kind = Refusal::Kind;

constexpr std::chrono::seconds diskPatience{8};

UserVideoCommandError refusal(VideoFileError error, const QString &path)
{
    return {{Kind::failed, description(error, path)}, error};
}

UserVideoCommandError storeError()
{
    return {{Kind::failed, QStringLiteral("The store could not be written; the log tells why.")}, {}};
}

UserVideoCommands::Result resultOf(const std::expected<UserVideoSave, UserVideoRepositoryError> &written,
                                   const QString &id)
{
    if (!written)
        return std::unexpected(
            UserVideoCommandError{{Kind::notApplicable, QStringLiteral("There is no video \"%1\".").arg(id)}, {}});
    if (*written == UserVideoSave::failed)
        return std::unexpected(storeError());
    return {};
}

}

UserVideoCommands::UserVideoCommands(UserVideoRepository &repository, const StillFrame &stillFrame,
                                     MainRunLoop &runLoop, QObject *parent)
    : QObject(parent)
    , m_repository(repository)
    , m_validator(stillFrame)
    , m_disks(runLoop)
{
}

UserVideoCommands::~UserVideoCommands()
{
    m_stop.request_stop();
    m_queue.drain();
}

std::vector<UserVideo> UserVideoCommands::stored() const
{
    return m_repository.allVideos();
}

void UserVideoCommands::add(const QString &path, std::function<void(const AddResult &)> done)
{
    if (!QDir::isAbsolutePath(path)) {
        done(std::unexpected(
            UserVideoCommandError{{Kind::usage, QStringLiteral("\"%1\" is not an absolute path.").arg(path)}, {}}));
        return;
    }
    // A disk that hangs must not hold up the queue, and with it the end.
    using Start = std::expected<QByteArray, VideoFileError>;
    m_disks.ask<Start>({{path.toUtf8(), [path] { return VideoFileValidator::firstSight(path); }}}, diskPatience,
                       [this, path, done = std::move(done)](const std::vector<std::optional<Start>> &answers) {
                           const Start start = answers.front().value_or(std::unexpected(VideoFileError::timedOut));
                           if (start)
                               validate(path, *start, done);
                           else
                               done(std::unexpected(refusal(start.error(), path)));
                       });
}

void UserVideoCommands::validate(const QString &path, const QByteArray &start,
                                 const std::function<void(const AddResult &)> &done)
{
    m_queue.async([this, path, start, done] {
        const auto valid = m_validator.validate(path, start, m_stop.get_token());
        QMetaObject::invokeMethod(
            this,
            [this, path, valid, done] {
                if (valid)
                    store(path, *valid, done);
                else
                    done(std::unexpected(refusal(valid.error(), path)));
            },
            Qt::QueuedConnection);
    });
}

void UserVideoCommands::store(const QString &path, const VideoLook &look,
                              const std::function<void(const AddResult &)> &done)
{
    const auto id = std::make_shared<QUuid>();
    *id = m_repository.addVideo(
        QUrl::fromLocalFile(path),
        [id, path, done](const std::expected<UserVideoSave, UserVideoRepositoryError> &written) {
            // A record that is gone again was added all the same.
            if (written == UserVideoSave::failed)
                done(std::unexpected(storeError()));
            else if (written == std::unexpected(UserVideoRepositoryError::bookmarkResolutionFailed))
                done(std::unexpected(refusal(VideoFileError::notFound, path)));
            else
                done(*id);
        },
        look);
}

void UserVideoCommands::remove(const QString &id, const std::function<void(const Result &)> &done)
{
    change(id, done, [this](const QUuid &uuid, UserVideoRepository::Completion completion) {
        m_repository.deleteVideo(uuid, std::move(completion));
    });
}

void UserVideoCommands::select(const QString &id, const std::function<void(const Result &)> &done)
{
    change(id, done, [this](const QUuid &uuid, UserVideoRepository::Completion completion) {
        m_repository.setSelected(uuid, true, std::move(completion));
    });
}

void UserVideoCommands::deselect(const QString &id, const std::function<void(const Result &)> &done)
{
    change(id, done, [this](const QUuid &uuid, UserVideoRepository::Completion completion) {
        m_repository.setSelected(uuid, false, std::move(completion));
    });
}

void UserVideoCommands::change(const QString &id, const std::function<void(const Result &)> &done,
                               const Operation &operation)
{
    const auto uuid = identifierFromText(id);
    if (!uuid) {
        done(std::unexpected(UserVideoCommandError{
            {Kind::usage, QStringLiteral("\"%1\" is not the id of a video; see videos list.").arg(id)}, {}}));
        return;
    }
    operation(*uuid, [id, done](const std::expected<UserVideoSave, UserVideoRepositoryError> &written) {
        done(resultOf(written, id));
    });
}

}

#pragma once

#include "Foundation/Refusal.h"
#include "Media/VideoFileValidator.h"
#include "Persistence/DiskQuestions.h"
#include "Persistence/Repositories/UserVideo.h"
#include "Persistence/SerialQueue.h"

#include <functional>
#include <QtCore/QObject>
#include <vector>

namespace tomcatto {

class UserVideoRepository;

/// Why a command on the user's videos was not done; `notApplicable` where no video has the id.
struct UserVideoCommandError : Refusal
{
    /// What is wrong with the file, where that is it.
    std::optional<VideoFileError> fileError;

    bool operator==(const UserVideoCommandError &) const = default;
};

/// What the command line and the videos page do with the user's videos: like the repository, but picky about files and
/// clear about errors. Main thread only.
class UserVideoCommands final : public QObject
{
    Q_OBJECT
public:
    using AddResult = std::expected<QUuid, UserVideoCommandError>;
    using Result = std::expected<void, UserVideoCommandError>;

    /// All outlive the commands.
    UserVideoCommands(UserVideoRepository &repository, const StillFrame &stillFrame, MainRunLoop &runLoop,
                      QObject *parent = nullptr);
    ~UserVideoCommands() override;

    /// Every video as it is stored, the earliest added first, without a look at its file.
    [[nodiscard]] std::vector<UserVideo> stored() const;
    /// Adds a video file after looking into it, in the background; `done` is called on the main thread when it is
    /// stored with length and thumbnail, or refused.
    /// @param path absolute
    void add(const QString &path, std::function<void(const AddResult &)> done);
    // The id is the text of the list. `done` is called on the main thread, for a malformed id at once.
    void remove(const QString &id, const std::function<void(const Result &)> &done);
    void select(const QString &id, const std::function<void(const Result &)> &done);
    void deselect(const QString &id, const std::function<void(const Result &)> &done);

private:
    using Operation =
        std::function<void(const QUuid &, std::function<void(std::expected<UserVideoSave, UserVideoRepositoryError>)>)>;
    void change(const QString &id, const std::function<void(const Result &)> &done, const Operation &operation);
    void validate(const QString &path, const QByteArray &start, const std::function<void(const AddResult &)> &done);
    void store(const QString &path, const VideoLook &look, const std::function<void(const AddResult &)> &done);

    UserVideoRepository &m_repository;
    VideoFileValidator m_validator;
    DiskQuestions m_disks;
    std::stop_source m_stop;
    SerialQueue m_queue;
};

}

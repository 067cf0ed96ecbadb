#pragma once

#include "Localization/LocalizedStrings.h"
#include "MainWindow/OwnVideosModel.h"
#include "MainWindow/RemoteLibraryViewModel.h"
#include "Media/UserVideoCommands.h"
#include "Media/VideoFiles.h"
#include "Media/VideoProviding.h"

#include <QtCore/QCache>
#include <QtCore/QVariantList>

namespace tomcatto {

class MovedVideoSearch;

/// One of the user's videos as the page shows it.
struct UserVideoListing
{
    UserVideo video;
    /// Where the file is; empty if it was not found.
    QString path;
    /// The file was moved or replaced since its bookmark was made, which should be renewed.
    bool isStale = false;
    /// The file's disk does not answer, so nothing is known of it.
    bool isSilent = false;

    [[nodiscard]] bool isLost() const { return path.isEmpty() && !isSilent; }
};

/// The page with the videos for the breaks: the user's own and those that came along. Between `appear` and `disappear`
/// it follows the store and keeps the stills; otherwise it holds nothing. Main thread only.
class VideosPageViewModel final : public QObject
{
    Q_OBJECT
    /// The user's videos, the earliest added first.
    Q_PROPERTY(QAbstractItemModel *own READ own CONSTANT FINAL)
    Q_PROPERTY(tomcatto::RemoteLibraryViewModel *library READ library CONSTANT FINAL)
    /// As long as a caption gets as a rule.
    Q_PROPERTY(QString longestCaption READ longestCaption NOTIFY changed FINAL)
    /// The videos that came along: id, title.
    Q_PROPERTY(QVariantList included READ included NOTIFY changed FINAL)
    /// Why the last action was not done, a line for each file; empty where all went well.
    Q_PROPERTY(QString error READ error NOTIFY errorChanged FINAL)
    /// Names the video that was deleted last and can come back; empty where none can.
    Q_PROPERTY(QString deletedText READ deletedText NOTIFY deletedChanged FINAL)

public:
    /// All outlive the view model.
    VideosPageViewModel(UserVideoCommands &commands, UserVideoRepository &repository, VideoFiles &files,
                        MovedVideoSearch &movedVideoSearch, const BundledVideoProviding &bundled,
                        RemoteLibraryViewModel &library, const LocalizedStrings &strings, MainRunLoop &runLoop,
                        QObject *parent = nullptr);

    [[nodiscard]] OwnVideosModel *own() { return &m_rows; }
    [[nodiscard]] RemoteLibraryViewModel *library() const { return &m_library; }
    [[nodiscard]] QString longestCaption() const;
    [[nodiscard]] QVariantList included() const;
    [[nodiscard]] QString error() const { return m_errors.join(QLatin1Char('\n')); }
    [[nodiscard]] QString deletedText() const;

    /// The page is seen from now on.
    Q_INVOKABLE void appear();
    /// The page is gone: what was deleted stays deleted.
    Q_INVOKABLE void disappear();
    /// Makes the still of a video of either list, which `stillCame` tells; it does not where there is none yet.
    /// @param scale pixels of the picture for one of the tile's 205 × 115, from 1 to 2
    Q_INVOKABLE void askStill(const QString &id, double scale);

    /// Asks for a dialog that lets the user choose files to add.
    Q_INVOKABLE void chooseFiles();
    /// Adds the files that are videos and not among them yet; `error` tells of the others.
    void addFiles(const QList<QUrl> &files);
    /// The same, by their addresses.
    Q_INVOKABLE void dropFiles(const QStringList &addresses);
    /// Ticks or unticks a video of the user's, unless its file is gone.
    Q_INVOKABLE void toggle(const QString &id);
    /// Deletes a video of the user's from the list, never its file.
    Q_INVOKABLE void remove(const QString &id);
    /// Brings the video back that was deleted last.
    Q_INVOKABLE void undoRemoval();
    /// The video that was deleted last stays deleted.
    Q_INVOKABLE void forgetRemoval();
    /// Asks for the preview of a video of either list.
    Q_INVOKABLE void preview(const QString &id);
    /// Asks for the preview of a break with the video that would come next.
    Q_INVOKABLE void previewBreak();
    /// The preview of a video of the user's could not be opened, which `error` tells.
    void previewFailed(const QString &id, VideoFileError error);

Q_SIGNALS:
    void changed();
    /// @param still a "data:" address
    void stillCame(const QString &id, const QString &still);
    void errorChanged();
    void deletedChanged();
    /// Files are to be chosen; those chosen go to `addFiles`.
    /// @param filters the kinds of files, as such dialogs write them
    void chooseFilesRequested(const QString &title, const QStringList &filters);
    /// A video of the user's is to be previewed.
    void previewRequested(const QString &id);
    /// A video that came along is to be previewed.
    void previewBundledRequested(const QUrl &file);
    /// A break is to be previewed as it would come.
    void previewBreakRequested();

private:
    [[nodiscard]] QString still(const QString &id, double scale);
    using Result = UserVideoCommands::Result;

    void storeChanged();
    void catchUp();
    void refresh();
    void list(const std::vector<UserVideo> &videos, const VideoFiles::Places &places);
    void searchMoved();
    void showRows();
    void addFilesBeside(const VideoFiles::Places &own, const QList<QUrl> &files);
    /// @param path the file's, with its links followed, as in `ownPaths`
    void addFile(const QUrl &file, const QString &path, const QSet<QString> &ownPaths);
    void clearErrors();
    void report(const QString &reason, const QString &name);
    [[nodiscard]] std::function<void(const Result &)> reporter(const QString &name);
    [[nodiscard]] const UserVideoListing *listing(const QString &id) const;
    [[nodiscard]] const LocalVideoCandidate *bundledVideo(const QString &id) const;
    [[nodiscard]] QString caption(const UserVideoListing &line) const;

    UserVideoCommands &m_commands;
    UserVideoRepository &m_repository;
    VideoFiles &m_files;
    MovedVideoSearch &m_movedVideoSearch;
    const BundledVideoProviding &m_bundled;
    RemoteLibraryViewModel &m_library;
    const LocalizedStrings &m_strings;
    MainRunLoop &m_runLoop;
    bool m_isShown = false;
    std::vector<UserVideoListing> m_own;
    OwnVideosModel m_rows;
    /// Runs for a moment after each reading of the store; changes meanwhile are read together at its end.
    Cancellable m_pause;
    bool m_isOutdated = false;
    /// Only the last question that was put to the disks counts.
    int m_question = 0;
    bool m_isNew = false;
    /// By id and scale.
    QCache<QString, QString> m_stills;
    QStringList m_errors;
    /// The files that are being looked into.
    QSet<QString> m_adding;
    /// By id, until the removal is stored.
    QSet<QString> m_removing;
    std::optional<UserVideo> m_deleted;
};

}

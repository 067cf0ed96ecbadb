#include "MainWindow/VideosPageViewModel.h"

#include "MainWindow/VideoStill.h"
#include "MainWindow/VideoTexts.h"
#include "Media/MovedVideoSearch.h"
#include "Persistence/Repositories/UserVideoRepository.h"

#include <algorithm>
#include <QtCore/QBuffer>
#include <QtCore/QDir>
#include <QtCore/QPointer>

namespace tomcatto {

namespace {

/// More files at once than this are told by the first ones.
constexpr qsizetype mostErrors = 3;
/// Of the stills, in characters: about fifty of them.
constexpr qsizetype mostStillCharacters = 4'000'000;
/// How often at most the store is read while many videos come in.
constexpr std::chrono::milliseconds readingInterval{100};

QString idText(const UserVideo &video)
{
    return video.id.toString(QUuid::WithoutBraces);
}

QString fileName(const QUrl &file)
{
    const QString name = QFileInfo(QDir::cleanPath(file.path())).fileName();
    return name.isEmpty() ? file.toDisplayString(QUrl::PreferLocalFile) : name;
}

}

VideosPageViewModel::VideosPageViewModel(UserVideoCommands &commands, UserVideoRepository &repository,
                                         VideoFiles &files, MovedVideoSearch &movedVideoSearch,
                                         const BundledVideoProviding &bundled, RemoteLibraryViewModel &library,
                                         const LocalizedStrings &strings, MainRunLoop &runLoop, QObject *parent)
    : QObject(parent)
    , m_commands(commands)
    , m_repository(repository)
    , m_files(files)
    , m_movedVideoSearch(movedVideoSearch)
    , m_bundled(bundled)
    , m_library(library)
    , m_strings(strings)
    , m_runLoop(runLoop)
    , m_stills(mostStillCharacters)
{
    connect(&repository, &UserVideoRepository::didChange, this, &VideosPageViewModel::storeChanged);
    connect(&strings, &LocalizedStrings::changed, this, &VideosPageViewModel::showRows);
    connect(&strings, &LocalizedStrings::changed, this, &VideosPageViewModel::changed);
    connect(&strings, &LocalizedStrings::changed, this, &VideosPageViewModel::deletedChanged);
}

void VideosPageViewModel::showRows()
{
    std::vector<OwnVideoRow> rows;
    rows.reserve(m_own.size());
    for (const UserVideoListing &line : m_own) {
        const QString present = line.video.userSelected ? QStringLiteral("active") : QStringLiteral("resting");
        rows.push_back({idText(line.video), shownName(line.video.displayName), caption(line),
                        line.isLost() ? QStringLiteral("missing") : present});
    }
    m_rows.setRows(std::move(rows));
}

QString VideosPageViewModel::caption(const UserVideoListing &line) const
{
    const auto text = [this](const char *key) {
        return m_strings.text(QStringLiteral("window.videos.caption.") + QLatin1StringView(key));
    };
    if (line.isLost())
        return text("missing");
    QString state = text(line.video.userSelected ? "plays" : "resting");
    if (!line.video.addedAt)
        return state;
    const QDate day = toDateTime(*line.video.addedAt).toLocalTime().date();
    const QString added =
        m_strings.format(QStringLiteral("window.videos.caption.added"),
                         m_strings.locale().toString(day, m_strings.text(QStringLiteral("date.day_month"))));
    return m_strings.format(QStringLiteral("window.videos.caption.join"), added, state);
}

QString VideosPageViewModel::longestCaption() const
{
    UserVideo playing;
    playing.userSelected = true;
    playing.addedAt = toDate(QDateTime({2000, 9, 20}, {}));
    return caption({std::move(playing), QStringLiteral("/")});
}

QVariantList VideosPageViewModel::included() const
{
    QVariantList rows;
    for (const LocalVideoCandidate &video : m_bundled.candidates()) {
        rows.append(QVariantMap{{QStringLiteral("id"), video.identifier},
                                {QStringLiteral("title"), includedVideoTitle(m_strings, video.identifier)}});
    }
    return rows;
}

QString VideosPageViewModel::deletedText() const
{
    return m_deleted ? m_strings.format(QStringLiteral("window.videos.deleted"), shortName(m_deleted->displayName))
                     : QString();
}

void VideosPageViewModel::appear()
{
    m_isShown = true;
    m_isNew = true;
    refresh();
}

void VideosPageViewModel::disappear()
{
    m_isShown = false;
    ++m_question;
    m_pause.cancel();
    m_own.clear();
    m_rows.setRows({});
    m_stills.clear();
    clearErrors();
    forgetRemoval();
}

void VideosPageViewModel::storeChanged()
{
    m_isOutdated = true;
    if (!m_pause.isActive())
        catchUp();
}

void VideosPageViewModel::catchUp()
{
    m_pause.cancel();
    if (m_isOutdated)
        refresh();
}

void VideosPageViewModel::refresh()
{
    m_isOutdated = false;
    if (!m_isShown)
        return;
    m_pause = m_runLoop.after(readingInterval, [this] { catchUp(); });
    const auto videos = std::make_shared<const std::vector<UserVideo>>(m_repository.allVideos());
    m_files.find(*videos, VideoFiles::shortPatience,
                 [self = QPointer(this), videos, number = ++m_question](const VideoFiles::Places &places) {
                     if (self && number == self->m_question)
                         self->list(*videos, places);
                 });
}

void VideosPageViewModel::list(const std::vector<UserVideo> &videos, const VideoFiles::Places &places)
{
    m_own.clear();
    for (std::size_t row = 0; row < videos.size(); ++row) {
        const VideoPlace &place = places.at(row);
        m_own.push_back(
            {videos.at(row), place.fileUrl.toLocalFile(), place.isStale, place.state == VideoPlace::State::silent});
    }
    showRows();
    Q_EMIT changed();
    if (std::exchange(m_isNew, false))
        searchMoved();
}

// Once for each time that the page is seen: a file that is gone for good would be looked for all the time.
void VideosPageViewModel::searchMoved()
{
    std::vector<UserVideo> moved;
    for (const UserVideoListing &line : m_own) {
        if (line.isLost() || line.isStale)
            moved.push_back(line.video);
    }
    m_movedVideoSearch.search(std::move(moved));
}

void VideosPageViewModel::askStill(const QString &id, double scale)
{
    if (const QString made = still(id, scale); !made.isEmpty())
        Q_EMIT stillCame(id, made);
}

QString VideosPageViewModel::still(const QString &id, double scale)
{
    const QString key = id + QLatin1Char('@') + QString::number(scale);
    if (const QString *const known = m_stills.object(key))
        return *known;
    QString made;
    if (const LocalVideoCandidate *const bundled = bundledVideo(id)) {
        const QDir folder = QFileInfo(bundled->fileUrl.toLocalFile()).dir();
        QFile poster(folder.filePath(QStringLiteral("posters/%1.jpg").arg(id)));
        if (poster.open(QIODevice::ReadOnly))
            made = videoStillAddress(poster, scale);
    } else if (const auto video = m_repository.video(QUuid::fromString(id))) {
        QBuffer picture;
        picture.setData(video->thumbnailData);
        if (picture.open(QIODevice::ReadOnly))
            made = videoStillAddress(picture, scale);
    }
    // A missing one may come soon: thumbnails follow their videos.
    if (!made.isEmpty())
        m_stills.insert(key, new QString(made), made.size());
    return made;
}

void VideosPageViewModel::chooseFiles()
{
    clearErrors();
    Q_EMIT chooseFilesRequested(
        m_strings.text(QStringLiteral("window.videos.add.dialog_title")),
        {m_strings.text(QStringLiteral("window.videos.add.dialog_filter")) +
             QStringLiteral(" (*.mp4 *.m4v *.mov *.mkv *.webm *.avi)"),
         m_strings.text(QStringLiteral("window.videos.add.dialog_all_files")) + QStringLiteral(" (*)")});
}

void VideosPageViewModel::dropFiles(const QStringList &addresses)
{
    addFiles(QUrl::fromStringList(addresses));
}

void VideosPageViewModel::addFiles(const QList<QUrl> &files)
{
    clearErrors();
    // Of the store: the page may be closed by the time that files come from the dialog.
    m_files.find(m_repository.allVideos(), VideoFiles::shortPatience,
                 [self = QPointer(this), files](const VideoFiles::Places &places) {
                     if (self)
                         self->addFilesBeside(places, files);
                 });
}

void VideosPageViewModel::addFilesBeside(const VideoFiles::Places &own, const QList<QUrl> &files)
{
    QStringList paths;
    for (const VideoPlace &place : own) {
        if (place.state == VideoPlace::State::found)
            paths << place.fileUrl.toLocalFile();
    }
    const qsizetype ownCount = paths.size();
    for (const QUrl &file : files)
        paths << file.toLocalFile();
    m_files.followLinks(paths, [self = QPointer(this), files, ownCount](const QStringList &followed) {
        if (!self)
            return;
        const QSet<QString> known(followed.begin(), followed.begin() + ownCount);
        for (qsizetype place = 0; place < files.size(); ++place)
            self->addFile(files.at(place), followed.at(ownCount + place), known);
    });
}

void VideosPageViewModel::addFile(const QUrl &file, const QString &path, const QSet<QString> &ownPaths)
{
    const QString name = fileName(file);
    if (!file.isLocalFile()) {
        report(QStringLiteral("unreadable"), name);
        return;
    }
    if (m_adding.contains(path) || ownPaths.contains(path)) {
        report(QStringLiteral("already_added"), name);
        return;
    }
    m_adding.insert(path);
    m_commands.add(file.toLocalFile(), [self = QPointer(this), path, name](const UserVideoCommands::AddResult &result) {
        if (!self)
            return;
        self->m_adding.remove(path);
        if (result)
            return;
        const auto problem = result.error().fileError;
        self->report(problem ? refusalKey(*problem) : QStringLiteral("not_stored"), name);
    });
}

void VideosPageViewModel::toggle(const QString &id)
{
    clearErrors();
    const UserVideoListing *const line = listing(id);
    if (line == nullptr || line->isLost())
        return;
    if (line->video.userSelected)
        m_commands.deselect(id, reporter(line->video.displayName));
    else
        m_commands.select(id, reporter(line->video.displayName));
}

void VideosPageViewModel::remove(const QString &id)
{
    clearErrors();
    const auto video = m_repository.video(QUuid::fromString(id));
    if (!video || m_removing.contains(id))
        return;
    m_removing.insert(id);
    m_commands.remove(id, [self = QPointer(this), id, video = *video](const Result &result) {
        if (!self)
            return;
        self->m_removing.remove(id);
        if (!self->m_isShown)
            return;
        if (!result) {
            self->reporter(video.displayName)(result);
            return;
        }
        self->m_deleted = video;
        Q_EMIT self->deletedChanged();
    });
}

void VideosPageViewModel::undoRemoval()
{
    clearErrors();
    if (!m_deleted)
        return;
    const UserVideo video = *m_deleted;
    forgetRemoval();
    m_repository.restoreVideo(video, [self = QPointer(this), name = video.displayName](
                                         const std::expected<UserVideoSave, UserVideoRepositoryError> &written) {
        if (self && written != UserVideoSave::saved)
            self->report(QStringLiteral("not_saved"), name);
    });
}

void VideosPageViewModel::forgetRemoval()
{
    if (!m_deleted)
        return;
    m_deleted.reset();
    Q_EMIT deletedChanged();
}

void VideosPageViewModel::preview(const QString &id)
{
    clearErrors();
    if (const LocalVideoCandidate *const bundled = bundledVideo(id))
        Q_EMIT previewBundledRequested(bundled->fileUrl);
    else if (listing(id) != nullptr)
        Q_EMIT previewRequested(id);
}

void VideosPageViewModel::previewBreak()
{
    clearErrors();
    Q_EMIT previewBreakRequested();
}

void VideosPageViewModel::previewFailed(const QString &id, VideoFileError error)
{
    if (const UserVideoListing *const line = listing(id))
        report(refusalKey(error), line->video.displayName);
    // What is gone shows as gone.
    refresh();
}

void VideosPageViewModel::clearErrors()
{
    if (m_errors.isEmpty())
        return;
    m_errors.clear();
    Q_EMIT errorChanged();
}

void VideosPageViewModel::report(const QString &reason, const QString &name)
{
    if (!m_isShown || m_errors.size() >= mostErrors)
        return;
    m_errors.append(m_strings.format(QStringLiteral("window.videos.error.") + reason, shortName(name)));
    Q_EMIT errorChanged();
}

std::function<void(const VideosPageViewModel::Result &)> VideosPageViewModel::reporter(const QString &name)
{
    return [self = QPointer(this), name](const Result &result) {
        if (self && !result)
            self->report(QStringLiteral("not_saved"), name);
    };
}

const UserVideoListing *VideosPageViewModel::listing(const QString &id) const
{
    const auto found =
        std::ranges::find(m_own, QUuid::fromString(id), [](const UserVideoListing &line) { return line.video.id; });
    return found == m_own.end() ? nullptr : &*found;
}

const LocalVideoCandidate *VideosPageViewModel::bundledVideo(const QString &id) const
{
    const auto &candidates = m_bundled.candidates();
    const auto found = std::ranges::find(candidates, id, &LocalVideoCandidate::identifier);
    return found == candidates.end() ? nullptr : &*found;
}

}

#include "MainWindow/VideosPageViewModel.h"

#include "MainWindow/VideoStill.h"
#include "MainWindow/VideoTexts.h"
#include "Persistence/Repositories/UserVideoRepository.h"

#include <algorithm>
#include <QtCore/QBuffer>
#include <QtCore/QDir>
#include <QtCore/QPointer>

namespace tomcatto {

namespace {

/// More files at once than this are told by the first ones.
constexpr qsizetype mostErrors = 3;

QString idText(const UserVideo &video)
{
    return video.id.toString(QUuid::WithoutBraces);
}

/// The same text for every way to write the same file.
QString comparablePath(const QString &path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? QDir::cleanPath(path) : canonical;
}

QString shortName(const QUrl &file)
{
    const QString name = QFileInfo(QDir::cleanPath(file.path())).fileName();
    return name.isEmpty() ? file.toDisplayString(QUrl::PreferLocalFile) : name;
}

}

VideosPageViewModel::VideosPageViewModel(UserVideoCommands &commands, UserVideoRepository &repository,
                                         const BundledVideoProviding &bundled, const LocalizedStrings &strings,
                                         QObject *parent)
    : QObject(parent)
    , m_commands(commands)
    , m_repository(repository)
    , m_bundled(bundled)
    , m_strings(strings)
{
    connect(&repository, &UserVideoRepository::didChange, this, &VideosPageViewModel::refresh);
    connect(&strings, &LocalizedStrings::changed, this, &VideosPageViewModel::changed);
    connect(&strings, &LocalizedStrings::changed, this, &VideosPageViewModel::deletedChanged);
}

QVariantList VideosPageViewModel::own() const
{
    QVariantList rows;
    for (const UserVideoListing &line : m_own) {
        const QString present = line.video.userSelected ? QStringLiteral("active") : QStringLiteral("resting");
        rows.append(QVariantMap{{QStringLiteral("id"), idText(line.video)},
                                {QStringLiteral("title"), line.video.displayName},
                                {QStringLiteral("caption"), caption(line)},
                                {QStringLiteral("status"), line.path.isEmpty() ? QStringLiteral("missing") : present}});
    }
    return rows;
}

QString VideosPageViewModel::caption(const UserVideoListing &line) const
{
    const auto text = [this](const char *key) {
        return m_strings.text(QStringLiteral("window.videos.caption.") + QLatin1StringView(key));
    };
    if (line.path.isEmpty())
        return text("missing");
    const QString state = text(line.video.userSelected ? "plays" : "resting");
    if (!line.video.addedAt)
        return state;
    const QDate day = toDateTime(*line.video.addedAt).toLocalTime().date();
    const QString added = m_strings.format(QStringLiteral("window.videos.caption.added"),
                                           m_strings.locale().toString(day, QStringLiteral("d MMM")));
    return m_strings.format(QStringLiteral("window.videos.caption.join"), added, state);
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
    return m_deleted ? m_strings.format(QStringLiteral("window.videos.deleted"), m_deleted->displayName) : QString();
}

void VideosPageViewModel::appear()
{
    m_isShown = true;
    refresh();
}

void VideosPageViewModel::disappear()
{
    m_isShown = false;
    m_own.clear();
    m_stills.clear();
    clearErrors();
    forgetRemoval();
}

void VideosPageViewModel::refresh()
{
    if (!m_isShown)
        return;
    m_own = m_commands.list();
    Q_EMIT changed();
}

QString VideosPageViewModel::still(const QString &id)
{
    if (const auto known = m_stills.constFind(id); known != m_stills.constEnd())
        return *known;
    QString made;
    if (const LocalVideoCandidate *const bundled = bundledVideo(id)) {
        const QDir folder = QFileInfo(bundled->fileUrl.toLocalFile()).dir();
        QFile poster(folder.filePath(QStringLiteral("posters/%1.jpg").arg(id)));
        if (poster.open(QIODevice::ReadOnly))
            made = videoStillAddress(poster);
    } else if (const auto video = m_repository.video(QUuid::fromString(id))) {
        QBuffer picture;
        picture.setData(video->thumbnailData);
        if (picture.open(QIODevice::ReadOnly))
            made = videoStillAddress(picture);
    }
    // A missing one may come soon: thumbnails follow their videos.
    if (!made.isEmpty())
        m_stills.insert(id, made);
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

void VideosPageViewModel::addFiles(const QList<QUrl> &files)
{
    clearErrors();
    for (const QUrl &file : files)
        addFile(file);
}

void VideosPageViewModel::addFile(const QUrl &file)
{
    const QString name = shortName(file);
    if (!file.isLocalFile()) {
        report(QStringLiteral("unreadable"), name);
        return;
    }
    const QString path = comparablePath(file.toLocalFile());
    if (m_adding.contains(path) || isAmongOwn(path)) {
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

bool VideosPageViewModel::isAmongOwn(const QString &path) const
{
    return std::ranges::any_of(m_own, [&path](const UserVideoListing &line) {
        return !line.path.isEmpty() && comparablePath(line.path) == path;
    });
}

void VideosPageViewModel::toggle(const QString &id)
{
    clearErrors();
    const UserVideoListing *const line = listing(id);
    if (line == nullptr || line->path.isEmpty())
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
    if (!video)
        return;
    m_commands.remove(id, [self = QPointer(this), video = *video](const Result &result) {
        if (!self || !self->m_isShown)
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
    m_errors.append(m_strings.format(QStringLiteral("window.videos.error.") + reason, name));
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

#pragma once

#include "MainWindow/RemoteVideosModel.h"
#include "Media/RemoteStills.h"

namespace tomcatto {

/// The remote library on the page of videos: its list, how it stands to the server, downloads. Between `appear` and
/// `disappear` it keeps stills and follows the time. Main thread only.
class RemoteLibraryViewModel final : public QObject
{
    Q_OBJECT
    /// Whether there is a library; without one nothing of it is shown.
    Q_PROPERTY(bool isEnabled READ isEnabled CONSTANT FINAL)
    Q_PROPERTY(QAbstractItemModel *videos READ videos CONSTANT FINAL)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed FINAL)
    Q_PROPERTY(bool isChecking READ isChecking NOTIFY changed FINAL)
    /// When the list that is shown came from the server.
    Q_PROPERTY(QString checkedText READ checkedText NOTIFY changed FINAL)
    /// Why the list is not what the server has now; empty where it is.
    Q_PROPERTY(QString problem READ problem NOTIFY changed FINAL)

public:
    /// All outlive the view model.
    RemoteLibraryViewModel(RemoteVideoProvider &provider, RemoteStills &stills, const LocalizedStrings &strings,
                           const WallClock &clock, MainRunLoop &runLoop, QObject *parent = nullptr);

    [[nodiscard]] bool isEnabled() const { return m_provider.isEnabled(); }
    [[nodiscard]] RemoteVideosModel *videos() { return &m_videos; }
    [[nodiscard]] bool isEmpty() const { return m_provider.entries().empty(); }
    [[nodiscard]] bool isChecking() const;
    [[nodiscard]] QString checkedText() const;
    [[nodiscard]] QString problem() const;

    /// The page is seen from now on: the list is fetched, unless it has just been.
    Q_INVOKABLE void appear();
    Q_INVOKABLE void disappear();
    /// Makes the still of a video, which `stillCame` tells; it does not where there is none yet, see `stillReady`.
    /// @param scale pixels of the picture for one of the tile's 205 × 115, from 1 to 2
    Q_INVOKABLE void askStill(const QString &id, double scale);

    /// Fetches the list.
    Q_INVOKABLE void refresh();
    /// Ticks or unticks a downloaded video; downloads another one, unless the server is out of reach.
    Q_INVOKABLE void press(const QString &id);
    /// Removes a downloaded video from the disk.
    Q_INVOKABLE void remove(const QString &id);
    /// Asks for the preview of a downloaded video.
    Q_INVOKABLE void preview(const QString &id);

Q_SIGNALS:
    void changed();
    /// @param still a "data:" address
    void stillCame(const QString &id, const QString &still);
    /// A still can be made from now on.
    void stillReady(const QString &id);
    /// A downloaded video is to be previewed.
    void previewRequested(const QUrl &file);

private:
    [[nodiscard]] QString still(const QString &id, double scale);
    [[nodiscard]] std::optional<RemoteManifestClientError> error() const;
    void statusChanged();

    RemoteVideoProvider &m_provider;
    RemoteStills &m_pictures;
    const LocalizedStrings &m_strings;
    const WallClock &m_clock;
    MainRunLoop &m_runLoop;
    RemoteVideosModel m_videos;
    /// By id and scale.
    QCache<QString, QString> m_stills;
    Cancellable m_minutes;
};

}

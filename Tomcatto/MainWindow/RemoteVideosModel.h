#pragma once

#include "Localization/LocalizedStrings.h"
#include "Media/RemoteVideoProvider.h"

#include <QtCore/QAbstractListModel>

namespace tomcatto {

/// The videos of the remote library as a view shows them, in the library's order. Main thread only.
class RemoteVideosModel final : public QAbstractListModel
{
    Q_OBJECT
public:
    enum Role {
        videoId = Qt::UserRole,
        title,
        /// Its length and what it does, or what it waits for.
        caption,
        /// Whether `caption` tells of something that failed.
        hasFailed,
        /// "active", "resting", "downloading" or "missing".
        status,
        /// Of the download, 0 to 1, and as a text.
        progress,
        progressText,
        /// What a press does with a missing one, or its size.
        chip,
        chipSymbol,
    };
    using Outcome = RemoteVideoProvider::DownloadOutcome;

    /// Both outlive the model.
    RemoteVideosModel(const RemoteVideoProvider &provider, const LocalizedStrings &strings, QObject *parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// The video; null where there is none of that identifier.
    [[nodiscard]] const RemoteVideoEntryView *entry(const QString &id) const;
    /// What came of the last download; nothing takes it back.
    void setOutcome(const QString &id, std::optional<Outcome> outcome);
    /// Whether the server is out of reach, so that nothing can be downloaded.
    void setOffline(bool isOffline);

private:
    void catchUp();
    void changeAll();
    void changeRow(qsizetype row);
    [[nodiscard]] QString failureOf(const RemoteVideoEntryView &entry) const;
    [[nodiscard]] QString captionOf(const RemoteVideoEntryView &entry) const;
    [[nodiscard]] QString chipOf(const RemoteVideoEntryView &entry) const;
    [[nodiscard]] QString chipSymbolOf(const RemoteVideoEntryView &entry) const;
    [[nodiscard]] bool waits(const RemoteVideoEntryView &entry) const;
    [[nodiscard]] QString megabytes(double bytes) const;
    [[nodiscard]] QString size(qint64 bytes) const;

    const RemoteVideoProvider &m_provider;
    const LocalizedStrings &m_strings;
    std::vector<QString> m_ids;
    /// Of downloads that failed.
    std::map<QString, Outcome> m_failures;
    bool m_isOffline = false;
};

}

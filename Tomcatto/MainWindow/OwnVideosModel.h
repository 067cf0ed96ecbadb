#pragma once

#include <QtCore/QAbstractListModel>
#include <vector>

namespace tomcatto {

/// One tile of the user's videos.
struct OwnVideoRow
{
    QString id;
    QString title;
    QString caption;
    /// "active", "resting" or, where the file is gone, "missing".
    QString status;

    bool operator==(const OwnVideoRow &) const = default;
};

/// The user's videos as a view shows them. A change touches only the rows that it is about, so that tiles stay, and
/// with them the keyboard's place. Main thread only.
class OwnVideosModel final : public QAbstractListModel
{
    Q_OBJECT
public:
    enum Role { videoId = Qt::UserRole, title, caption, status };

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    [[nodiscard]] const std::vector<OwnVideoRow> &rows() const noexcept { return m_rows; }
    /// @param rows ids are unique, and rows that stay keep their order
    void setRows(std::vector<OwnVideoRow> rows);

private:
    void removeAllBut(const std::vector<OwnVideoRow> &wanted);

    std::vector<OwnVideoRow> m_rows;
};

}

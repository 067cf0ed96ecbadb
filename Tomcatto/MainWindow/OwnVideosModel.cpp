#include "MainWindow/OwnVideosModel.h"

#include <algorithm>
#include <QtCore/QSet>

namespace tomcatto {

int OwnVideosModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant OwnVideosModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const OwnVideoRow &row = m_rows.at(static_cast<std::size_t>(index.row()));
    if (role == videoId)
        return row.id;
    if (role == title || role == Qt::DisplayRole)
        return row.title;
    if (role == caption)
        return row.caption;
    return role == status ? row.status : QVariant();
}

QHash<int, QByteArray> OwnVideosModel::roleNames() const
{
    return {{videoId, "videoId"}, {title, "title"}, {caption, "caption"}, {status, "status"}};
}

void OwnVideosModel::setRows(std::vector<OwnVideoRow> rows)
{
    removeAllBut(rows);
    for (std::size_t place = 0; place < rows.size(); ++place) {
        const int number = static_cast<int>(place);
        if (place < m_rows.size() && m_rows.at(place).id == rows.at(place).id) {
            if (m_rows.at(place) == rows.at(place))
                continue;
            m_rows.at(place) = std::move(rows.at(place));
            Q_EMIT dataChanged(index(number), index(number));
            continue;
        }
        // What comes back between others is one row as a rule, what is new stands at the end: all of it at once.
        const std::size_t count = place < m_rows.size() ? 1 : rows.size() - place;
        beginInsertRows({}, number, number + static_cast<int>(count) - 1);
        const auto first = rows.begin() + number;
        m_rows.insert(m_rows.begin() + number, std::make_move_iterator(first),
                      std::make_move_iterator(first + static_cast<std::ptrdiff_t>(count)));
        endInsertRows();
        place += count - 1;
    }
    // Only where rows changed places.
    if (m_rows.size() > rows.size()) {
        beginRemoveRows({}, static_cast<int>(rows.size()), rowCount() - 1);
        m_rows.resize(rows.size());
        endRemoveRows();
    }
}

void OwnVideosModel::removeAllBut(const std::vector<OwnVideoRow> &wanted)
{
    QSet<QString> ids;
    for (const OwnVideoRow &row : wanted)
        ids.insert(row.id);
    for (int number = rowCount() - 1; number >= 0; --number) {
        if (ids.contains(m_rows.at(static_cast<std::size_t>(number)).id))
            continue;
        beginRemoveRows({}, number, number);
        m_rows.erase(m_rows.begin() + number);
        endRemoveRows();
    }
}

}

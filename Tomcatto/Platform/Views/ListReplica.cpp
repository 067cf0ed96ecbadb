#include "Platform/Views/ListReplica.h"

#include "Platform/Views/Replicas.h"

#include <algorithm>
#include <QtQml/QQmlEngine>

namespace tomcatto {

ListReplica::ListReplica(Replicas &replicas, int number, const QVariantMap &roles)
    : QAbstractListModel(&replicas)
    , m_replicas(replicas)
    , m_number(number)
{
    for (const auto &[role, name] : roles.asKeyValueRange())
        m_names.insert(role.toInt(), name.toByteArray());
    m_roles = m_names.keys();
    std::ranges::sort(m_roles);
    QQmlEngine::setObjectOwnership(this, QQmlEngine::CppOwnership);
}

int ListReplica::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant ListReplica::data(const QModelIndex &index, int role) const
{
    return m_rows.value(index.row()).value(m_roles.indexOf(role));
}

bool ListReplica::canFetchMore(const QModelIndex &parent) const
{
    return !parent.isValid() && m_canFetchMore;
}

void ListReplica::fetchMore(const QModelIndex &parent)
{
    // Asked for again once rows have come.
    if (canFetchMore(parent) && std::exchange(m_canFetchMore, false))
        m_replicas.send(ViewMessageKind::fetchMore, {m_number});
}

void ListReplica::insert(int first, const QVariantList &rows, bool canFetchMore)
{
    m_canFetchMore = canFetchMore;
    if (rows.isEmpty() || first < 0 || first > m_rows.size())
        return;
    beginInsertRows({}, first, first + static_cast<int>(rows.size()) - 1);
    for (qsizetype at = 0; at < rows.size(); ++at)
        m_rows.insert(first + at, rows[at].toList());
    endInsertRows();
}

void ListReplica::remove(int first, int count)
{
    if (count <= 0 || first < 0 || first + count > m_rows.size())
        return;
    beginRemoveRows({}, first, first + count - 1);
    m_rows.remove(first, count);
    endRemoveRows();
}

void ListReplica::change(int first, const QVariantList &rows)
{
    if (rows.isEmpty() || first < 0 || first + rows.size() > m_rows.size())
        return;
    for (qsizetype at = 0; at < rows.size(); ++at)
        m_rows[first + at] = rows[at].toList();
    Q_EMIT dataChanged(index(first), index(first + static_cast<int>(rows.size()) - 1));
}

void ListReplica::reset(bool canFetchMore, const QVariantList &rows)
{
    beginResetModel();
    m_canFetchMore = canFetchMore;
    m_rows.clear();
    for (const QVariant &row : rows)
        m_rows.append(row.toList());
    endResetModel();
}

}

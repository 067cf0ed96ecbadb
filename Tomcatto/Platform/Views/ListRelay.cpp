#include "Platform/Views/ListRelay.h"

#include "Platform/Views/ObjectPublisher.h"

#include <algorithm>

namespace tomcatto {

ListRelay::ListRelay(ObjectPublisher &publisher, QAbstractItemModel &source, int number)
    : m_publisher(publisher)
    , m_source(source)
    , m_number(number)
    , m_roles(source.roleNames().keys())
{
    std::ranges::sort(m_roles);
    connect(&source, &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex &, int first, int last) {
        m_publisher.flush();
        m_publisher.send(ViewMessageKind::rowsInserted,
                         {m_number, first, QVariant(rows(first, last)), m_source.canFetchMore({})});
    });
    connect(&source, &QAbstractItemModel::rowsRemoved, this, [this](const QModelIndex &, int first, int last) {
        m_publisher.flush();
        m_publisher.send(ViewMessageKind::rowsRemoved, {m_number, first, last - first + 1});
    });
    connect(&source, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex &first, const QModelIndex &last) {
        m_publisher.flush();
        m_publisher.send(ViewMessageKind::rowsChanged,
                         {m_number, first.row(), QVariant(rows(first.row(), last.row()))});
    });
    connect(&source, &QAbstractItemModel::modelReset, this, &ListRelay::sendAll);
    connect(&source, &QAbstractItemModel::rowsMoved, this, &ListRelay::sendAll);
    connect(&source, &QAbstractItemModel::layoutChanged, this, &ListRelay::sendAll);
}

QVariantList ListRelay::contents()
{
    QVariantMap names;
    const auto roles = m_source.roleNames();
    for (const int role : std::as_const(m_roles))
        names.insert(QString::number(role), roles.value(role));
    return {QVariant(names), m_source.canFetchMore({}), QVariant(rows(0, m_source.rowCount() - 1))};
}

QVariantList ListRelay::rows(int first, int last)
{
    QVariantList rows;
    for (int row = first; row <= last; ++row) {
        QVariantList values;
        for (const int role : std::as_const(m_roles))
            values << m_publisher.published(m_source.data(m_source.index(row, 0), role));
        rows << QVariant(values);
    }
    return rows;
}

void ListRelay::sendAll()
{
    m_publisher.flush();
    m_publisher.send(ViewMessageKind::rowsReset,
                     {m_number, m_source.canFetchMore({}), QVariant(rows(0, m_source.rowCount() - 1))});
}

}

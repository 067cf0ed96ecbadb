#pragma once

#include <QtCore/QAbstractListModel>

namespace tomcatto {

class Replicas;

/// A list of the program as views read it. Main thread only.
class ListReplica final : public QAbstractListModel
{
    Q_OBJECT

public:
    /// @param roles their names by their numbers
    ListReplica(Replicas &replicas, int number, const QVariantMap &roles);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override { return m_names; }
    [[nodiscard]] bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override;

    void insert(int first, const QVariantList &rows, bool canFetchMore);
    void remove(int first, int count);
    void change(int first, const QVariantList &rows);
    void reset(bool canFetchMore, const QVariantList &rows);

private:
    Replicas &m_replicas;
    int m_number;
    QList<int> m_roles;
    QHash<int, QByteArray> m_names;
    QList<QVariantList> m_rows;
    bool m_canFetchMore = false;
};

}

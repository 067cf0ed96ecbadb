#pragma once

#include <QtCore/QAbstractItemModel>

namespace tomcatto {

class ObjectPublisher;

/// Watches one published list. Main thread only.
class ListRelay final : public QObject
{
    Q_OBJECT

public:
    ListRelay(ObjectPublisher &publisher, QAbstractItemModel &source, int number);

    [[nodiscard]] QAbstractItemModel &source() const { return m_source; }
    /// What is sent of it first, without its number.
    [[nodiscard]] QVariantList contents();

private:
    [[nodiscard]] QVariantList rows(int first, int last);
    void sendAll();

    ObjectPublisher &m_publisher;
    QAbstractItemModel &m_source;
    int m_number;
    QList<int> m_roles;
};

}

#pragma once

#include "Platform/Views/ViewMessage.h"

#include <QtCore/QObject>

namespace tomcatto {

class Replicas;

/// An object of the program as views read it: of a class that is built as the program describes it. Its methods are the
/// program's to carry out, soon, and return nothing. Main thread only.
class ObjectReplica final : public QObject
{
public:
    ObjectReplica(Replicas &replicas, int number, const ObjectShape &shape, QVariantList values);

    [[nodiscard]] const QMetaObject *metaObject() const override { return m_class; }
    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

    /// @param properties their numbers; `values` are theirs. @param signals the numbers of those that told
    void change(const QVariantList &properties, const QVariantList &values, const QVariantList &signalNumbers);
    void signal(int number, const QVariantList &arguments);

private:
    void read(int property, void **arguments) const;
    void call(int method, void **arguments) const;

    Replicas &m_replicas;
    int m_number;
    const QMetaObject *m_class;
    QVariantList m_values;
};

}

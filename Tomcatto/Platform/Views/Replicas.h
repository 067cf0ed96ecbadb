#pragma once

#include "Platform/Views/ViewMessage.h"

#include <map>
#include <QtCore/QObject>

namespace tomcatto {

class ListReplica;
class ObjectReplica;

/// The objects of the program as this process has them. Main thread only.
class Replicas final : public QObject
{
    Q_OBJECT

public:
    using Send = std::function<void(ViewMessageKind kind, const QVariantList &arguments)>;

    /// @param send called with what the program is to get
    explicit Replicas(Send send);
    ~Replicas() override;

    /// Follows a message about objects and lists. @return false for one about other things
    bool take(const ViewMessage &message);
    /// The value with objects in the places of references.
    [[nodiscard]] QVariant resolved(const QVariant &value) const;
    /// Null where there is none, or a list.
    [[nodiscard]] QObject *object(int number) const;

    void send(ViewMessageKind kind, const QVariantList &arguments) const { m_send(kind, arguments); }

private:
    [[nodiscard]] QVariantList resolvedList(const QVariant &list) const;
    bool takeRows(const ViewMessage &message);

    Send m_send;
    // Bindings may look at what is gone until their turn is over, so it is deleted later.
    std::map<int, ObjectReplica *> m_objects;
    std::map<int, ListReplica *> m_lists;
};

}

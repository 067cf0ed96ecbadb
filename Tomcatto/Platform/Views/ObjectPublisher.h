#pragma once

#include "Platform/Ports/MainRunLoop.h"
#include "Platform/Views/ViewMessage.h"

#include <map>
#include <QtCore/QObject>

class QAbstractItemModel;

namespace tomcatto {

class ListRelay;
class ObjectRelay;

/// Lets another process read objects of this one: it gets their properties and lists as they change, and calls their
/// methods. Objects that properties hold go with them, values of our own classes become maps of their properties, enums
/// numbers. What has appeared in the other process disappears with it: for each call of `appear` that no `disappear`
/// has followed an object gets that call when this ends. Main thread only.
class ObjectPublisher final : public QObject
{
    Q_OBJECT

public:
    using Send = std::function<void(const ViewMessage &)>;

    /// @param runLoop outlives this. @param send called with what the other process is to get, in order
    ObjectPublisher(MainRunLoop &runLoop, Send send);
    ~ObjectPublisher() override;

    /// What stands for a value in the other process; objects are sent before.
    [[nodiscard]] QVariant published(const QVariant &value);
    /// @return its number
    int publish(QObject &object);
    /// Carries out `call` and `fetchMore`; what names no object or method is dropped.
    void obey(const ViewMessage &message);

    /// Sends what has changed in this turn.
    void flush();

private:
    friend class ObjectRelay;
    friend class ListRelay;

    void send(ViewMessageKind kind, QVariantList arguments);
    void flushLater();
    void forget(int number, const QObject *object);
    [[nodiscard]] int publishList(QAbstractItemModel &list);
    static void call(QObject &object, const QByteArray &method, QVariantList arguments);

    MainRunLoop &m_runLoop;
    Send m_send;
    int m_lastNumber = 0;
    bool m_isFlushDue = false;
    std::map<const QObject *, int> m_numbers;
    std::map<int, std::unique_ptr<ObjectRelay>> m_objects;
    std::map<int, std::unique_ptr<ListRelay>> m_lists;
    // How often each has appeared.
    std::map<int, int> m_appearances;
};

}

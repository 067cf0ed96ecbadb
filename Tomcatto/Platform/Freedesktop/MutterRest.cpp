#include "Platform/Freedesktop/MutterRest.h"

namespace tomcatto {

namespace {

const QString service = QStringLiteral("org.gnome.Mutter.IdleMonitor");
const QString path = QStringLiteral("/org/gnome/Mutter/IdleMonitor/Core");

}

MutterRest::MutterRest(const QDBusConnection &sessionBus, std::chrono::milliseconds rest)
    : BusFactSource(sessionBus, service)
    , m_rest(rest)
{
}

void MutterRest::look()
{
    m_restWatch = 0;
    m_touchWatch = 0;
    m_isTouchWatchComing = false;
    listen({path, service}, QStringLiteral("WatchFired"), SLOT(noteFired(uint)));
    ask({path, service}, QStringLiteral("AddIdleWatch"), {static_cast<qulonglong>(m_rest.count())},
        [this](const QVariantList &values) {
            m_restWatch = values.value(0).toUInt();
            askTime();
        });
}

void MutterRest::leave()
{
    for (uint *const watch : {&m_restWatch, &m_touchWatch}) {
        if (const uint set = std::exchange(*watch, 0); set != 0)
            send({path, service}, QStringLiteral("RemoveWatch"), {set});
    }
}

void MutterRest::noteFired(uint watch)
{
    if (watch == m_touchWatch)
        m_touchWatch = 0;
    askTime();
}

void MutterRest::askTime()
{
    ask({path, service}, QStringLiteral("GetIdletime"), {},
        [this](const QVariantList &values) { noteTime(std::chrono::milliseconds(values.value(0).toULongLong())); });
}

void MutterRest::noteTime(std::chrono::milliseconds idle)
{
    tell(idle >= m_rest ? Fact::yes : Fact::no);
    if (idle < m_rest || m_touchWatch != 0 || std::exchange(m_isTouchWatchComing, true))
        return;
    // The time is asked for again after it is set: a touch in between would not set it off.
    ask(
        {path, service}, QStringLiteral("AddUserActiveWatch"), {},
        [this](const QVariantList &values) {
            m_isTouchWatchComing = false;
            m_touchWatch = values.value(0).toUInt();
            askTime();
        },
        [this] {
            m_isTouchWatchComing = false;
            tell(Fact::untold);
        });
}

}

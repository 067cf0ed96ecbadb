#include "Platform/Freedesktop/ScreenSaverLock.h"

namespace tomcatto {

ScreenSaverLock::ScreenSaverLock(const QDBusConnection &sessionBus, const QString &name)
    : BusFactSource(sessionBus, name)
    , m_place{u'/' + QString(name).replace(u'.', u'/'), name}
{
}

void ScreenSaverLock::look()
{
    listen(m_place, QStringLiteral("ActiveChanged"), SLOT(askActive()));
    askActive();
}

void ScreenSaverLock::askActive()
{
    ask(m_place, QStringLiteral("GetActive"), {},
        [this](const QVariantList &values) { tell(values.value(0).toBool() ? Fact::yes : Fact::no); });
}

}

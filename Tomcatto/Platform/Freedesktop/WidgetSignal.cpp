#include "Platform/Freedesktop/WidgetSignal.h"

#include <QtDBus/QDBusMessage>

namespace tomcatto {

void WidgetSignal::reloadTimelines(const QString &kind)
{
    if (!m_bus.isConnected())
        return;
    QDBusMessage message = QDBusMessage::createSignal(QStringLiteral("/studio/quillbay/Tomcatto/Widget"),
                                                      QStringLiteral("studio.quillbay.Tomcatto.Widget1"),
                                                      QStringLiteral("ReloadTimelines"));
    message << kind;
    m_bus.send(message);
}

}

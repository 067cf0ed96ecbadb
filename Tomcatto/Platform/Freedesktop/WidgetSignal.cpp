#include "Platform/Freedesktop/WidgetSignal.h"

#include <QtDBus/QDBusMessage>

namespace tomcatto {

void WidgetSignal::reloadTimelines(const QString &kind, TimelineNews news)
{
    // A word each second would wake the bus and everyone who listens for what the dates in the file tell already.
    if (news == TimelineNews::timePassed || !m_bus.isConnected())
        return;
    QDBusMessage message = QDBusMessage::createSignal(QStringLiteral("/studio/quillbay/Tomcatto/Widget"),
                                                      QStringLiteral("studio.quillbay.Tomcatto.Widget1"),
                                                      QStringLiteral("ReloadTimelines"));
    message << kind;
    m_bus.send(message);
}

}

#include "QuillbayKit/NotificationAuthorization.h"

#include <QtCore/QPointer>

namespace quillbay {

NotificationAuthorization::NotificationAuthorization(tomcatto::NotificationProbe &probe, QObject *parent)
    : QObject(parent)
    , m_probe(probe)
{
}

void NotificationAuthorization::refresh()
{
    m_probe.query([self = QPointer(this)](const tomcatto::NotificationProbeResult &result) {
        if (self)
            self->take(result);
    });
}

void NotificationAuthorization::request()
{
    m_probe.request([self = QPointer(this)](const tomcatto::NotificationProbeResult &result) {
        if (self)
            self->take(result);
    });
}

void NotificationAuthorization::take(const tomcatto::NotificationProbeResult &result)
{
    if (result == m_result)
        return;
    m_result = result;
    Q_EMIT changed();
}

}

#include "Platform/Qt/AppearanceMirror.h"

namespace tomcatto {

AppearanceMirror::AppearanceMirror(QObject &source, QObject &target, const QList<QByteArray> &names)
    : m_source(source)
    , m_target(target)
{
    const QMetaObject *type = source.metaObject();
    const QMetaMethod copySlot = metaObject()->method(metaObject()->indexOfSlot("copy()"));
    for (const QByteArray &name : names) {
        const QMetaProperty property = type->property(type->indexOfProperty(name.constData()));
        if (!property.isValid())
            continue;
        m_names.append(name);
        if (property.hasNotifySignal())
            connect(&source, property.notifySignal(), this, copySlot);
    }
    copy();
}

void AppearanceMirror::copy()
{
    for (const QByteArray &name : std::as_const(m_names))
        m_target.setProperty(name.constData(), m_source.property(name.constData()));
}

}

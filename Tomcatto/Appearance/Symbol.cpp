#include "Symbol.h"

#include <QtCore/QLoggingCategory>
#include <QtCore/QSet>

namespace tomcatto {

namespace {

Q_LOGGING_CATEGORY(logger, "Symbol")

void warnOnce(const QString &name)
{
    static QSet<QString> warned;
    if (!warned.contains(name)) {
        warned.insert(name);
        qCWarning(logger).noquote() << "there is no symbol named" << name;
    }
}

}

void Symbol::setName(const QString &name)
{
    if (m_name == name)
        return;
    m_name = name;
    if (!load() && !name.isEmpty())
        warnOnce(name);
    Q_EMIT changed();
}

}

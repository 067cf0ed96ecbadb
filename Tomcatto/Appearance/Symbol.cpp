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

Symbol::Symbol(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    setImplicitSize(16, 16);
}

void Symbol::setName(const QString &name)
{
    if (m_name == name) {
        return;
    }
    m_name = name;
    const bool found = m_art.load(QStringLiteral(":/tomcatto/symbols/%1.svg").arg(name));
    if (!found && !name.isEmpty()) {
        warnOnce(name);
    }
    update();
    Q_EMIT nameChanged();
}

void Symbol::setColor(const QColor &color)
{
    if (m_color != color) {
        m_color = color;
        update();
        Q_EMIT colorChanged();
    }
}

void Symbol::setSize(qreal size)
{
    if (!qFuzzyCompare(implicitWidth(), size)) {
        setImplicitSize(size, size);
        Q_EMIT sizeChanged();
    }
}

void Symbol::paint(QPainter *painter)
{
    m_art.paint(*painter, boundingRect(), m_color);
}

}

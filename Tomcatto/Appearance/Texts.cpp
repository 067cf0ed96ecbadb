#include "Texts.h"

#include <QtQml/QQmlEngine>

namespace tomcatto {

namespace {

constexpr const char *engineProperty = "_tomcattoTexts";

}

Texts::Texts(QQmlEngine &engine, QObject *strings)
    : QObject(&engine)
    , m_strings(engine.newQObject(strings))
{
}

void Texts::install(QQmlEngine &engine, QObject &strings)
{
    QJSEngine::setObjectOwnership(&strings, QJSEngine::CppOwnership);
    engine.setProperty(engineProperty, QVariant::fromValue(&strings));
}

Texts *Texts::create(QQmlEngine *engine, QJSEngine *)
{
    return new Texts(*engine, engine->property(engineProperty).value<QObject *>());
}

QString Texts::text(const QString &key) const
{
    return call(QStringLiteral("text"), {key});
}

QString Texts::format(const QString &key, const QString &value) const
{
    QJSValue values = qjsEngine(this)->newArray(1);
    values.setProperty(0, value);
    return call(QStringLiteral("formatList"), {key, values});
}

QString Texts::call(const QString &method, const QJSValueList &arguments) const
{
    if (m_strings.isNull())
        return arguments.first().toString();
    // Read as a script reads it, which makes the binding that is evaluated now follow it.
    static_cast<void>(m_strings.property(QStringLiteral("revision")));
    return m_strings.property(method).callWithInstance(m_strings, arguments).toString();
}

}

#pragma once

#include <QtCore/QObject>
#include <QtQml/QJSValue>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace tomcatto {

/// What people read, by key, from the `LocalizedStrings` of the program, whose type a plugin does not share. A binding
/// that asks for a text follows the language. Main thread only.
class Texts final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// Makes these the texts of the engine's components, before the first one loads.
    /// @param strings outlives the engine.
    static void install(QQmlEngine &engine, QObject &strings);

    /// Called by the QML engine.
    static Texts *create(QQmlEngine *engine, QJSEngine *);

    /// The key itself where no texts are installed.
    Q_INVOKABLE QString text(const QString &key) const;
    /// The text with a value in the place of its placeholder.
    Q_INVOKABLE QString format(const QString &key, const QString &value) const;

private:
    Texts(QQmlEngine &engine, QObject *strings);
    [[nodiscard]] QString call(const QString &method, const QJSValueList &arguments) const;

    QJSValue m_strings;
};

}

#pragma once

#include "Fakes/FakeUserDefaults.h"
#include "Localization/LocalizedStrings.h"

#include <QtQml/QQmlContext>
#include <QtQml/QQmlEngine>

namespace tomcatto {

/// Gives the cases of a program the English texts that people read, as `texts`.
class ShippedTexts : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        engine->rootContext()->setContextProperty(QStringLiteral("texts"), &m_strings);
    }

private:
    FakeUserDefaults m_defaults;
    LanguageOverrideService m_language{m_defaults, {QStringLiteral("en")}};
    LocalizedStrings m_strings{m_language};
};

}

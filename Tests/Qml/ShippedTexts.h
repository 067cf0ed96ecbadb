#pragma once

#include "Appearance/Texts.h"
#include "Fakes/FakeUserDefaults.h"
#include "Localization/LocalizedStrings.h"

#include <QtQml/QQmlEngine>

namespace tomcatto {

/// Gives the views the English texts that people read.
class ShippedTexts : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine *engine) { Texts::install(*engine, m_strings); }

private:
    FakeUserDefaults m_defaults;
    LanguageOverrideService m_language{m_defaults, {QStringLiteral("en")}};
    LocalizedStrings m_strings{m_language};
};

}

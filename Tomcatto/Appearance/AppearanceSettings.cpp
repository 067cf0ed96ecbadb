#include "AppearanceSettings.h"

#include <algorithm>
#include <QtCore/QVariant>
#include <QtGui/QFontDatabase>
#include <QtQml/QJSEngine>
#include <QtQml/QQmlEngine>

namespace tomcatto {

namespace {

constexpr const char *engineProperty = "_tomcattoAppearanceSettings";

QString firstInstalled(const QString &family, const QString &fallback)
{
    return QFontDatabase::hasFamily(family) ? family : fallback;
}

}

AppearanceSettings::AppearanceSettings(QObject *parent)
    : QObject(parent)
    , m_textFamily(
          firstInstalled(QStringLiteral("Inter"), QFontDatabase::systemFont(QFontDatabase::GeneralFont).family()))
    , m_displayFamily(firstInstalled(QStringLiteral("Inter Display"), m_textFamily))
{
}

void AppearanceSettings::install(QQmlEngine &engine)
{
    QJSEngine::setObjectOwnership(this, QJSEngine::CppOwnership);
    engine.setProperty(engineProperty, QVariant::fromValue<QObject *>(this));
}

AppearanceSettings *AppearanceSettings::create(QQmlEngine *engine, QJSEngine *)
{
    auto *installed = qobject_cast<AppearanceSettings *>(engine->property(engineProperty).value<QObject *>());
    return installed != nullptr ? installed : new AppearanceSettings(engine);
}

void AppearanceSettings::setDark(bool dark)
{
    if (m_dark != dark) {
        m_dark = dark;
        Q_EMIT darkChanged();
    }
}

void AppearanceSettings::setReducedMotion(bool reducedMotion)
{
    if (m_reducedMotion != reducedMotion) {
        m_reducedMotion = reducedMotion;
        Q_EMIT reducedMotionChanged();
    }
}

void AppearanceSettings::setHighContrast(bool highContrast)
{
    if (m_highContrast != highContrast) {
        m_highContrast = highContrast;
        Q_EMIT highContrastChanged();
    }
}

void AppearanceSettings::setTextScale(qreal textScale)
{
    const qreal clamped = std::clamp(textScale, 1.0, 2.0);
    if (!qFuzzyCompare(m_textScale, clamped)) {
        m_textScale = clamped;
        Q_EMIT textScaleChanged();
    }
}

}

#include "Platform/Qt/DesktopAppearance.h"

#include <algorithm>
#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>

namespace tomcatto {

namespace {

/// Changes a value. @return whether it is another one now.
template<typename T>
bool assign(T &value, const T &wanted)
{
    return std::exchange(value, wanted) != wanted;
}

}

bool isPaletteDark()
{
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

DesktopAppearance::DesktopAppearance()
{
    qGuiApp->installEventFilter(this);
    refresh();
}

void DesktopAppearance::setDarkOverride(std::optional<bool> dark)
{
    m_override = dark;
    refresh();
}

void DesktopAppearance::setPreferences(const LookPreferences &preferences)
{
    m_preferences = preferences;
    refresh();
}

bool DesktopAppearance::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qGuiApp)
        refresh();
    return QObject::eventFilter(watched, event);
}

void DesktopAppearance::refresh()
{
    const bool isDesktopDark = m_preferences.isDark.value_or(isPaletteDark());
    if (assign(m_isDesktopDark, isDesktopDark))
        Q_EMIT desktopDarkChanged();
    if (assign(m_dark, m_override.value_or(isDesktopDark)))
        Q_EMIT darkChanged();
    if (assign(m_reducedMotion, m_preferences.reducedMotion))
        Q_EMIT reducedMotionChanged();
    if (assign(m_highContrast, m_preferences.highContrast))
        Q_EMIT highContrastChanged();
    if (assign(m_textScale, std::clamp(m_preferences.textScale, 1.0, 2.0)))
        Q_EMIT textScaleChanged();
}

}

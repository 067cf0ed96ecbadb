#pragma once

#include "Platform/Ports/WindowTheme.h"

#include <QtCore/QObject>

namespace tomcatto {

/// Whether the desktop gives the toolkit a dark palette.
[[nodiscard]] bool isPaletteDark();

/// What a desktop says that it prefers in looks.
struct LookPreferences
{
    /// `nullopt` if it does not say: then the palette tells dark from light.
    std::optional<bool> isDark;
    bool reducedMotion = false;
    bool highContrast = false;
    /// Factor on text sizes.
    qreal textScale = 1;
};

/// What the desktop prefers in looks, and what the user has set over it. Main thread only.
class DesktopAppearance final : public QObject, public WindowTheme
{
    Q_OBJECT
    Q_PROPERTY(bool dark READ dark NOTIFY darkChanged FINAL)
    Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY reducedMotionChanged FINAL)
    Q_PROPERTY(bool highContrast READ highContrast NOTIFY highContrastChanged FINAL)
    Q_PROPERTY(qreal textScale READ textScale NOTIFY textScaleChanged FINAL)

public:
    /// Follows the palette.
    DesktopAppearance();

    /// Whether the application's windows are dark: what was set, else what the desktop prefers.
    [[nodiscard]] bool dark() const noexcept { return m_dark; }
    [[nodiscard]] bool reducedMotion() const noexcept { return m_reducedMotion; }
    [[nodiscard]] bool highContrast() const noexcept { return m_highContrast; }
    /// Factor on text sizes, 1 to 2.
    [[nodiscard]] qreal textScale() const noexcept { return m_textScale; }
    /// What the desktop prefers, whatever was set for the windows: the look of its bars.
    [[nodiscard]] bool isDesktopDark() const noexcept { return m_isDesktopDark; }

    void setDarkOverride(std::optional<bool> dark) override;
    /// Takes what the desktop says, as often as that changes.
    void setPreferences(const LookPreferences &preferences);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void darkChanged();
    void reducedMotionChanged();
    void highContrastChanged();
    void textScaleChanged();
    void desktopDarkChanged();

private:
    void refresh();

    LookPreferences m_preferences;
    std::optional<bool> m_override;
    bool m_isDesktopDark = false;
    bool m_dark = false;
    bool m_reducedMotion = false;
    bool m_highContrast = false;
    qreal m_textScale = 1;
};

}

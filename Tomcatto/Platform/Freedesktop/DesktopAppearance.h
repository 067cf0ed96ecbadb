#pragma once

#include "Foundation/Logger.h"

#include <optional>
#include <QtCore/QObject>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusServiceWatcher>

class QDBusMessage;

namespace tomcatto {

/// Whether the desktop gives the toolkit a dark palette.
[[nodiscard]] bool isPaletteDark();

/// What the desktop prefers in looks, and what the user has set over it. The desktop's portal is asked over D-Bus and
/// followed live; where it does not answer, the palette tells dark from light. Nothing here waits for the bus: the
/// first values are the palette's. Main thread only.
class DesktopAppearance final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool dark READ dark NOTIFY darkChanged FINAL)
    Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY reducedMotionChanged FINAL)
    Q_PROPERTY(bool highContrast READ highContrast NOTIFY highContrastChanged FINAL)
    Q_PROPERTY(qreal textScale READ textScale NOTIFY textScaleChanged FINAL)

public:
    /// @param sessionBus the session's bus; it may be without a connection.
    explicit DesktopAppearance(const QDBusConnection &sessionBus);

    /// Whether the application's windows are dark: what was set, else what the desktop prefers.
    [[nodiscard]] bool dark() const noexcept { return m_dark; }
    [[nodiscard]] bool reducedMotion() const noexcept { return m_reducedMotion; }
    [[nodiscard]] bool highContrast() const noexcept { return m_highContrast; }
    /// Factor on text sizes, 1 to 2.
    [[nodiscard]] qreal textScale() const noexcept { return m_textScale; }
    /// What the desktop prefers, whatever was set for the windows: the look of its bars.
    [[nodiscard]] bool isDesktopDark() const noexcept { return m_isDesktopDark; }

    /// Sets the look of the windows; nothing follows the desktop.
    void setDarkOverride(std::optional<bool> dark);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void darkChanged();
    void reducedMotionChanged();
    void highContrastChanged();
    void textScaleChanged();
    void desktopDarkChanged();

private Q_SLOTS:
    void settingChanged(const QDBusMessage &signal);

private:
    void askPortal();
    void refresh();

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    const Logger m_logger{QStringLiteral("DesktopAppearance")};
    /// What the portal said, by namespace and key with a space between.
    QVariantMap m_settings;
    std::optional<bool> m_override;
    bool m_isDesktopDark = false;
    bool m_dark = false;
    bool m_reducedMotion = false;
    bool m_highContrast = false;
    qreal m_textScale = 1;
};

}

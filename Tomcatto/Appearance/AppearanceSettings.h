#pragma once

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace tomcatto {

/// What the user and the system ask of the looks. One object serves one QML engine; `Theme` follows it live.
///
/// The application makes it, hands it to an engine with `install` before the first component loads, and keeps it alive
/// as long as the engine. A surface that is always dark, such as the break overlay, has an engine and settings of its
/// own. Main thread only.
class AppearanceSettings final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool dark READ dark WRITE setDark NOTIFY darkChanged FINAL)
    Q_PROPERTY(bool reducedMotion READ reducedMotion WRITE setReducedMotion NOTIFY reducedMotionChanged FINAL)
    Q_PROPERTY(bool highContrast READ highContrast WRITE setHighContrast NOTIFY highContrastChanged FINAL)
    Q_PROPERTY(qreal textScale READ textScale WRITE setTextScale NOTIFY textScaleChanged FINAL)
    Q_PROPERTY(QString textFamily READ textFamily CONSTANT FINAL)
    Q_PROPERTY(QString displayFamily READ displayFamily CONSTANT FINAL)

public:
    /// No default for the parent: the QML engine must come to `create` and never make an object of its own.
    explicit AppearanceSettings(QObject *parent);

    /// Makes this the object that the engine's components follow. Ownership stays with the caller.
    void install(QQmlEngine &engine);

    /// Called by the QML engine: the installed object, or one with the defaults when nothing was installed.
    static AppearanceSettings *create(QQmlEngine *engine, QJSEngine *);

    [[nodiscard]] bool dark() const noexcept { return m_dark; }
    void setDark(bool dark);
    [[nodiscard]] bool reducedMotion() const noexcept { return m_reducedMotion; }
    void setReducedMotion(bool reducedMotion);
    [[nodiscard]] bool highContrast() const noexcept { return m_highContrast; }
    void setHighContrast(bool highContrast);
    /// Factor on every text size of the main window, 1 to 2; values outside are clamped.
    [[nodiscard]] qreal textScale() const noexcept { return m_textScale; }
    void setTextScale(qreal textScale);

    /// Family for texts below 20 px: Inter where it is installed, else the system's interface font.
    [[nodiscard]] QString textFamily() const { return m_textFamily; }
    /// Family for texts from 20 px up: Inter Display where it is installed, else `textFamily`.
    [[nodiscard]] QString displayFamily() const { return m_displayFamily; }

Q_SIGNALS:
    void darkChanged();
    void reducedMotionChanged();
    void highContrastChanged();
    void textScaleChanged();

private:
    bool m_dark = false;
    bool m_reducedMotion = false;
    bool m_highContrast = false;
    qreal m_textScale = 1.0;
    QString m_textFamily;
    QString m_displayFamily;
};

}

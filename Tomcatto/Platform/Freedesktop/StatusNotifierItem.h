#pragma once

#include "Platform/Freedesktop/StatusNotifierTypes.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtDBus/QDBusObjectPath>

namespace tomcatto {

/// The item as a tray reads it over D-Bus. The names and signatures are those of the protocol. Main thread only.
class StatusNotifierItem final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category CONSTANT FINAL)
    Q_PROPERTY(QString Id READ id CONSTANT FINAL)
    Q_PROPERTY(QString Title READ title CONSTANT FINAL)
    Q_PROPERTY(QString Status READ status CONSTANT FINAL)
    Q_PROPERTY(int WindowId READ windowId CONSTANT FINAL)
    Q_PROPERTY(QString IconThemePath READ noIconName CONSTANT FINAL)
    Q_PROPERTY(QString IconName READ noIconName CONSTANT FINAL)
    Q_PROPERTY(tomcatto::IconPixmaps IconPixmap READ icons FINAL)
    Q_PROPERTY(QString IconAccessibleDesc READ accessibleText FINAL)
    Q_PROPERTY(QString OverlayIconName READ noIconName CONSTANT FINAL)
    Q_PROPERTY(tomcatto::IconPixmaps OverlayIconPixmap READ noIcons CONSTANT FINAL)
    Q_PROPERTY(QString AttentionIconName READ noIconName CONSTANT FINAL)
    Q_PROPERTY(tomcatto::IconPixmaps AttentionIconPixmap READ noIcons CONSTANT FINAL)
    Q_PROPERTY(QString AttentionMovieName READ noIconName CONSTANT FINAL)
    Q_PROPERTY(tomcatto::IconToolTip ToolTip READ toolTip FINAL)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu CONSTANT FINAL)
    Q_PROPERTY(QDBusObjectPath Menu READ menu CONSTANT FINAL)

public:
    /// @param menuPath where the menu is on the same connection.
    explicit StatusNotifierItem(QString menuPath);

    /// Announces what differs while a tray shows it. A tooltip alone is announced at most every few seconds: the tray
    /// answers each announcement with questions, which would wake the application up more often than its own clock
    /// does.
    void update(const QList<QImage> &images, const QString &toolTip, const QString &accessibleText);
    /// Whether a tray shows it; one that begins to asks for everything by itself, and for what has changed meanwhile.
    void setHosted(bool isHosted);

    [[nodiscard]] QString category() const { return QStringLiteral("ApplicationStatus"); }
    [[nodiscard]] QString id() const;
    [[nodiscard]] QString title() const;
    [[nodiscard]] QString status() const { return QStringLiteral("Active"); }
    [[nodiscard]] int windowId() const { return 0; }
    [[nodiscard]] QString noIconName() const { return {}; }
    [[nodiscard]] IconPixmaps noIcons() const { return {}; }
    [[nodiscard]] IconPixmaps icons() const { return m_icons; }
    [[nodiscard]] QString accessibleText() const { return m_accessibleText; }
    [[nodiscard]] IconToolTip toolTip() const { return {{}, {}, m_toolTip, {}}; }
    [[nodiscard]] bool itemIsMenu() const { return false; }
    [[nodiscard]] QDBusObjectPath menu() const { return QDBusObjectPath(m_menuPath); }

    Q_SCRIPTABLE void Activate(int x, int y);
    Q_SCRIPTABLE void SecondaryActivate(int x, int y);
    Q_SCRIPTABLE void ContextMenu(int x, int y);
    Q_SCRIPTABLE void Scroll(int delta, const QString &orientation);
    Q_SCRIPTABLE void ProvideXdgActivationToken(const QString &token);

Q_SIGNALS:
    Q_SCRIPTABLE void NewIcon();
    Q_SCRIPTABLE void NewToolTip();
    void activated(QPoint place);
    /// The tray draws no menu by itself.
    void menuWanted(QPoint place);

private:
    void announceIcon();
    void announceToolTip();

    QString m_menuPath;
    QList<QImage> m_images;
    IconPixmaps m_icons;
    QString m_toolTip;
    QString m_announcedToolTip;
    QString m_accessibleText;
    bool m_isHosted = false;
    /// How long no other tooltip is announced.
    QDeadlineTimer m_toolTipPause;
    /// For the last tooltip of a row within that pause; pushed on by each, so that it wakes nobody while they come.
    QTimer m_lastToolTip;
};

}

#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtGui/private/qguiapplication_p.h>
#include <QtGui/qpa/qplatformnativeinterface.h>
#include <QtGui/qpa/qplatformscreen.h>
#include <QtGui/qpa/qwindowsysteminterface.h>

namespace tomcatto {

/// One screen of the toolkit as a test wants it; its frame in logical pixels.
struct PluggedScreen
{
    QString name;
    QRect frame;
    int scale = 1;

    [[nodiscard]] QJsonObject configuration() const
    {
        using namespace Qt::StringLiterals;
        // The platform's own ratio does not reach its windows; a high resolution does, as on an X server.
        return {{u"name"_s, name},
                {u"x"_s, frame.x()},
                {u"y"_s, frame.y()},
                {u"width"_s, frame.width() * scale},
                {u"height"_s, frame.height() * scale},
                {u"logicalDpi"_s, 96 * scale},
                {u"logicalBaseDpi"_s, 96},
                {u"dpr"_s, 1}};
    }
};

/// The toolkit's own screens, those of its platform without a display, plugged in and out in the order of a real
/// platform: the stand-in comes before the last screen goes, and goes after the first one is back.
class PluggedScreens final
{
public:
    PluggedScreens() = default;
    PluggedScreens(const PluggedScreens &) = delete;
    PluggedScreens &operator=(const PluggedScreens &) = delete;
    ~PluggedScreens() { setStandIn(false); }

    /// Makes these the screens, the first one the main one. None: only the stand-in is left.
    void plug(const std::vector<PluggedScreen> &wanted)
    {
        using Configure = void (*)(const QJsonObject &, QPlatformNativeInterface *);
        if (wanted.empty())
            setStandIn(true);
        QJsonArray screens;
        for (const PluggedScreen &screen : wanted)
            screens.append(screen.configuration());
        QPlatformNativeInterface *platform = QGuiApplication::platformNativeInterface();
        const auto configure = reinterpret_cast<Configure>(platform->nativeResourceForIntegration("setConfiguration"));
        configure({{QStringLiteral("screens"), screens}}, platform);
        for (const QScreen *screen : QGuiApplication::screens()) {
            if (!wanted.empty() && screen->name() == wanted.front().name)
                QWindowSystemInterface::handlePrimaryScreenChanged(screen->handle());
        }
        setStandIn(wanted.empty());
    }

private:
    void setStandIn(bool isWanted)
    {
        if (isWanted && !m_standIn)
            QWindowSystemInterface::handleScreenAdded(m_standIn = new QPlatformPlaceholderScreen);
        else if (!isWanted && m_standIn)
            QWindowSystemInterface::handleScreenRemoved(std::exchange(m_standIn, nullptr));
    }

    // The toolkit's from its adding on, until it is removed.
    QPlatformScreen *m_standIn = nullptr;
};

}

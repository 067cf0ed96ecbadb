#include "Platform/Qt/GraphicsChoice.h"

#include "Foundation/Logger.h"

#include <algorithm>
#include <cstdlib>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtGui/QGuiApplication>
#include <QtGui/qguiapplication_platform.h>
#include <QtQuick/QQuickWindow>
#include <xcb/xcb.h>

namespace tomcatto {

namespace {

/// Whether the kernel drives a graphics processor that OpenGL of this system draws on.
bool hasRenderDevice()
{
    static const QStringList drivers =
        QStringLiteral("amdgpu i915 msm nouveau nvidia panfrost radeon v3d xe").split(u' ');
    const QDir devices(QStringLiteral("/sys/class/drm"));
    const QStringList names = devices.entryList({QStringLiteral("renderD*")});
    return std::ranges::any_of(names, [&devices](const QString &name) {
        const QString driver = QFileInfo(devices.filePath(name) + QStringLiteral("/device/driver")).symLinkTarget();
        return drivers.contains(QFileInfo(driver).fileName()) &&
               QFileInfo(QStringLiteral("/dev/dri/") + name).isReadable();
    });
}

/// Whether the display lets its clients draw on that device; servers for remote or virtual screens do not.
bool sharesRenderDevice()
{
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr)
        return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
    const QByteArray name = "DRI3";
    const auto request = xcb_query_extension(x11->connection(), static_cast<uint16_t>(name.size()), name.constData());
    xcb_query_extension_reply_t *reply = xcb_query_extension_reply(x11->connection(), request, nullptr);
    const bool isThere = reply != nullptr && reply->present != 0;
    std::free(reply); // NOLINT(cppcoreguidelines-no-malloc)
    return isThere;
}

bool isChosenByEnvironment()
{
    constexpr const char *variables[] = {"QT_QUICK_BACKEND", "QSG_RHI_BACKEND", "QMLSCENE_DEVICE"};
    return std::ranges::any_of(variables, [](const char *name) { return qEnvironmentVariableIsSet(name); });
}

}

void chooseGraphics()
{
    const Logger logger(QStringLiteral("GraphicsChoice"));
    if (isChosenByEnvironment()) {
        logger.debug(QStringLiteral("the environment chooses how views are drawn"));
        return;
    }
    if (!qEnvironmentVariableIsSet("LIBGL_ALWAYS_SOFTWARE") && hasRenderDevice() && sharesRenderDevice()) {
        logger.debug(QStringLiteral("views are drawn by the graphics processor"));
        return;
    }
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    logger.debug(QStringLiteral("views are drawn by the processor"));
}

}

#include "Platform/Linux/RenderDevice.h"

#include <algorithm>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace tomcatto {

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

}
